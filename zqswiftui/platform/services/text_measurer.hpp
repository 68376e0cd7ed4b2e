// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <string_view>

namespace zq {

enum class TextStyle {
  largeTitle,
  title,
  title2,
  title3,
  headline,
  body,
  callout,
  subheadline,
  footnote,
  caption,
  caption2
};

// A font as the platform understands it. An empty family is the platform's interface font;
// size is in points; weight runs from 100 to 900 (400 regular, 700 bold).
struct FontSpec {
  std::string family;
  double size = 13;
  int weight = 400;
  bool italic = false;
  bool monospaced = false;
  bool operator==(const FontSpec&) const = default;
};

struct FontMetrics {
  double ascent = 0;
  double descent = 0;
  double lineHeight = 0;  // ascent + descent + leading
};

// Widths and heights in points, already rounded up to whole points.
struct TextSize {
  double width = 0;
  double height = 0;
  int lines = 0;
};

// Measures texts. Interface thread only. Invalid UTF-8 is measured as replacement characters.
class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;
  virtual FontSpec styleFont(TextStyle style) const = 0;
  virtual FontMetrics metrics(const FontSpec& font) const = 0;
  // Advance of one line, line feeds not interpreted. The hot path of every layout.
  virtual double lineWidth(std::string_view text, const FontSpec& font) const = 0;
  // Wrapped at word boundaries (within a word where one is too long) to at most maxWidth
  // (infinity: only line feeds break) and at most maxLines lines (0: any number).
  virtual TextSize wrapped(std::string_view text, const FontSpec& font, double maxWidth,
                           int maxLines) const = 0;
};

}  // namespace zq
