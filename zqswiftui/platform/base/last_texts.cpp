// ZQSwiftUI, MIT licence; see LICENSE.
#include <unordered_map>
#include <zqswiftui/platform/base/last_texts.hpp>
#include <zqswiftui/platform/base/work.hpp>

namespace zq {
namespace {

struct Table {
  SerialQueue queue{"vendel.ZQNotificableText.lastText"};
  // On the queue only.
  std::unordered_map<std::string, LastTexts::Entry> byKeyword;
  std::uint64_t last = 0;
};

// Never destroyed: threads may post while the program ends.
Table& table() {
  static auto* const table = new Table;
  return *table;
}

}  // namespace

std::uint64_t LastTexts::remember(const std::string& keyword,
                                  const std::optional<std::string>& text) {
  Table& all = table();
  std::uint64_t order = 0;
  all.queue.sync([&] {
    order = ++all.last;
    if (text) all.byKeyword[keyword] = {*text, order};
  });
  return order;
}

std::optional<LastTexts::Entry> LastTexts::of(const std::string& keyword) {
  Table& all = table();
  std::optional<Entry> entry;
  all.queue.sync([&] {
    const auto found = all.byKeyword.find(keyword);
    if (found != all.byKeyword.end()) entry = found->second;
  });
  return entry;
}

}  // namespace zq
