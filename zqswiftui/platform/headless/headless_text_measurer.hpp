// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/services/text_measurer.hpp>

namespace zq {

// Metrics that hold on every machine: each character advances 0.6 em, a line is 1.2 em high,
// rounded up. Counts what it measures, so that a test may prove that nothing is measured twice.
class HeadlessTextMeasurer : public TextMeasurer {
 public:
  FontSpec styleFont(TextStyle style) const override;
  FontMetrics metrics(const FontSpec& font) const override;
  double lineWidth(std::string_view text, const FontSpec& font) const override;
  TextSize wrapped(std::string_view text, const FontSpec& font, double maxWidth,
                   int maxLines) const override;

  struct Counts {
    int lineWidth = 0;
    int wrapped = 0;
    bool operator==(const Counts&) const = default;
  };
  const Counts& counts() const { return counts_; }
  void resetCounts() { counts_ = {}; }

 private:
  mutable Counts counts_;
};

}  // namespace zq
