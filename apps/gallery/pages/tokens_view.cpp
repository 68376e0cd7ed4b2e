// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/layout/zq_tags_view.hpp>
#include <zqswiftui/layout/zq_tokens_view.hpp>

namespace zq::gallery {
namespace {

// [code]
using Tokens = std::vector<std::string>;

View tokenList(const Tokens& tokens) {
  std::vector<View> rows;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    rows.push_back(row(std::to_string(i + 1), Text("“" + tokens[i] + "”")));
  }
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 4},
      std::move(rows));
}

struct TokenFields {
  View body(Context& context) const {
    auto tokens = context.state(Tokens{"alpha", "beta", "gamma"});
    auto paths = context.state(Tokens{"home"});
    return cards({
        card("Edit the line: the list follows half a second later",
            VStack(
                {.alignment = HorizontalAlignment::leading, .spacing = 12},
                {ZQTokensView(tokens.binding()),
                    ZQTagsView(*tokens, Color::teal()),
                    tokenList(*tokens)})),
        card("Split at slashes",
            VStack(
                {.alignment = HorizontalAlignment::leading, .spacing = 12},
                {ZQTokensView(paths.binding(), {"/"}), tokenList(*paths)})),
        card("Disabled",
            ZQTokensView(Binding<Tokens>::constant({"fixed", "list"}))
                .disabled()),
        card(
            "Light and dark", lightAndDark(ZQTokensView(tokens.binding()))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::tokens_view() {
  return page<TokenFields>("Layout", "ZQTokensView",
      "A list of texts edited as one line, split at a separator; empty "
      "pieces are kept.");
}

}  // namespace zq::gallery
