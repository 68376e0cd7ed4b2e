// ZQSwiftUI, MIT licence; see LICENSE.
#include <array>
#include <cmath>
#include <cstdio>
#include <zqswiftui/platform/toolkit/display_list.hpp>

namespace zq {
namespace {

std::string number(double value) {
  if (!std::isfinite(value)) return std::isnan(value) ? "nan" : (value > 0 ? "inf" : "-inf");
  std::array<char, 352> digits{};
  std::snprintf(digits.data(), digits.size(), "%.2f", value);
  std::string text = digits.data();
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text == "-0" ? "0" : text;
}

std::string quoted(const std::string& text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      result += '\\';
      result += c;
    } else if (c == '\n') {
      result += "\\n";
    } else if (c == '\t') {
      result += "\\t";
    } else if (static_cast<unsigned char>(c) < 0x20) {
      std::array<char, 8> code{};
      std::snprintf(code.data(), code.size(), "\\x%02x", static_cast<unsigned>(c));
      result += code.data();
    } else {
      result += c;
    }
  }
  return result + '"';
}

std::string point(UnitPoint p) {
  return number(p.x) + ',' + number(p.y);
}

std::string describe(const Paint& paint) {
  if (const Color* color = paint.color()) return color->description();
  const auto& gradient = *paint.gradient();
  std::string text = "gradient " + point(gradient.startPoint) + " to " + point(gradient.endPoint);
  for (const LinearGradient::Stop& stop : gradient.stops) {
    text += " [" + number(stop.location) + ' ' + stop.color.description() + ']';
  }
  return text;
}

struct Describer {
  Point origin;

  std::string at(const Rect& rect) const { return describe(rect.offsetBy(origin)) + ' '; }

  std::string operator()(const FillRect& c) const {
    return "rect " + at(c.rect) + describe(c.paint);
  }
  std::string operator()(const FillRoundedRect& c) const {
    return "rounded " + at(c.rect) + "radius " + number(c.radius) + ' ' +
           (c.continuous ? "continuous " : "") + describe(c.paint);
  }
  std::string operator()(const FillPath& c) const {
    return "path " + at(c.rect) + describe(c.paint);
  }
  std::string operator()(const StrokePath& c) const {
    std::string text = "stroke " + at(c.rect) + "line " + number(c.style.lineWidth) + ' ';
    if (c.style.roundCap) text += "cap ";
    if (c.style.roundJoin) text += "join ";
    for (std::size_t i = 0; i < c.style.dash.size(); ++i) {
      text += (i == 0 ? "dash " : "") + number(c.style.dash[i]) + ' ';
    }
    return text + describe(c.paint);
  }
  std::string operator()(const DrawText& c) const {
    std::string text = "text " + at(c.rect);
    text += c.content ? quoted(c.content->text) + ' ' + describe(c.content->font) : quoted({});
    if (c.alignment == TextAlignment::center) text += " center";
    if (c.alignment == TextAlignment::trailing) text += " trailing";
    if (!c.singleLine) text += " wrapped";
    if (!c.singleLine && c.maxLines > 0) text += " lines " + std::to_string(c.maxLines);
    if (c.elideMiddle) text += " middle";
    return text + ' ' + c.color.description();
  }
  std::string operator()(const DrawSymbol& c) const {
    return "symbol " + at(c.rect) + c.name + ' ' + c.color.description();
  }
  std::string operator()(const DrawPicture& c) const {
    return "picture " + describe(c.rect.offsetBy(origin));
  }
};

}  // namespace

Rect boundsOf(const DrawCommand& command) {
  return std::visit([](const auto& c) { return c.rect; }, command);
}

std::string describe(const DrawCommand& command, Point origin) {
  return std::visit(Describer{origin}, command);
}

std::string describe(const Rect& r) {
  return number(r.x) + ',' + number(r.y) + ' ' + number(r.width) + 'x' + number(r.height);
}

std::string describe(const FontSpec& font) {
  std::string text = (font.family.empty() ? "system" : font.family) + ' ' + number(font.size);
  if (font.weight >= 700) {
    text += " bold";
  } else if (font.weight != 400) {
    text += ' ' + std::to_string(font.weight);
  }
  if (font.italic) text += " italic";
  if (font.monospaced) text += " monospaced";
  return text;
}

}  // namespace zq
