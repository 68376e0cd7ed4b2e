// ZQSwiftUI, MIT licence; see LICENSE.
#include <array>
#include <cmath>
#include <cstdio>
#include <zqswiftui/platform/toolkit/text_canvas.hpp>

namespace zq {
namespace {

std::string number(double value) {
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%.2f", value);
  std::string s = text.data();
  while (s.back() == '0') s.pop_back();
  if (s.back() == '.') s.pop_back();
  return s == "-0" ? "0" : s;
}

std::string quoted(const std::string& text) {
  std::string s = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') s += '\\';
    if (c == '\n') {
      s += "\\n";
    } else {
      s += c;
    }
  }
  return s + '"';
}

std::string describe(const Paint& paint) {
  if (const auto* color = std::get_if<Color>(&paint)) return color->description();
  std::string s = "gradient(";
  for (const auto& stop : std::get<LinearGradient>(paint).stops) {
    if (s.back() != '(') s += ", ";
    s += stop.color.description() + " at " + number(stop.location);
  }
  return s + ')';
}

std::string describe(const FontSpec& font) {
  std::string s =
      (font.family.empty() ? std::string("system") : font.family) + ' ' + number(font.size);
  if (font.weight >= 600) s += " bold";
  if (font.italic) s += " italic";
  if (font.monospaced) s += " monospaced";
  return s;
}

struct Describer {
  Point origin;
  std::string at(const Rect& rect) const { return zq::describe(rect.offsetBy(origin)); }

  std::string operator()(const FillRect& c) const {
    return "rect " + at(c.rect) + ' ' + describe(c.paint);
  }
  std::string operator()(const FillRoundedRect& c) const {
    const bool capsule = c.radius * 2 >= std::min(c.rect.width, c.rect.height);
    const bool circle = capsule && c.rect.width == c.rect.height;
    const std::string name = circle    ? "circle "
                             : capsule ? "capsule "
                                       : "rounded(" + number(c.radius) + ") ";
    return name + at(c.rect) + ' ' + describe(c.paint);
  }
  std::string operator()(const FillPath& c) const {
    return "path " + at(c.rect) + ' ' + describe(c.paint);
  }
  std::string operator()(const StrokePath& c) const {
    return "stroke(" + number(c.style.lineWidth) + (c.style.dash.empty() ? "" : " dashed") + ") " +
           at(c.rect) + ' ' + describe(c.paint);
  }
  std::string operator()(const DrawText& c) const {
    return "text " + quoted(c.content->text) + ' ' + at(c.rect) + ' ' + describe(c.content->font) +
           ", " + c.color.description();
  }
  std::string operator()(const DrawSymbol& c) const {
    return "symbol " + c.name + ' ' + at(c.rect) + ' ' + c.color.description();
  }
  std::string operator()(const DrawPicture& c) const {
    return "picture " + std::to_string(c.picture.width()) + 'x' +
           std::to_string(c.picture.height()) + " in " + at(c.rect);
  }
};

}  // namespace

std::string describe(const Rect& r) {
  return number(r.x) + ',' + number(r.y) + ' ' + number(r.width) + 'x' + number(r.height);
}

std::string describe(const DrawCommand& command, const PlayState& state) {
  std::string s = std::visit(Describer{state.origin}, command);
  if (state.opacity != 1) s += " opacity " + number(state.opacity);
  return s;
}

void TextCanvas::line(const std::string& content) {
  text_.append(static_cast<std::size_t>(depth_) * 2, ' ').append(content).push_back('\n');
}

void TextCanvas::open(const std::string& content) {
  line(content + " {");
  ++depth_;
}

void TextCanvas::draw(const DrawCommand& command, const PlayState& state) {
  line(describe(command, state));
}
void TextCanvas::pushClip(const Rect& rect) {
  open("clip " + describe(rect));
}
void TextCanvas::pushClip(const Path& path, Point origin) {
  open("clip path " + describe(path.bounds().offsetBy(origin)));
}
void TextCanvas::pushOpacity(double opacity, const Rect&) {
  open("opacity " + number(opacity));
}
void TextCanvas::pushScale(double x, double y, Point about) {
  open("scale " + number(x) + (x == y ? "" : " by " + number(y)) + " about " + number(about.x) +
       ',' + number(about.y));
}
void TextCanvas::pop() {
  if (depth_ == 0) return;
  --depth_;
  line("}");
}

}  // namespace zq
