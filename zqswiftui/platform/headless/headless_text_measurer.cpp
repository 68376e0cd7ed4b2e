// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/headless/headless_text_measurer.hpp>

namespace zq {

namespace {

constexpr double advancePerEm = 0.6;
constexpr double heightPerEm = 1.2;

// Sums such as 5 * 0.6 * 10 must not grow by a point through a rounding error.
double ceilPoints(double value) {
  return std::ceil(value - 1e-9);
}

double fontSize(const FontSpec& font) {
  return std::isfinite(font.size) ? std::clamp(font.size, 0.0, 10000.0) : 0;
}

double advance(const FontSpec& font) {
  return advancePerEm * fontSize(font);
}

// The widths, in characters, of the lines of a text, broken as late as they can be.
class LineBreaker {
 public:
  explicit LineBreaker(std::int64_t capacity) : capacity_(capacity) {}

  void add(char32_t c) {
    if (c == U' ') {
      endWord();
      ++blanks_;
    } else {
      ++word_;
    }
  }

  // Only where a line is broken do its blanks hang over; before a line feed they are text.
  void endLine() {
    endWord();
    line_ = std::min(line_ + blanks_, std::max(line_, capacity_));
    closeLine();
  }

  std::int64_t widest(int lines) const {
    const auto count = std::min(static_cast<std::size_t>(lines), widths_.size());
    return *std::max_element(widths_.begin(), widths_.begin() + static_cast<std::ptrdiff_t>(count));
  }
  int lines() const { return static_cast<int>(widths_.size()); }

 private:
  void endWord() {
    if (word_ == 0) return;
    if (line_ + blanks_ + word_ > capacity_ && line_ + blanks_ > 0) closeLine();
    line_ += blanks_;
    blanks_ = 0;
    while (line_ + word_ > capacity_) {
      word_ -= capacity_ - line_;
      line_ = capacity_;
      closeLine();
    }
    line_ += word_;
    word_ = 0;
  }

  void closeLine() {
    widths_.push_back(line_);
    line_ = 0;
    blanks_ = 0;
  }

  std::int64_t capacity_;
  std::int64_t line_ = 0;
  std::int64_t blanks_ = 0;
  std::int64_t word_ = 0;
  std::vector<std::int64_t> widths_;
};

std::int64_t lineCapacity(double maxWidth, double advanceOfOne) {
  constexpr auto unlimited = std::numeric_limits<std::int64_t>::max() / 4;
  if (!(maxWidth < 1e12) || advanceOfOne <= 0) return unlimited;
  // At least one character a line, else a narrow column would never end.
  return std::max<std::int64_t>(1, static_cast<std::int64_t>(maxWidth / advanceOfOne + 1e-9));
}

}  // namespace

FontSpec HeadlessTextMeasurer::styleFont(TextStyle style) const {
  constexpr std::array<double, 11> sizes{26, 22, 17, 15, 13, 13, 12, 11, 10, 10, 10};
  FontSpec font;
  font.size = sizes[static_cast<std::size_t>(style)];
  if (style == TextStyle::headline) font.weight = 700;
  return font;
}

FontMetrics HeadlessTextMeasurer::metrics(const FontSpec& font) const {
  const double height = ceilPoints(heightPerEm * fontSize(font));
  const double descent = std::floor(height * 0.2);
  return {.ascent = height - descent, .descent = descent, .lineHeight = height};
}

double HeadlessTextMeasurer::lineWidth(std::string_view text, const FontSpec& font) const {
  ++counts_.lineWidth;
  return static_cast<double>(scalarCount(text)) * advance(font);
}

TextSize HeadlessTextMeasurer::wrapped(std::string_view text, const FontSpec& font, double maxWidth,
                                       int maxLines) const {
  ++counts_.wrapped;
  LineBreaker breaker(lineCapacity(maxWidth, advance(font)));
  for (std::size_t position = 0; position < text.size();) {
    const char32_t c = nextScalar(text, position);
    if (c == U'\n') {
      breaker.endLine();
    } else {
      breaker.add(c);
    }
  }
  breaker.endLine();
  TextSize size;
  size.lines = maxLines > 0 ? std::min(maxLines, breaker.lines()) : breaker.lines();
  size.width = ceilPoints(static_cast<double>(breaker.widest(size.lines)) * advance(font));
  size.height = metrics(font).lineHeight * size.lines;
  return size;
}

}  // namespace zq
