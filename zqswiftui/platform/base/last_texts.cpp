// ZQSwiftUI, MIT licence; see LICENSE.
#include <unordered_map>
#include <zqswiftui/platform/base/last_texts.hpp>
#include <zqswiftui/platform/base/work.hpp>

namespace zq {
namespace {

struct Table {
  SerialQueue queue{"vendel.ZQNotificableText.lastText"};
  std::unordered_map<std::string, std::string> byKeyword;  // on the queue only
};

// Never destroyed: threads may post while the program ends.
Table& table() {
  static auto* const table = new Table;
  return *table;
}

}  // namespace

void LastTexts::remember(const std::string& keyword, const std::string& text) {
  Table& all = table();
  all.queue.sync([&] { all.byKeyword[keyword] = text; });
}

void LastTexts::read(const std::string& keyword,
                     const std::function<void(const std::optional<std::string>&)>& take) {
  Table& all = table();
  all.queue.sync([&] {
    const auto found = all.byKeyword.find(keyword);
    take(found == all.byKeyword.end() ? std::nullopt : std::optional(found->second));
  });
}

}  // namespace zq
