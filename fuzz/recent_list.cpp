// ZQSwiftUI, MIT licence; see LICENSE.
// Any bytes as the desktop's list of documents: the next document comes in once, and what could be
// read before is still there.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <zqswiftui/platform/qt/recent_list.hpp>

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view list(reinterpret_cast<const char*>(data), size);
  const zq::qt::OpenedDocument next{"file:///next", "", "Ours", "'<&>' %u", {}};
  const auto before = zq::qt::documentsOf(list, {"Ours", "Editor"});
  auto written = zq::qt::withDocument(list, next);
  const bool isDamaged = !written;
  if (isDamaged) written = zq::qt::withDocument(zq::qt::undamaged(list), next);
  require(written.has_value());
  const auto after = zq::qt::documentsOf(*written, {"Ours", "Editor"});
  require(std::count(after.begin(), after.end(), next.href) >= 1);
  require(isDamaged || after.size() >= before.size());
  const auto again = zq::qt::withDocument(*written, next);
  require(again && zq::qt::documentsOf(*again, {"Ours", "Editor"}).size() == after.size());
  return 0;
}
