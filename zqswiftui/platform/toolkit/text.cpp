// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <zqswiftui/platform/toolkit/text.hpp>
#include <zqswiftui/platform/toolkit/tree/leaf_node.hpp>

namespace zq {

Text::Text(std::string text) : text_(std::move(text)) {}

class TextNode final : public LeafNode {
 public:
  using Value = PrimitiveValue<Text, TextNode>;
  using LeafNode::LeafNode;

  void mount() override { resolve(); }
  void update(const View& next) override;
  std::string debugName() const override { return "Text"; }
  std::string accessibleText() override { return text().text_; }
  void describe(std::vector<AccessibilityNode>& out) override;

 protected:
  Size computeSize(const ProposedSize& proposal) override;
  void layoutChildren() override {}
  void record(Piece& piece) override;
  void environmentChanged(const Environment& old) override;

 private:
  const Text& text() const { return static_cast<const Value&>(*view().value()).value; }
  int lineLimit() const {
    if (text().middle_) return 1;
    return text().ownLineLimit_ ? text().lineLimit_ : environment().lineLimit;
  }
  void resolve();
  TextSize measureWidth(double width, int lines) {
    return tree().texts().measure(text().text_, font_, width, lines);
  }

  int font_ = 0;
  std::shared_ptr<const TextContent> content_;
};

void TextNode::resolve() {
  font_ = tree().texts().fontNumber(text().ownFont_ ? text().font_ : environment().font,
                                    environment().textScale);
}

void TextNode::update(const View& next) {
  const Text was = text();
  const Text& now = static_cast<const Value&>(*next.value()).value;
  if (was == now) return;
  setView(next);
  const bool sameLook =
      was.text_ == now.text_ && was.font_ == now.font_ && was.ownFont_ == now.ownFont_;
  if (!sameLook) content_.reset();
  resolve();
  const bool sameLines = was.lineLimit_ == now.lineLimit_ &&
                         was.ownLineLimit_ == now.ownLineLimit_ && was.middle_ == now.middle_;
  if (!sameLook || !sameLines) invalidateMeasure();
  invalidatePicture();
  tree().contentChanged();
}

void TextNode::environmentChanged(const Environment& old) {
  const int before = font_;
  resolve();
  if (font_ != before) content_.reset();
  if (font_ != before || old.lineLimit != environment().lineLimit) invalidateMeasure();
  invalidatePicture();
}

Size TextNode::computeSize(const ProposedSize& proposal) {
  constexpr double kAny = std::numeric_limits<double>::infinity();
  int lines = lineLimit();
  TextSize size = measureWidth(kAny, lines);
  if (proposal.width && *proposal.width < size.width) {
    size = measureWidth(sanitized(*proposal.width), lines);
    size.width = std::min(size.width, sanitized(*proposal.width));
  }
  const double lineHeight = tree().texts().lineHeight(font_);
  if (proposal.height && *proposal.height < size.height && size.lines > 1 && lineHeight > 0) {
    const double fitting = std::floor(sanitized(*proposal.height) / lineHeight);
    lines = std::max(1, static_cast<int>(std::min(fitting, 1e6)));
    size.height = std::min(size.height, lines * lineHeight);
  }
  return {size.width, size.height};
}

void TextNode::record(Piece& piece) {
  const Text& t = text();
  if (t.text_.empty() || frame().size().width <= 0) return;
  if (!content_) {
    content_ = std::make_shared<const TextContent>(
        TextContent{t.text_, tree().texts().resolved(font_), nullptr});
  }
  const TextSize whole = measureWidth(std::numeric_limits<double>::infinity(), 0);
  const double lineHeight = tree().texts().lineHeight(font_);
  int lines = lineLimit();
  if (lineHeight > 0) {
    const int fitting =
        std::max(1, static_cast<int>(std::min(frame().height / lineHeight + 0.01, 1e6)));
    lines = lines > 0 ? std::min(lines, fitting) : fitting;
  }
  DrawText draw;
  draw.content = content_;
  draw.rect = localBounds();
  draw.alignment = t.ownAlignment_ ? t.alignment_ : environment().textAlignment;
  draw.maxLines = lines;
  draw.singleLine = whole.lines <= 1 && whole.width <= frame().width;
  draw.elideMiddle = t.middle_;
  draw.color = t.color_ ? *t.color_ : environment().foreground.value_or(Color::primary());
  if (!environment().enabled) draw.color = draw.color.opacity(0.4);
  piece.emplace_back(std::move(draw));
}

void TextNode::describe(std::vector<AccessibilityNode>& out) {
  if (text().text_.empty()) return;
  AccessibilityNode node;
  node.id = id();
  node.role = Role::text;
  node.name = text().text_;
  node.bounds = toWindow(localBounds());
  node.enabled = environment().enabled;
  out.push_back(std::move(node));
}

Text::operator View() const {
  return View::make<TextNode::Value>(*this);
}

Text Text::font(Font font) const {
  return with(with(*this, &Text::font_, font), &Text::ownFont_, true);
}

Text Text::foregroundColor(std::optional<Color> color) const {
  return color ? with(*this, &Text::color_, color) : *this;
}

Text Text::multilineTextAlignment(TextAlignment alignment) const {
  return with(with(*this, &Text::alignment_, alignment), &Text::ownAlignment_, true);
}

Text Text::lineLimit(int lines) const {
  return with(with(*this, &Text::lineLimit_, std::max(0, lines)), &Text::ownLineLimit_, true);
}

Text Text::truncationInTheMiddle() const {
  return with(*this, &Text::middle_, true);
}

}  // namespace zq
