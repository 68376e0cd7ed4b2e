// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/platform/base/time_range.hpp>
#include <zqswiftui/platform/toolkit/accessibility.hpp>
#include <zqswiftui/platform/toolkit/events.hpp>

namespace zq {

// The arithmetic of rectangles on a canvas: a picture of `target` units, its pixels for one,
// shown in a view of so many points. Points are those of the view; x grows to the right and y
// downwards, in every layout direction. Any thread. Unless something else is said, a length of a
// target that is negative or not finite counts as zero, and where the view has no positive
// finite size or the pointer no finite place there is no answer.

// What of the target a rectangle always spans: nothing, all its width, or all its height.
enum class CanvasRectBound : unsigned char { none, width, height };

// --- A rectangle drawn by a drag ---

// In target units, computed from the two ends of the drag and nothing else: the same from corner
// to corner in both ways, and bit for bit the same where the pointer comes back. It begins at
// zero where the drag began left of or above the target, and ends at the target's right and
// lower edge. A drag that lies wholly beyond those, as when the view shrinks under the pointer,
// gives a negative length.
std::optional<Rect> drawnRect(const DragValue& drag, Size view, Size target, CanvasRectBound bound);

// Neither width nor height, or one that is negative or not finite: nothing to show. A rectangle
// that is flat, as after a straight drag, is something.
bool isNothing(const Rect& rect);

// Where the middle of the rectangle's outline runs, in points: inside of the view by half of
// strokeWidth at its left and upper edge. All zero where there is nothing to show.
Rect outlineOfRect(const Rect& rect, Size view, Size target, double strokeWidth);

// The rectangle after a key. Arrows move it by one target unit, with Shift by ten; with Control
// they move its lower right corner instead. Where nothing is drawn, Space and Enter mark the
// middle of the target. It stays inside of the target. A target that is at most one unit long is
// measured in fractions: its unit is a point of the view. Absent for keys that do nothing here.
std::optional<Rect> keyedRect(const Rect& rect, const KeyEvent& key, Size view, Size target,
                              CanvasRectBound bound);

// Its place as one number, in target units, for those who can set a number alone: from the left
// edge, or from the upper one where it spans the width. Absent where there is nothing to show.
std::optional<AccessibleNumber> placeOfRect(const Rect& rect, Size view, Size target,
                                            CanvasRectBound bound);
Rect rectAtPlace(const Rect& rect, double place, CanvasRectBound bound);

// --- A rectangle with a handle at two of its corners, in fractions of the view ---

struct RectCorners {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
  bool operator==(const RectCorners&) const = default;
};

// What is not finite counts as zero.
RectCorners cornersOf(const Rect& rect);

// How far each handle is dragged from its corner, in fractions; zero but during a drag.
struct CornerPans {
  Size upperLeft;
  Size lowerRight;
  bool operator==(const CornerPans&) const = default;
};

// A drag as fractions of the view.
std::optional<Size> panOf(Size translation, Size view);

// The centres of the handles in points. While it is dragged the upper left one passes neither
// the right nor the lower edge, the other neither the left nor the upper one.
struct HandleCenters {
  Point upperLeft;
  Point lowerRight;
  bool operator==(const HandleCenters&) const = default;
};
HandleCenters handleCenters(const RectCorners& corners, const CornerPans& pans, Size view);

// Whether the point is nearer to the upper left handle. Where both are at one place, that one has
// what is above and left of it.
bool isNearerUpperLeft(Point point, const HandleCenters& centers);

// The corners and the bound rectangle once a handle is released, or moved by a key.
struct MovedCorner {
  RectCorners corners;
  Rect rect;
  bool operator==(const MovedCorner&) const = default;
};

// The upper left corner goes no further than the view's left and upper edge; the rectangle takes
// it for its origin and keeps its size, so that it is shifted as a whole, while the lower right
// corner stays. Nothing holds the corner above and left of that one any more.
std::optional<MovedCorner> upperLeftMoved(const RectCorners& corners, const Rect& rect,
                                          Size translation, Size view);

// The lower right corner moves alone: the rectangle keeps its origin and takes the distance of
// the two corners for its size. The corner is held at the view's width less the left fraction
// (its height less the upper one), which is far outside but in views of a few points.
std::optional<MovedCorner> lowerRightMoved(const RectCorners& corners, const Rect& rect,
                                           Size translation, Size view);

// How far an arrow key moves a corner: one unit, with Shift ten. Absent for other keys, and with
// Alt, which belongs to the window.
std::optional<Size> arrowStep(const KeyEvent& key);

// --- A range of time as a rectangle over all of the view's height ---

// In fractions of the target's span, measured from time zero and not from the target's start.
// What is not finite counts as zero; so does a position in a span of zero.
Rect rectOfRange(const ZQTimeRange& range, const ZQTimeRange& targetRange);
// The way back, again without the target's start.
ZQTimeRange rangeOfRect(const Rect& rect, const ZQTimeRange& targetRange);

// --- Said to people ---

// "x 200 y 100, 400 by 200"; "nothing drawn" where there is nothing.
std::string spokenRect(const Rect& rect, int decimals);

}  // namespace zq
