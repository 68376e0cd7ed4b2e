// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <utility>
#include <zqswiftui/platform/toolkit/text_field.hpp>
#include <zqswiftui/platform/toolkit/tree/text_field_node.hpp>

namespace zq {
namespace {

constexpr double kInsetX = 6;
constexpr double kInsetY = 4;
constexpr double kIdealWidth = 160;
constexpr double kRadius = 5;

bool continues(char c) {
  return (static_cast<unsigned char>(c) & 0xc0u) == 0x80u;
}

std::size_t before(const std::string& s, std::size_t i) {
  if (i == 0) return 0;
  for (--i; i > 0 && continues(s[i]);) --i;
  return i;
}

std::size_t after(const std::string& s, std::size_t i) {
  if (i >= s.size()) return s.size();
  for (++i; i < s.size() && continues(s[i]);) ++i;
  return i;
}

}  // namespace

TextField::TextField(std::string placeholder, Binding<std::string> text)
    : placeholder_(std::move(placeholder)), text_(std::move(text)) {}

std::unique_ptr<Node> TextFieldValue::makeNode(const NodePlace& place) const {
  return std::make_unique<TextFieldNode>(place);
}

void TextFieldNode::mount() {
  text_ = value().text;
  caret_ = text_.size();
}

void TextFieldNode::update(const View& next) {
  const auto& now = static_cast<const TextFieldValue&>(*next.value());
  const bool renamed = now.placeholder != value().placeholder;
  setView(next);
  // The owner's text wins where it is not what this field told it last.
  if (value().text != text_ || renamed) show(value().text, caretIn(value().text));
}

// Where the caret stands in a text that came from elsewhere: before what stands behind it now.
std::size_t TextFieldNode::caretIn(const std::string& text) const {
  const std::string_view behind = std::string_view(text_).substr(caret_);
  std::size_t caret = text.ends_with(behind) ? text.size() - behind.size() : caret_;
  caret = std::min(caret, text.size());
  while (caret > 0 && caret < text.size() && continues(text[caret])) --caret;
  return caret;
}

void TextFieldNode::show(const std::string& text, std::size_t caret) {
  text_ = text;
  caret_ = caret;
  invalidatePicture();
  tree().contentChanged();
}

void TextFieldNode::edited(const std::string& text) {
  if (text != text_) edit(text, caretIn(text));
}

void TextFieldNode::edit(const std::string& text, std::size_t caret) {
  show(text, caret);
  // An owner that takes none of the edit, or a part, has no view evaluated: after this frame the
  // binding is asked for its value.
  tree().later(*this, [this] {
    const std::string owned = value().binding.get();
    if (owned != text_) show(owned, caretIn(owned));
  });
  tree().requestFrame();
  const Binding<std::string> binding = value().binding;  // its owner may replace this view
  binding.set(text);
}

void TextFieldNode::submitted() {
  const auto submit = value().submit;
  if (submit) submit();
}

void TextFieldNode::focusChanged(bool focused, bool) {
  invalidatePicture();
  const auto ended = value().ended;  // it may end this view
  if (!focused && ended) ended();
}

bool TextFieldNode::key(const KeyEvent& event) {
  std::string text = text_;
  std::size_t caret = caret_;
  switch (event.key) {
    case Key::left:
      caret = before(text, caret);
      break;
    case Key::right:
      caret = after(text, caret);
      break;
    case Key::home:
      caret = 0;
      break;
    case Key::end:
      caret = text.size();
      break;
    case Key::backspace:
      caret = before(text, caret);
      text.erase(caret, caret_ - caret);
      break;
    case Key::deleteForward:
      text.erase(caret, after(text, caret) - caret);
      break;
    case Key::enter:
      if (!value().submit) return false;
      submitted();
      return true;
    case Key::space:
    case Key::character:
      if (event.text.empty() || event.modifiers.control || event.modifiers.alt) return false;
      text.insert(caret, event.text);
      caret += event.text.size();
      break;
    default:
      return false;
  }
  caret_ = caret;
  if (text != text_) edit(text, caret);
  return true;
}

int TextFieldNode::font() const {
  return tree().texts().fontNumber(environment().font, environment().textScale);
}

void TextFieldNode::environmentChanged(const Environment& old) {
  const bool sameFont = old.font == environment().font;
  if (!sameFont || old.textScale != environment().textScale) invalidateMeasure();
  invalidatePicture();
}

Size TextFieldNode::computeSize(const ProposedSize& proposal) {
  const double height = tree().texts().lineHeight(font()) + 2 * kInsetY;
  const double width =
      proposal.width && std::isfinite(*proposal.width) ? *proposal.width : kIdealWidth;
  return {width, height};
}

void TextFieldNode::record(Piece& piece) {
  const Rect all = localBounds();
  if (all.empty()) return;
  const bool focused = tree().focus().focused() == this;
  const double on = environment().enabled ? 1 : 0.5;
  piece.emplace_back(FillRoundedRect{all, kRadius, true, Color::primary().opacity(0.06 * on)});
  const double line = focused ? 2 : 1;
  Path outline;
  outline.addRoundedRect(all.insetBy(line / 2), kRadius, true);
  const Color edge = focused ? Color::accent() : Color::primary().opacity(0.25 * on);
  piece.emplace_back(StrokePath{std::make_shared<const Path>(std::move(outline)),
                                all,
                                {.lineWidth = line, .dash = {}},
                                edge});
}

TextFieldState TextFieldNode::state() const {
  TextFieldState s;
  s.id = id();
  s.bounds = toWindow(localBounds());
  s.bounds = {s.bounds.x + kInsetX, s.bounds.y + 1, std::max(0.0, s.bounds.width - 2 * kInsetX),
              std::max(0.0, s.bounds.height - 2)};
  const Rect visible = intersection(visibleRect(), localBounds());
  s.clip = intersection(s.bounds, toWindow(visible));
  s.text = text_;
  s.placeholder = value().placeholder;
  s.font = tree().texts().resolved(font());
  s.color = environment().foreground.value_or(Color::primary()).resolve(environment().colorScheme);
  s.alignment = environment().textAlignment;
  s.direction = environment().layoutDirection;
  s.enabled = environment().enabled;
  s.focused = tree().focus().focused() == this;
  return s;
}

void TextFieldNode::describe(std::vector<AccessibilityNode>& out) {
  AccessibilityNode node;
  node.id = id();
  node.role = Role::textField;
  node.name = value().placeholder;
  node.value = text_;
  node.bounds = toWindow(localBounds());
  node.enabled = node.focusable = environment().enabled;
  node.focused = tree().focus().focused() == this;
  out.push_back(std::move(node));
}

TextField TextField::onSubmit(std::function<void()> action) const {
  return with(*this, &TextField::submit_, std::move(action));
}

TextField TextField::onEditingEnded(std::function<void()> action) const {
  return with(*this, &TextField::ended_, std::move(action));
}

TextField::operator View() const {
  return View::make<TextFieldValue>(placeholder_, text_, submit_, ended_);
}

}  // namespace zq
