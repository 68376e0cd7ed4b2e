// ZQSwiftUI, MIT licence; see LICENSE.
#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <zqswiftui/layout/zq_mini_timeline.hpp>
#include <zqswiftui/platform/base/timecode.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/for_each.hpp>
#include <zqswiftui/platform/toolkit/geometry_reader.hpp>
#include <zqswiftui/platform/toolkit/layout.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>

namespace zq {
namespace {

// A segment as it is drawn.
struct Piece {
  ZQTimeRange segment;
  Size size;
  bool operator==(const Piece&) const = default;
};

// Each child at its own distance from the leading edge.
class PiecesAt final : public Layout {
 public:
  explicit PiecesAt(std::vector<Point> points) : points_(std::move(points)) {}
  Size sizeThatFits(const ProposedSize& proposal, const Subviews& /*subviews*/) const override {
    return proposal.replacingUnspecified({});
  }
  void placeSubviews(const Rect& /*bounds*/, const ProposedSize& /*proposal*/,
                     const Subviews& subviews) const override {
    subviews.placeIdeal(points_);
  }
  bool equals(const Layout& other) const override {
    return points_ == static_cast<const PiecesAt&>(other).points_;
  }

 private:
  std::vector<Point> points_;
};

View piecesOf(const ZQMiniTimeline::Parameters& timeline, Size size) {
  std::vector<Piece> pieces;
  std::vector<Point> points;
  for (const ZQTimeRange& segment : *timeline.segmentsList) {
    const TimelinePiece piece = timelinePiece(segment, timeline.totalRange, size.width);
    if (!(piece.width > 0) || !std::isfinite(piece.width) || !std::isfinite(piece.x)) continue;
    pieces.push_back({segment, {piece.width, size.height}});
    points.push_back({piece.x, 0});
  }
  const auto fill = [](const Piece& piece, double radius) {
    return RoundedRectangle(radius).frame(piece.size.width, piece.size.height);
  };
  return LayoutView(PiecesAt(std::move(points)), {ForEach(std::move(pieces), &Piece::segment,
                                                          timeline.cornerRadius.get(), fill)});
}

std::string spoken(const ZQTimeRange& range, std::size_t segments) {
  return std::to_string(segments) + (segments == 1 ? " segment, " : " segments, ") +
         TC::getFloatTimecode(range.start, false) + " to " + TC::getFloatTimecode(range.end, false);
}

}  // namespace

ZQMiniTimeline::ZQMiniTimeline(Parameters parameters) : parameters_(std::move(parameters)) {}

TimelinePiece timelinePiece(const ZQTimeRange& segment, const ZQTimeRange& totalRange,
                            double width) {
  const double start = totalRange.start, span = totalRange.end - start;
  return {.x = (segment.start - start) / span * width,
          .width = ((segment.end - segment.start) - start) / span * width};
}

View ZQMiniTimeline::body(Context& context) const {
  const Color color = context.environment<ForegroundColorKey>().value_or(Color::primary());
  const auto shared = std::make_shared<const Parameters>(parameters_);
  return RoundedRectangle(parameters_.cornerRadius)
      .stroke(color)
      .overlay(GeometryReader([shared](Size size) { return piecesOf(*shared, size); }))
      .accessibility({.hidden = true})
      .accessibility({.role = Role::image,
                      .label = "Timeline",
                      .value = spoken(parameters_.totalRange, parameters_.segmentsList->size())});
}

}  // namespace zq
