// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/settings/list_protocols.hpp>
#include <zqswiftui/settings/zquic_item.hpp>

namespace zq {

// A named list of settings.
//   ZQUICGroup canvas{.name = "Canvas", .itemList = {zoom}};
struct ZQUICGroup {
  std::string id = newSettingsId();
  std::string name = "New Group";
  std::vector<ZQUICItem> itemList{};
  bool expanded = true;
  bool shouldBeDeleted = false;

  // In a sidebar a group has a name and no marks of its own.
  [[no_unique_address]] Unchangeable<bool, never> favorite{};
  [[no_unique_address]] Unchangeable<bool, never> hidden{};
  [[no_unique_address]] Unchangeable<Color, Color::gray> color{};
  [[no_unique_address]] Unchangeable<std::optional<ZQImage>, nothing<ZQImage>> icon{};
  [[no_unique_address]] Unchangeable<std::optional<Url>, nothing<Url>> iconUrl{};

  // With those that are flagged to be deleted.
  std::size_t itemsCount() const { return itemList.size(); }
  // Whether the name or any item matches.
  bool zqSearch(std::string_view query) const;

  bool operator==(const ZQUICGroup&) const = default;
};

}  // namespace zq
