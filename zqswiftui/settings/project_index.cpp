// ZQSwiftUI, MIT licence; see LICENSE.
#include <bit>
#include <functional>
#include <memory>
#include <utility>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/settings/project_index.hpp>

namespace zq {

TokenTable::TokenTable(std::size_t most) : entries_(std::bit_ceil(2 * most + 1)) {}

// The slot of the token, or the empty one where it would stand.
std::size_t TokenTable::slotOf(std::string_view token, std::size_t hash) const {
  const std::size_t mask = entries_.size() - 1;
  std::size_t slot = hash & mask;
  while (entries_[slot].place != none &&
         (entries_[slot].hash != hash || entries_[slot].token != token)) {
    slot = (slot + 1) & mask;
  }
  return slot;
}

void TokenTable::add(const std::string& name, std::size_t place) {
  std::string made = swiftTokenize(name);
  const std::size_t hash = std::hash<std::string_view>()(made);
  Entry& entry = entries_[slotOf(made, hash)];
  if (entry.place != none) return;
  const std::string_view token = made == name ? name : spelled_.emplace_back(std::move(made));
  entry = {hash, token, place};
}

std::optional<std::size_t> TokenTable::find(std::string_view token) const {
  const Entry& entry = entries_[slotOf(token, std::hash<std::string_view>()(token))];
  return entry.place != none ? std::optional(entry.place) : std::nullopt;
}

ProjectIndex::ProjectIndex(const std::vector<ZQUICGroup>& groups)
    : groups_(groups), names_(groups.size()), keys_(groups.size()) {
  for (std::size_t i = 0; i < groups.size(); ++i) names_.add(groups[i].name, i);
}

const ZQUICItem* ProjectIndex::find(std::string_view key, std::string_view group) const {
  const auto place = names_.find(group);
  if (!place) return nullptr;
  const std::vector<ZQUICItem>& items = groups_[*place].itemList;
  const TokenTable& keys = keys_[*place].get([&items] {
    auto table = std::make_unique<TokenTable>(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) table->add(items[i].key, i);
    return table;
  });
  const auto found = keys.find(key);
  return found ? &items[*found] : nullptr;
}

}  // namespace zq
