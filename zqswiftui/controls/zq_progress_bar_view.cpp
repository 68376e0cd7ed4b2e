// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <string>
#include <zqswiftui/controls/zq_progress_bar_view.hpp>
#include <zqswiftui/platform/toolkit/progress_view.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

// Begins fast: where a new value comes at each frame, one that began slowly would never set out.
const Animation kMove = Animation::easeOut(0.25);

// How many of so many equal parts are complete. What a division rounds off is given back: 0.29 is
// 29 of 100 parts, though 100 times it is less.
int complete(double fraction, int parts) {
  return static_cast<int>(std::floor(fraction * parts + 1e-9));
}

std::string percents(double fraction, bool digit) {
  const int tenths = complete(fraction, 1000);
  const std::string whole = std::to_string(tenths / 10);
  return digit ? whole + "." + std::to_string(tenths % 10) + " %" : whole + " %";
}

View percentageText(double fraction, bool digit) {
  const auto line = [](const std::string& text) { return Text(text).lineLimit(1).fixedSize(); };
  return ZStack({line(percents(1, digit)).opacity(0), line(percents(fraction, digit))},
                Alignment::trailing())
      .font(Font::subheadline())
      .foregroundColor(Color::secondary());
}

}  // namespace

ZQProgressBarView::ZQProgressBarView(const Parameters& parameters) : parameters_(parameters) {
  // NaN would never equal itself, and be evaluated again each time.
  const double given = parameters.percentage;
  parameters_.percentage = given > 0 ? std::min(given, 1.0) : 0.0;
}

View ZQProgressBarView::body(Context& /*context*/) const {
  const double fraction = parameters_.percentage;
  const int tenths = complete(fraction, 10);
  ProgressView bar = ProgressView(fraction)
                         .barColors(parameters_.foregroundColor, parameters_.backgroundColor)
                         .barHeight(parameters_.height.value_or(usualHeight));
  if (parameters_.animation) bar = bar.animated(kMove);
  View all = bar;
  if (parameters_.showPercentage) {
    all = HStack({.spacing = 8}, {all, percentageText(fraction, parameters_.add1Digit)});
  }
  return all.accessibility({.hidden = true})
      .accessibility({.role = Role::progress,
                      .label = "Progress",
                      .value = std::to_string(tenths * 10) + " %",
                      .number = AccessibleNumber{.value = tenths / 10.0}});
}

}  // namespace zq
