// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/layout.hpp>

namespace zq {

// One line of a flow. Indices count the children; lengths are points.
struct FlowRow {
  // Half open: the upper bound is not in it.
  struct Range {
    std::ptrdiff_t lowerBound = 0;
    std::ptrdiff_t upperBound = 0;
    bool operator==(const Range&) const = default;
  };
  Range range;
  std::vector<double> xOffsets;  // of each child's left edge from the row's
  Rect frame;                    // x is 0; as wide as what it holds, as high as the tallest
  bool operator==(const FlowRow&) const = default;
};

// The rows of a flow from the top, and the room that they take together.
struct FlowResult {
  Size bounds;
  std::vector<FlowRow> rows;
  bool operator==(const FlowResult&) const = default;
};

// The distance that child i keeps from child i - 1; asked for i > 0 alone.
using FlowGap = std::function<double(std::size_t i)>;

// Breaks children of those sizes into rows, in one pass. A child that makes its row exactly
// full stays on it; one that is wider than the offer has a row of its own, and sticks out. An
// infinite offer never breaks, and answers offsets and widths that are not finite.
FlowResult flowRows(double offeredWidth, std::span<const Size> sizes, const FlowGap& horizontalGap,
                    double verticalGap);
// With one distance between neighbours and between rows.
FlowResult flowRows(double offeredWidth, std::span<const Size> sizes, double spacing);

// The top left corner of each child, the rows aligned in the rectangle and the children in
// their rows.
std::vector<Point> flowPositions(const FlowResult& flow, std::span<const Size> sizes,
                                 const Rect& bounds, Alignment alignment);

// A wrapping layout: children at their ideal sizes, left to right, a new row where the next
// one no longer fits. Nothing is squeezed or stretched. Where no spacing is given, neighbours
// keep the toolkit's preferred distances. Asked for its size without a width, it wraps at 10.
//   LayoutView(NewFlowLayout({.alignment = Alignment::leading(), .spacing = 2}), {a, b, c})
class NewFlowLayout final : public Layout {
 public:
  struct Parameters {
    Alignment alignment = Alignment::center();
    std::optional<double> spacing = std::nullopt;
    bool operator==(const Parameters&) const = default;
  };
  NewFlowLayout() = default;
  explicit NewFlowLayout(Parameters parameters) : parameters_(parameters) {}

  Size sizeThatFits(const ProposedSize& proposal, const Subviews& subviews) const override;
  void placeSubviews(const Rect& bounds, const ProposedSize& proposal,
                     const Subviews& subviews) const override;
  bool equals(const Layout& other) const override;

 private:
  Parameters parameters_;
};

}  // namespace zq
