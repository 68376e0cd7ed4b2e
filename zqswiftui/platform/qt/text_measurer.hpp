// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QString>
#include <zqswiftui/platform/services/text_measurer.hpp>

namespace zq::qt {

// Measures with the fonts that the canvas draws with. Sizes are points of a screen of 96 dots
// an inch; a style's font has the size, and the family is that of the application's font.
class TextMeasurer final : public zq::TextMeasurer {
 public:
  FontSpec styleFont(TextStyle style) const override;
  FontMetrics metrics(const FontSpec& font) const override;
  double lineWidth(std::string_view text, const FontSpec& font) const override;
  TextSize wrapped(std::string_view text, const FontSpec& font, double maxWidth,
                   int maxLines) const override;

 private:
  mutable QString buffer_;
};

}  // namespace zq::qt
