// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/toolkit/display_list.hpp>

namespace zq {

// How a command is to be played: where its (0, 0) lies, in points of the window; its colours'
// scheme; an opacity on top of them; and the direction that leading means.
struct PlayState {
  Point origin;
  ColorScheme scheme = ColorScheme::light;
  LayoutDirection direction = LayoutDirection::leftToRight;
  double opacity = 1;
};

// Plays display lists: a painter on the screen, or a text for tests. Rectangles come in points
// and are rounded by the canvas, each edge once, to device pixels. Interface thread only.
class Canvas {
 public:
  virtual ~Canvas() = default;
  virtual void draw(const DrawCommand& command, const PlayState& state) = 0;
  // What follows is clipped to the rectangle or the path until restore().
  virtual void pushClip(const Rect& rect) = 0;
  virtual void pushClip(const Path& path, Point origin) = 0;
  // What follows is drawn as one picture at that opacity; bounds is all that it covers.
  virtual void pushOpacity(double opacity, const Rect& bounds) = 0;
  // What follows is scaled about the point.
  virtual void pushScale(double scaleX, double scaleY, Point about) = 0;
  virtual void pop() = 0;  // ends the latest push
};

}  // namespace zq
