// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <string_view>
#include <zqswiftui/platform/services/text_measurer.hpp>

namespace zq {

// Where the lines of a text stand in its width.
enum class TextAlignment : unsigned char { leading, center, trailing };

// A font by style (its size comes from the platform) or by family and size in points. A size
// that is not finite or not positive counts as that of the body style. A plain value.
class Font {
 public:
  enum class Weight : short { regular = 400, medium = 500, semibold = 600, bold = 700 };

  Font() = default;  // body
  static Font style(TextStyle style) { return Font(style); }
  static Font largeTitle() { return Font(TextStyle::largeTitle); }
  static Font title() { return Font(TextStyle::title); }
  static Font title2() { return Font(TextStyle::title2); }
  static Font title3() { return Font(TextStyle::title3); }
  static Font headline() { return Font(TextStyle::headline); }
  static Font body() { return Font(TextStyle::body); }
  static Font callout() { return Font(TextStyle::callout); }
  static Font subheadline() { return Font(TextStyle::subheadline); }
  static Font footnote() { return Font(TextStyle::footnote); }
  static Font caption() { return Font(TextStyle::caption); }
  static Font caption2() { return Font(TextStyle::caption2); }
  // The platform's interface font at that size.
  static Font system(double size);
  static Font custom(std::string_view family, double size);

  Font weight(Weight weight) const;
  Font bold() const { return weight(Weight::bold); }
  Font italic() const;
  Font monospaced() const;

  FontSpec resolve(const TextMeasurer& measurer) const;
  // "caption", "body bold", "DejaVu Sans 11": for text dumps.
  std::string description() const;
  bool operator==(const Font&) const = default;

 private:
  explicit Font(TextStyle style) : style_(style) {}
  double size_ = 0;   // 0: that of the style
  int family_ = 0;    // index in the table of interned families; 0: the interface font
  short weight_ = 0;  // 0: that of the style
  bool italic_ = false;
  bool monospaced_ = false;
  TextStyle style_ = TextStyle::body;
};

// Between 0.5 and 4, in hundredths, so that a scale that is dragged makes no endless number of
// fonts; NaN counts as 1.
double boundedTextScale(double scale);

}  // namespace zq
