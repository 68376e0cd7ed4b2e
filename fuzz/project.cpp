// ZQSwiftUI, MIT licence; see LICENSE.
// Any bytes as a project file: whatever is accepted is written and read again as the same, and
// the two readers mean the same by it.
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <zqswiftui/settings/own_form_reader.hpp>
#include <zqswiftui/settings/project_json.hpp>
#include <zqswiftui/settings/zq_config.hpp>

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

std::string encoded(const zq::ZQUICProject& project) {
  auto json = zq::encodeProject(project, zq::JsonStyle::pretty);
  require(json.ok());
  return std::move(json).value();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view json(reinterpret_cast<const char*>(data), size);
  zq::ProjectPlaces places;
  const auto all = zq::decodeEverything(json, places);
  const auto project = zq::decodeProject(json);
  require(all.ok() == project.ok());
  if (!project.ok()) {
    require(!project.error().sentence.empty());
    return 0;
  }
  require(places.groups.size() == all.value().groupList().size());
  for (const auto& group : places.groups) {
    require(group.offset < size);
    for (const std::size_t offset : group.items) require(offset < size);
  }
  const std::string text = encoded(project.value());
  const auto again = zq::decodeProject(text);
  require(again.ok() && again.value() == project.value() && encoded(again.value()) == text);
  const zq::ZQConfig store(project.value());
  for (const zq::ZQUICGroup& group : project.value().groupList()) {
    store.doubleValue(group.name, group.itemList.empty() ? "" : group.itemList[0].key);
  }
  require(!store.zqcCode().empty());
  return 0;
}
