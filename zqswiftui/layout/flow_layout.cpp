// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <zqswiftui/layout/flow_layout.hpp>
#include <zqswiftui/platform/services/require.hpp>

namespace zq {
namespace {

constexpr double kWidthWhereNoneIsOffered = 10;

std::ptrdiff_t checkedAdd(std::ptrdiff_t a, std::ptrdiff_t b) {
  std::ptrdiff_t sum = 0;
  ZQ_REQUIRE(!__builtin_add_overflow(a, b, &sum),
             "NewFlowLayout: an index of a child is too large to be counted");
  return sum;
}

// The state of one pass. Everything is reckoned from what remains of the offer and not from
// what has been used, so that a row is full exactly where subtraction says so.
template <class Gap>
class RowBuilder {
 public:
  RowBuilder(double offeredWidth, const Gap& gap, double verticalGap)
      : offered_(offeredWidth),
        remaining_(std::isfinite(offeredWidth) ? offeredWidth
                                               : std::numeric_limits<double>::max()),
        gap_(gap),
        verticalGap_(verticalGap) {}

  FlowResult build(std::span<const Size> sizes) {
    ZQ_REQUIRE(std::in_range<std::ptrdiff_t>(sizes.size()),
               "NewFlowLayout: there are more children than can be counted");
    const auto count = static_cast<std::ptrdiff_t>(sizes.size());
    for (std::ptrdiff_t i = 0; i < count; ++i) {
      const Size& size = sizes[static_cast<std::size_t>(i)];
      // A comparison with NaN is false: such a child stays where it is.
      if (i > 0 && remaining_ < size.width + gapBefore(i)) closeRow(i - 1);
      add(size, gapBefore(i));
      if (i == count - 1) closeRow(i);
    }
    return std::move(result_);
  }

 private:
  double gapBefore(std::ptrdiff_t i) const {
    return itemsInRow_ < 1 ? 0 : gap_(static_cast<std::size_t>(i));
  }

  void add(const Size& size, double gap) {
    xOffsets_.push_back(offered_ - remaining_ + gap);
    remaining_ -= size.width + gap;
    rowHeight_ = std::max(rowHeight_, size.height);
    itemsInRow_ = checkedAdd(itemsInRow_, 1);
  }

  void closeRow(std::ptrdiff_t last) {
    const std::ptrdiff_t start = last - std::max<std::ptrdiff_t>(itemsInRow_ - 1, 0);
    const double used = offered_ - remaining_;
    const std::size_t expected = xOffsets_.size();
    result_.rows.push_back({.range = {start, checkedAdd(last, 1)},
                            .xOffsets = std::exchange(xOffsets_, {}),
                            .frame = {0, rowMinY_, used, rowHeight_}});
    xOffsets_.reserve(expected);  // rows hold about as many as the one before
    result_.bounds.width = std::max(result_.bounds.width, used);
    result_.bounds.height += rowHeight_ + (result_.rows.size() >= 2 ? verticalGap_ : 0);
    rowMinY_ += rowHeight_ + verticalGap_;
    itemsInRow_ = 0;
    rowHeight_ = 0;
    remaining_ = offered_;
  }

  double offered_;
  double remaining_;
  const Gap& gap_;
  double verticalGap_;
  std::ptrdiff_t itemsInRow_ = 0;
  double rowMinY_ = 0;
  double rowHeight_ = 0;
  std::vector<double> xOffsets_;
  FlowResult result_;
};

}  // namespace

FlowResult flowRows(double offeredWidth, std::span<const Size> sizes, const FlowGap& horizontalGap,
                    double verticalGap) {
  return RowBuilder(offeredWidth, horizontalGap, verticalGap).build(sizes);
}

FlowResult flowRows(double offeredWidth, std::span<const Size> sizes, double spacing) {
  const auto gap = [spacing](std::size_t) { return spacing; };
  return RowBuilder(offeredWidth, gap, spacing).build(sizes);
}

std::vector<Point> flowPositions(const FlowResult& flow, std::span<const Size> sizes,
                                 const Rect& bounds, Alignment alignment) {
  std::vector<Point> points;
  points.reserve(sizes.size());
  for (const FlowRow& row : flow.rows) {
    const double free = bounds.width - row.frame.width;
    // Leading is no shift at all, also where the free width is not finite.
    const double shift = alignment.horizontal == HorizontalAlignment::leading
                             ? 0
                             : free * fraction(alignment.horizontal);
    for (const double xOffset : row.xOffsets) {
      const double height = sizes[points.size()].height;
      const double down = (row.frame.height - height) * fraction(alignment.vertical);
      points.push_back({shift + row.frame.x + xOffset + bounds.x, row.frame.y + down + bounds.y});
    }
  }
  return points;
}

FlowResult NewFlowLayout::flow(const ProposedSize& proposal, const Subviews& subviews,
                               std::span<const Size> sizes) const {
  const double width = proposal.width.value_or(kWidthWhereNoneIsOffered);
  if (parameters_.spacing) return flowRows(width, sizes, *parameters_.spacing);
  const FlowGap gap = [&subviews](std::size_t i) {
    return subviews[i - 1].spacing().distance(subviews[i].spacing(), Axis::horizontal);
  };
  return flowRows(width, sizes, gap, ViewSpacing{}.distance(ViewSpacing{}, Axis::vertical));
}

Size NewFlowLayout::sizeThatFits(const ProposedSize& proposal, const Subviews& subviews) const {
  return flow(proposal, subviews, subviews.idealSizes()).bounds;
}

void NewFlowLayout::placeSubviews(const Rect& bounds, const ProposedSize& proposal,
                                  const Subviews& subviews) const {
  const std::span<const Size> sizes = subviews.idealSizes();
  const FlowResult rows = flow(proposal, subviews, sizes);
  subviews.placeIdeal(flowPositions(rows, sizes, bounds, parameters_.alignment));
}

bool NewFlowLayout::equals(const Layout& other) const {
  return parameters_ == static_cast<const NewFlowLayout&>(other).parameters_;
}

}  // namespace zq
