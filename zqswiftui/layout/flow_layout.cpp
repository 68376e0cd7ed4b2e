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

// One pass over the children: tells each one's offset in its row, and each row when it is full.
// Everything is reckoned from what remains of the offer and not from what has been used, so
// that a row is full exactly where subtraction says so. Answers the room that all rows take.
template <class Gap, class Child, class Row>
Size walkRows(double offered, std::span<const Size> sizes, const Gap& gapBefore, double verticalGap,
              const Child& child, const Row& row) {
  ZQ_REQUIRE(std::in_range<std::ptrdiff_t>(sizes.size()),
             "NewFlowLayout: there are more children than can be counted");
  Size bounds;
  double remaining = std::isfinite(offered) ? offered : std::numeric_limits<double>::max();
  double top = 0, height = 0;
  std::size_t start = 0;
  const auto close = [&](std::size_t end) {
    const double used = offered - remaining;
    row(start, end, Rect{0, top, used, height});
    bounds.width = std::max(bounds.width, used);
    bounds.height += height + (start > 0 ? verticalGap : 0);
    top += height + verticalGap;
    start = end;
    height = 0;
    remaining = offered;
  };
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const Size& size = sizes[i];
    double gap = i > start ? gapBefore(i) : 0;
    // A comparison with NaN is false: such a child stays where it is.
    if (i > 0 && remaining < size.width + gap) {
      close(i);
      gap = 0;
    }
    child(i, offered - remaining + gap);
    remaining -= size.width + gap;
    height = std::max(height, size.height);
  }
  if (!sizes.empty()) close(sizes.size());
  return bounds;
}

template <class Gap>
FlowResult collectRows(double offered, std::span<const Size> sizes, const Gap& gap,
                       double verticalGap) {
  FlowResult result;
  std::vector<double> offsets;
  const auto child = [&](std::size_t, double offset) { offsets.push_back(offset); };
  const auto row = [&](std::size_t start, std::size_t end, const Rect& frame) {
    result.rows.push_back(
        {.range = {static_cast<std::ptrdiff_t>(start), static_cast<std::ptrdiff_t>(end)},
         .xOffsets = std::exchange(offsets, {}),
         .frame = frame});
    offsets.reserve(result.rows.back().xOffsets.size());  // rows of one list are much alike
  };
  result.bounds = walkRows(offered, sizes, gap, verticalGap, child, row);
  return result;
}

// Where the children of one row stand, once its size is known.
class RowAligner {
 public:
  RowAligner(const Rect& row, const Rect& bounds, Alignment alignment)
      : row_(row), top_(row.y + bounds.y), down_(fraction(alignment.vertical)) {
    // Leading is no shift at all, also where the free width is not finite.
    const double shift = alignment.horizontal == HorizontalAlignment::leading
                             ? 0
                             : (bounds.width - row.width) * fraction(alignment.horizontal);
    left_ = shift + row.x + bounds.x;
  }
  Point place(double offset, double height) const {
    return {left_ + offset, top_ + (row_.height - height) * down_};
  }

 private:
  const Rect& row_;
  double left_ = 0, top_, down_;
};

// The parameters' distances as functions that can be inlined, for a list may be long.
template <class Use>
auto withGaps(const std::optional<double>& spacing, const Subviews& subviews, const Use& use) {
  if (spacing) return use([&](std::size_t) { return *spacing; }, *spacing);
  const auto preferred = [&](std::size_t i) {
    return subviews[i - 1].spacing().distance(subviews[i].spacing(), Axis::horizontal);
  };
  return use(preferred, ViewSpacing{}.distance(ViewSpacing{}, Axis::vertical));
}

}  // namespace

FlowResult flowRows(double offeredWidth, std::span<const Size> sizes, const FlowGap& horizontalGap,
                    double verticalGap) {
  return collectRows(offeredWidth, sizes, horizontalGap, verticalGap);
}

FlowResult flowRows(double offeredWidth, std::span<const Size> sizes, double spacing) {
  return collectRows(
      offeredWidth, sizes, [spacing](std::size_t) { return spacing; }, spacing);
}

std::vector<Point> flowPositions(const FlowResult& flow, std::span<const Size> sizes,
                                 const Rect& bounds, Alignment alignment) {
  std::vector<Point> points;
  points.reserve(sizes.size());
  for (const FlowRow& row : flow.rows) {
    const RowAligner aligner(row.frame, bounds, alignment);
    for (const double offset : row.xOffsets) {
      points.push_back(aligner.place(offset, sizes[points.size()].height));
    }
  }
  return points;
}

Size NewFlowLayout::sizeThatFits(const ProposedSize& proposal, const Subviews& subviews) const {
  const double width = proposal.width.value_or(kWidthWhereNoneIsOffered);
  return withGaps(parameters_.spacing, subviews, [&](const auto& gap, double verticalGap) {
    return walkRows(
        width, subviews.idealSizes(), gap, verticalGap, [](std::size_t, double) {},
        [](std::size_t, std::size_t, const Rect&) {});
  });
}

// Like flowRows and flowPositions, without keeping the rows in between.
void NewFlowLayout::placeSubviews(const Rect& bounds, const ProposedSize& proposal,
                                  const Subviews& subviews) const {
  const double width = proposal.width.value_or(kWidthWhereNoneIsOffered);
  const std::span<const Size> sizes = subviews.idealSizes();
  std::vector<Point> points(sizes.size());
  const auto child = [&](std::size_t i, double offset) { points[i].x = offset; };
  const auto row = [&](std::size_t start, std::size_t end, const Rect& frame) {
    const RowAligner aligner(frame, bounds, parameters_.alignment);
    for (std::size_t i = start; i < end; ++i) {
      points[i] = aligner.place(points[i].x, sizes[i].height);
    }
  };
  withGaps(parameters_.spacing, subviews, [&](const auto& gap, double verticalGap) {
    return walkRows(width, sizes, gap, verticalGap, child, row);
  });
  subviews.placeIdeal(points);
}

bool NewFlowLayout::equals(const Layout& other) const {
  return parameters_ == static_cast<const NewFlowLayout&>(other).parameters_;
}

}  // namespace zq
