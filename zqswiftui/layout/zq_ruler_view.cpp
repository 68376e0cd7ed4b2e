// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <vector>
#include <zqswiftui/layout/ruler_ticks.hpp>
#include <zqswiftui/layout/zq_ruler_bar.hpp>
#include <zqswiftui/layout/zq_ruler_view.hpp>
#include <zqswiftui/platform/base/timecode.hpp>
#include <zqswiftui/platform/services/require.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/for_each.hpp>
#include <zqswiftui/platform/toolkit/geometry_reader.hpp>
#include <zqswiftui/platform/toolkit/layout.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr double kLabelSpacing = 3;
// A label begins at its tick and is no longer than this: so far before the part that is seen a
// tick may still show.
constexpr double kLabelReach = 2 * kRulerPitch;

// Each child at its own distance from the leading edge, its middle on that of the highest.
class RowsAt final : public Layout {
 public:
  explicit RowsAt(std::vector<double> xs) : xs_(std::move(xs)) {}
  Size sizeThatFits(const ProposedSize& proposal, const Subviews& subviews) const override {
    return proposal.replacingUnspecified({0, highest(subviews.idealSizes())});
  }
  void placeSubviews(const Rect& bounds, const ProposedSize& /*proposal*/,
                     const Subviews& subviews) const override {
    const std::span<const Size> sizes = subviews.idealSizes();
    ZQ_REQUIRE(sizes.size() == xs_.size(), "ZQRulerView: one place for each tick");
    const double most = highest(sizes);
    std::vector<Point> points(xs_.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
      points[i] = {bounds.x + xs_[i], bounds.y + (most - sizes[i].height) / 2};
    }
    subviews.placeIdeal(points);
  }
  bool equals(const Layout& other) const override {
    return xs_ == static_cast<const RowsAt&>(other).xs_;
  }

 private:
  static double highest(std::span<const Size> sizes) {
    double height = 0;
    for (const Size& size : sizes) height = std::max(height, size.height);
    return height;
  }
  std::vector<double> xs_;
};

View barOf(bool full, double height) {
  const Rect frame{0, 0, 1, height};
  return PathShape(ZQRulerBar(full).path(frame))
      .stroke(Color::gray())
      .frame(frame.width, frame.height);
}

// The ticks of a ruler that stand in one part of it.
class Ticks {
 public:
  Ticks(const ZQTimeRange& range, double width) : range_(range), width_(width) {}

  std::vector<double> collect(const RulerTicks& ticks, double from, double to) {
    std::vector<double> values;
    const TickNumbers shown = ticksBetween(ticks, range_, width_, from, to);
    for (std::int64_t n = shown.first; n <= shown.last; ++n) {
      values.push_back(ticks.value(n));
      xs_.push_back(tickPosition(values.back(), range_, width_));
    }
    return values;
  }
  const std::vector<double>& xs() const { return xs_; }

 private:
  ZQTimeRange range_;
  double width_;
  std::vector<double> xs_;
};

// Labels of larger texts are as much longer: their ticks lie further apart, up to the longest step.
double stepFor(const ZQTimeRange& range, double width, double textGrowth) {
  const double usual = secondsPerPitch(range, width);
  const double most = std::max(usual, kRulerSteps.back());
  return rulerStep(std::min(usual * textGrowth, most));
}

View ticksOf(const ZQTimeRange& range, Size size, const Rect& seen, double textGrowth) {
  if (!(size.width > 0)) return {};
  const double step = stepFor(range, size.width, textGrowth);
  const double from = seen.x - kLabelReach * textGrowth, to = seen.maxX();
  const double height = std::max(1.0, size.height);
  Ticks ticks(range, size.width);
  // A major tick before the leading edge is not drawn, nor is its label; a minor one is.
  const auto majors = ticks.collect(majorTicks(range, step), std::max(0.0, from), to);
  const auto minors = ticks.collect(minorTicks(range, step), from, to);
  const auto majorRow = [](double value, double h) {
    return HStack({.spacing = kLabelSpacing},
                  {barOf(true, h), Text(TC::getFloatTimecode(value, false)).lineLimit(1)});
  };
  const auto minorRow = [](double /*value*/, double h) { return barOf(false, h); };
  return LayoutView(RowsAt(ticks.xs()), {ForEach(majors, std::identity{}, height, majorRow),
                                         ForEach(minors, std::identity{}, height, minorRow)});
}

}  // namespace

View ZQRulerView::body(Context& context) const {
  const double growth = larger(1, context.environment<TextScaleKey>());
  const std::string spoken =
      TC::getFloatTimecode(range_.start, false) + " to " + TC::getFloatTimecode(range_.end, false);
  return GeometryReader([range = range_, growth](Size size, const Rect& seen) {
           return ticksOf(range, size, seen, growth);
         })
      .foregroundColor(Color::gray())
      .font(Font::caption())
      .accessibility({.hidden = true})
      .accessibility({.role = Role::image, .label = "Time ruler", .value = spoken});
}

}  // namespace zq
