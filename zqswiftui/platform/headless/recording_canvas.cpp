// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/headless/recording_canvas.hpp>

namespace zq {

RecordingCanvas::RecordingCanvas(Size window) : groups_(1) {
  groups_.back().clip = Rect::of({}, window);
}

Rect RecordingCanvas::toWindow(const Rect& rect) const {
  const Group& g = groups_.back();
  return {rect.x * g.scaleX + g.moved.x, rect.y * g.scaleY + g.moved.y, rect.width * g.scaleX,
          rect.height * g.scaleY};
}

void RecordingCanvas::draw(const DrawCommand& command, const PlayState& state) {
  const Group& g = groups_.back();
  const Rect bounds = toWindow(boundsOf(command).offsetBy(state.origin));
  commands_.push_back(
      {command, state, bounds, intersection(bounds, g.clip), g.opacity * state.opacity});
}

void RecordingCanvas::pushClip(const Rect& rect) {
  Group g = groups_.back();
  g.clip = intersection(g.clip, toWindow(rect));
  groups_.push_back(g);
}

void RecordingCanvas::pushClip(const Path& path, Point origin) {
  pushClip(path.bounds().offsetBy(origin));
}

void RecordingCanvas::pushOpacity(double opacity, const Rect& /*bounds*/) {
  Group g = groups_.back();
  g.opacity *= opacity;
  groups_.push_back(g);
}

void RecordingCanvas::pushScale(double scaleX, double scaleY, Point about) {
  Group g = groups_.back();
  const Rect at = toWindow({about.x, about.y, 0, 0});
  g.scaleX *= scaleX;
  g.scaleY *= scaleY;
  g.moved = {at.x - about.x * g.scaleX, at.y - about.y * g.scaleY};
  groups_.push_back(g);
}

void RecordingCanvas::pop() {
  if (groups_.size() > 1) groups_.pop_back();
}

}  // namespace zq
