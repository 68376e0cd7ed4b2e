// ZQSwiftUI, MIT licence; see LICENSE.
// Projects of any names and values as C++ source: what is not refused compiles without a warning
// in both kinds of build.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdio>
#include <cstdlib>
#include <zqswiftui/platform/headless/headless_platform.hpp>
#include <zqswiftui/settings/cpp_generator.hpp>

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

bool compiles(const std::string& code, const std::string& options) {
  const std::string command =
      ZQ_COMPILER
      " -std=c++20 -fsyntax-only -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror"
      " -I" ZQ_STAND_IN " -I" ZQ_INCLUDE " " +
      options + " -x c++-header -";
  std::FILE* const compiler = ::popen(command.c_str(), "w");
  require(compiler != nullptr);
  std::fwrite(code.data(), 1, code.size(), compiler);
  return ::pclose(compiler) == 0;
}

zq::ZQUICItem itemFrom(FuzzedDataProvider& data) {
  return {.key = data.ConsumeRandomLengthString(24),
          .type = data.PickValueInArray(zq::allRecordTypes),
          .intValue = data.ConsumeIntegral<std::int64_t>(),
          .doubleValue = data.ConsumeFloatingPoint<double>(),
          .stringValue = data.ConsumeRandomLengthString(300),
          .boolValue = data.ConsumeBool(),
          .pointValue = {data.ConsumeFloatingPoint<double>(), 0.5}};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  FuzzedDataProvider data(bytes, size);
  zq::CppOptions options;
  if (data.ConsumeBool()) options.className = data.ConsumeRandomLengthString(16);
  if (data.ConsumeBool()) options.namespaceName = data.ConsumeRandomLengthString(16);
  const zq::HeadlessPlatform platform;
  zq::ZQUICProject project;
  project.name = data.ConsumeRandomLengthString(24);
  std::vector<zq::ZQUICGroup> groups;
  while (data.remaining_bytes() > 0 && groups.size() < 8) {
    groups.push_back({.name = data.ConsumeRandomLengthString(24)});
    for (int items = data.ConsumeIntegralInRange(0, 6); items > 0; --items) {
      groups.back().itemList.push_back(itemFrom(data));
    }
  }
  project.setGroupList(std::move(groups));
  const auto code = zq::cppCode(project, options);
  if (!code.ok()) {
    require(!code.error().sentence.empty());
    return 0;
  }
  require(compiles(code.value(), "-DNDEBUG") && compiles(code.value(), ""));
  return 0;
}
