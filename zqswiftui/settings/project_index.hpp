// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/base/made_once.hpp>
#include <zqswiftui/settings/zquic_group.hpp>

namespace zq {

// Places in a list by the tokens of their names; of equal tokens the first. Names outlive it.
class TokenTable {
 public:
  // Empty, for at most so many names.
  explicit TokenTable(std::size_t most);
  void add(const std::string& name, std::size_t place);
  std::optional<std::size_t> find(std::string_view token) const;

 private:
  struct Entry {
    std::size_t hash = 0;
    std::string_view token;
    std::size_t place = none;
  };
  static constexpr auto none = static_cast<std::size_t>(-1);
  std::size_t slotOf(std::string_view token, std::size_t hash) const;

  std::vector<Entry> entries_;       // a power of two, never full; collisions follow one another
  std::deque<std::string> spelled_;  // tokens that are not their own name
};

// Finds items by the tokens of their group and key: the answer of an ordered walk that takes the
// first group of the name, and in it the first item of the key. Groups outlive it and do not
// change. The keys of a group are looked at when it is first asked for, for an application reads
// few of a large project. Any thread; finding what was found before allocates nothing.
class ProjectIndex {
 public:
  explicit ProjectIndex(const std::vector<ZQUICGroup>& groups);
  const ZQUICItem* find(std::string_view key, std::string_view group) const;

 private:
  const std::vector<ZQUICGroup>& groups_;
  TokenTable names_;
  std::deque<MadeOnce<TokenTable>> keys_;  // of each group
};

}  // namespace zq
