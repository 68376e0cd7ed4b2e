// ZQSwiftUI, MIT licence; see LICENSE.
#include <array>
#include <cstdio>
#include <zqswiftui/platform/toolkit/text_canvas.hpp>

namespace zq {
namespace {

std::string threeDigits(double value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.3g", value);
  return text.data();
}

}  // namespace

void TextCanvas::line(const std::string& text) {
  text_.append(2 * depth_, ' ').append(text).append(1, '\n');
}

void TextCanvas::open(const std::string& text) {
  line(text + " {");
  ++depth_;
}

void TextCanvas::draw(const DrawCommand& command, const PlayState& state) {
  std::string text = describe(command, state.origin);
  if (state.opacity != 1) text += " opacity " + threeDigits(state.opacity);
  line(text);
}

void TextCanvas::pushClip(const Rect& rect) {
  open("clip " + describe(rect));
}

void TextCanvas::pushClip(const Path& path, Point origin) {
  open("clip path " + describe(path.bounds().offsetBy(origin)));
}

void TextCanvas::pushOpacity(double opacity, const Rect& /*bounds*/) {
  open("opacity " + threeDigits(opacity));
}

void TextCanvas::pushScale(double scaleX, double scaleY, Point /*about*/) {
  open("scale " + threeDigits(scaleX) + (scaleX == scaleY ? "" : ',' + threeDigits(scaleY)));
}

void TextCanvas::pop() {
  if (depth_ == 0) return;
  --depth_;
  line("}");
}

}  // namespace zq
