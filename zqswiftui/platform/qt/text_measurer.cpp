// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <cmath>
#include <zqswiftui/platform/qt/font_cache.hpp>
#include <zqswiftui/platform/qt/text_layout.hpp>
#include <zqswiftui/platform/qt/text_measurer.hpp>

namespace zq::qt {
namespace {

// In the order of TextStyle.
constexpr std::array<double, 11> kStyleSizes{26, 22, 17, 15, 13, 13, 12, 11, 10, 10, 10};

}  // namespace

FontSpec TextMeasurer::styleFont(TextStyle style) const {
  FontSpec wanted;
  wanted.size = kStyleSizes[static_cast<std::size_t>(style)];
  if (style == TextStyle::headline) wanted.weight = 600;
  return wanted;
}

FontMetrics TextMeasurer::metrics(const FontSpec& font) const {
  const FontEntry& entry = fontEntry(font);
  return {entry.ascent, entry.metrics.descent(), entry.lineHeight};
}

double TextMeasurer::lineWidth(std::string_view text, const FontSpec& font) const {
  setShapedText(buffer_, text, LineFeeds::asSpaces);
  return std::ceil(fontEntry(font).metrics.horizontalAdvance(buffer_));
}

TextSize TextMeasurer::wrapped(std::string_view text, const FontSpec& font, double maxWidth,
                               int maxLines) const {
  const FontEntry& entry = fontEntry(font);
  setShapedText(buffer_, text, LineFeeds::kept);
  const TextBlock block(buffer_, entry, {maxWidth, maxLines, false});
  // An empty text still has the line on which a cursor would stand.
  const int lines = std::max(1, static_cast<int>(block.lines().size()));
  return {std::ceil(block.width()), std::ceil(lines * entry.lineHeight), lines};
}

}  // namespace zq::qt
