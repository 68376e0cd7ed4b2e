// ZQSwiftUI, MIT licence; see LICENSE.
#include <bit>
#include <functional>
#include <unordered_set>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/settings/project_index.hpp>

namespace zq {

namespace {

std::size_t hashOf(std::string_view key, std::string_view group) {
  const std::hash<std::string_view> hash;
  return hash(group) * 31 + hash(key);
}

}  // namespace

ProjectIndex::ProjectIndex(const std::vector<ZQUICGroup>& groups) {
  std::size_t count = 0;
  for (const ZQUICGroup& group : groups) count += group.itemList.size();
  table_.resize(std::bit_ceil(2 * count + 1));
  std::unordered_set<std::string_view> seen;
  for (const ZQUICGroup& group : groups) {
    const std::string_view name = tokenized(group.name);
    if (!seen.insert(name).second) continue;
    for (const ZQUICItem& item : group.itemList) add(name, item);
  }
}

std::string_view ProjectIndex::tokenized(const std::string& text) {
  std::string token = swiftTokenize(text);
  if (token == text) return text;
  return spelled_.emplace_back(std::move(token));
}

const ProjectIndex::Entry& ProjectIndex::slotFor(std::size_t hash, std::string_view key,
                                                 std::string_view group) const {
  const std::size_t mask = table_.size() - 1;
  for (std::size_t place = hash & mask;; place = (place + 1) & mask) {
    const Entry& entry = table_[place];
    if (entry.item == nullptr) return entry;
    if (entry.hash == hash && entry.key == key && entry.group == group) return entry;
  }
}

void ProjectIndex::add(std::string_view group, const ZQUICItem& item) {
  const std::string_view key = tokenized(item.key);
  const std::size_t hash = hashOf(key, group);
  const Entry& slot = slotFor(hash, key, group);
  if (slot.item != nullptr) return;
  table_[static_cast<std::size_t>(&slot - table_.data())] = {hash, group, key, &item};
}

const ZQUICItem* ProjectIndex::find(std::string_view key, std::string_view group) const {
  return slotFor(hashOf(key, group), key, group).item;
}

}  // namespace zq
