// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/platform/toolkit/canvas.hpp>

namespace zq {

// Plays display lists as text, for tests: one command a line with its bounds in the window,
// groups indented.
//   text "Save" 10,8 24x16 body primary
//   opacity 0.5 {
//     capsule 4,4 60x20 teal
//   }
class TextCanvas final : public Canvas {
 public:
  void draw(const DrawCommand& command, const PlayState& state) override;
  void pushClip(const Rect& rect) override;
  void pushClip(const Path& path, Point origin) override;
  void pushOpacity(double opacity, const Rect& bounds) override;
  void pushScale(double scaleX, double scaleY, Point about) override;
  void pop() override;
  const std::string& text() const { return text_; }

 private:
  void line(const std::string& content);
  void open(const std::string& content);
  std::string text_;
  int depth_ = 0;
};

// "10,8 24x16": at most two decimals.
std::string describe(const Rect& rect);
// One line, without a line feed.
std::string describe(const DrawCommand& command, const PlayState& state);

}  // namespace zq
