// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/settings/zquic_group.hpp>

namespace zq {

// Finds items by the tokenized names of their group and key: the answer of an ordered walk that
// takes the first group of the name, and in it the first item of the key. Built once over
// groups that outlive it and do not change; reading allocates nothing, on any thread.
class ProjectIndex {
 public:
  explicit ProjectIndex(const std::vector<ZQUICGroup>& groups);
  const ZQUICItem* find(std::string_view key, std::string_view group) const;

 private:
  struct Entry {
    std::size_t hash = 0;
    std::string_view group;
    std::string_view key;
    const ZQUICItem* item = nullptr;
  };
  std::string_view tokenized(const std::string& text);
  void add(std::string_view group, const ZQUICItem& item);
  const Entry& slotFor(std::size_t hash, std::string_view key, std::string_view group) const;

  std::vector<Entry> table_;         // a power of two, never full; places follow one another
  std::deque<std::string> spelled_;  // of the names that are not their own token
};

}  // namespace zq
