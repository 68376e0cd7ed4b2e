// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <vector>
#include <zqswiftui/platform/toolkit/canvas.hpp>

namespace zq {

// A command as a user sees it: where in the window, how much of it, and how strongly.
struct DrawnCommand {
  DrawCommand command;
  PlayState state;
  Rect bounds;         // in points of the window, scaled
  Rect visible;        // what the clips around it leave; empty where it cannot be seen
  double opacity = 1;  // of all groups around it, and its own
};

// Keeps what is played onto it. Interface thread only.
class RecordingCanvas : public Canvas {
 public:
  explicit RecordingCanvas(Size window);
  const std::vector<DrawnCommand>& commands() const { return commands_; }

  void draw(const DrawCommand& command, const PlayState& state) override;
  void pushClip(const Rect& rect) override;
  void pushClip(const Path& path, Point origin) override;
  void pushOpacity(double opacity, const Rect& bounds) override;
  void pushScale(double scaleX, double scaleY, Point about) override;
  void pop() override;

 private:
  struct Group {
    Rect clip;  // in points of the window
    double opacity = 1;
    double scaleX = 1, scaleY = 1;
    Point moved;
  };
  Rect toWindow(const Rect& rect) const;

  std::vector<Group> groups_;
  std::vector<DrawnCommand> commands_;
};

}  // namespace zq
