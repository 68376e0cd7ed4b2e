// ZQSwiftUI, MIT licence; see LICENSE.
#include <memory>
#include <utility>
#include <zqswiftui/bindings/zq_deferred_binding.hpp>
#include <zqswiftui/layout/zq_tokens_view.hpp>
#include <zqswiftui/platform/services/require.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/text_field.hpp>

namespace zq {
namespace {

// The text as it came to rest, and where it goes. Apart from the view, so that what was typed
// last still arrives when the view goes before the delay ends.
struct Editing {
  std::string text;
  Binding<ZQTokensView::List> tokenList;
  ZQTokensView::List separators;

  void setText(const std::string& next) {
    if (text == next) return;
    text = next;
    ZQ_REQUIRE(!separators.empty(),
               "ZQTokensView: separators is empty, so there is nothing to split the text at");
    tokenList.set(tokensOf(text, separators.front()));
  }
};

std::string joinedByCommas(const ZQTokensView::List& tokens) {
  std::string text;
  for (const std::string& token : tokens) {
    if (&token != &tokens.front()) text += ',';
    text += token;
  }
  return text;
}

}  // namespace

ZQTokensView::ZQTokensView(Binding<List> tokenList, List separators)
    : tokenList_(std::move(tokenList)), separators_(std::move(separators)) {}

std::vector<std::string> tokensOf(std::string_view text, std::string_view separator) {
  std::vector<std::string> tokens;
  std::size_t start = 0;
  while (!separator.empty()) {
    const std::size_t end = text.find(separator, start);
    if (end == std::string_view::npos) break;
    tokens.emplace_back(text.substr(start, end - start));
    start = end + separator.size();
  }
  tokens.emplace_back(text.substr(start));
  return tokens;
}

View ZQTokensView::body(Context& context) const {
  const auto editing = *context.stateOf([this] {
    return std::make_shared<Editing>(
        Editing{joinedByCommas(tokenList_.get()), tokenList_, separators_});
  });
  editing->tokenList = tokenList_;
  editing->separators = separators_;
  const auto deferred = *context.stateOf([&editing] {
    return ZQDeferredTextBinding::create(
        Binding<std::string>([editing] { return editing->text; },
                             [editing](const std::string& text) { editing->setText(text); }));
  });
  context.observe(deferred);
  return TextField("", deferred->value()).accessibilityLabel("Tokens");
}

}  // namespace zq
