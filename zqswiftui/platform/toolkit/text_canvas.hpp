// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/platform/toolkit/canvas.hpp>

namespace zq {

// Writes what is played onto it as text, one command a line with its place in the window, in
// points; clips, scales and common opacities are groups. For tests and for looking at a
// screen that nobody can see. Interface thread only.
//   clip 0,0 100x20 {
//     text 8,2 40x16 "Save" system 13 primary
//   }
class TextCanvas : public Canvas {
 public:
  const std::string& text() const { return text_; }

  void draw(const DrawCommand& command, const PlayState& state) override;
  void pushClip(const Rect& rect) override;
  void pushClip(const Path& path, Point origin) override;
  void pushOpacity(double opacity, const Rect& bounds) override;
  void pushScale(double scaleX, double scaleY, Point about) override;
  void pop() override;

 private:
  void line(const std::string& text);
  void open(const std::string& text);

  std::string text_;
  std::size_t depth_ = 0;
};

}  // namespace zq
