// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <vector>
#include <zqswiftui/platform/base/time_range.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A thin bar that shows which parts of a time are covered: an outline, and a filled piece for each
// segment, all in the foreground colour. Times are seconds, the corner radius points. Fills the
// room that it is given; pieces reach beyond it where their segment reaches beyond the total
// range, and one without a positive, finite width is not drawn. A segment is known by itself:
// one that stays in the list stays the same view. Interface thread only.
//   ZQMiniTimeline({.totalRange = {0, 100}, .segmentsList = {{25, 50}}, .cornerRadius = 3})
class ZQMiniTimeline : public ViewModifiers<ZQMiniTimeline> {
 public:
  struct Parameters {
    Required<ZQTimeRange> totalRange;
    Required<std::vector<ZQTimeRange>> segmentsList;
    Required<double> cornerRadius;
    bool operator==(const Parameters&) const = default;
  };
  explicit ZQMiniTimeline(Parameters parameters);

  View body(Context& context) const;
  bool operator==(const ZQMiniTimeline&) const = default;

 private:
  Parameters parameters_;
};

// The place of a segment from a to b in a bar of that width, whose total range is S to E:
//   x = (a - S) / (E - S) * width, width = ((b - a) - S) / (E - S) * width
// S comes off the length as well, so that pieces are in proportion only where the total range
// starts at 0. Not finite where the total range is empty. Points from the leading edge.
struct TimelinePiece {
  double x = 0;
  double width = 0;
  bool operator==(const TimelinePiece&) const = default;
};
TimelinePiece timelinePiece(const ZQTimeRange& segment, const ZQTimeRange& totalRange,
                            double width);

}  // namespace zq
