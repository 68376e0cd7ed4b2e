// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>
#include <zqswiftui/platform/headless/headless_platform.hpp>
#include <zqswiftui/platform/headless/recording_canvas.hpp>
#include <zqswiftui/platform/toolkit/view_host.hpp>

namespace zq {

// A recording that knows the outlines that each command is clipped to as well.
class OutlineNotingCanvas : public RecordingCanvas {
 public:
  using RecordingCanvas::RecordingCanvas;
  // Of each command, in their order.
  const std::vector<std::string>& outlines() const { return outlines_; }

  void draw(const DrawCommand& command, const PlayState& state) override {
    RecordingCanvas::draw(command, state);
    std::string all;
    for (const std::string& text : open_) all += text;
    outlines_.push_back(std::move(all));
  }
  void pushClip(const Rect& rect) override {
    open_.emplace_back();
    RecordingCanvas::pushClip(rect);
  }
  void pushClip(const Path& path, Point origin) override {
    RecordingCanvas::pushClip(path, origin);  // comes back as the rectangle around it
    open_.back() = " in";
    for (const Path::Element& e : path.elements()) {
      open_.back() += ' ' + zq::describe(Rect{e.p3.x + origin.x, e.p3.y + origin.y, 0, 0});
    }
  }
  void pushOpacity(double opacity, const Rect& bounds) override {
    open_.emplace_back();
    RecordingCanvas::pushOpacity(opacity, bounds);
  }
  void pushScale(double scaleX, double scaleY, Point about) override {
    open_.emplace_back();
    RecordingCanvas::pushScale(scaleX, scaleY, about);
  }
  void pop() override {
    if (!open_.empty()) open_.pop_back();
    RecordingCanvas::pop();
  }

 private:
  std::vector<std::string> open_;
  std::vector<std::string> outlines_;
};

// A window that keeps its picture as a real one does: after each frame it clears what is damaged
// and plays only that. A point of the picture is the list of all that was drawn over it, so two
// pictures are equal where, and only where, the same was drawn in the same order.
class PaintedHost : private HostDelegate {
 public:
  PaintedHost(View root, Size size) : host_(std::move(root), *this) {
    host_.focusIn();
    resize(size);
  }

  ViewHost& host() { return host_; }
  HeadlessPlatform& platform() { return platform_; }

  void resize(Size size) {
    size_ = size;
    picture_.assign(cells(), 0);
    Region all;
    all.add(Rect::of({}, size));
    host_.setSize(size);
    run();
    play(all);
  }
  // Frames until nobody asks for one, each painted by itself.
  void run() {
    for (int i = 0; i < 100; ++i) {
      platform_.runUntilIdle();
      if (!host_.needsFrame()) return;
      frame();
    }
    difference_ = "it never comes to rest";
  }
  void advance(double seconds) {
    platform_.advance(seconds);
    if (host_.animating()) frame();
    run();
  }

  // Where the picture is not what a whole repaint shows, with what that shows; empty where it is.
  std::string difference() {
    if (!difference_.empty()) return difference_;
    Region all;
    all.add(Rect::of({}, size_));
    const std::vector<std::uint64_t> kept = picture_;
    play(all);
    Rect wrong;
    for (std::size_t i = 0; i < picture_.size(); ++i) {
      if (picture_[i] == kept[i]) continue;
      const auto x = static_cast<double>(i % width()), y = static_cast<double>(i / width());
      wrong = unite(wrong, {x, y, 1, 1});
    }
    picture_ = kept;
    return wrong.empty() ? std::string()
                         : "stale in " + zq::describe(wrong) + " of\n" + host_.displayListText();
  }

 private:
  void frameRequested() override {}
  std::size_t width() const { return static_cast<std::size_t>(std::ceil(size_.width)); }
  std::size_t cells() const { return width() * static_cast<std::size_t>(std::ceil(size_.height)); }

  void frame() {
    host_.frame();
    Region damage;
    for (const Rect& r : host_.damage().rects()) {
      const double x = std::floor(r.x), y = std::floor(r.y);
      damage.add({x, y, std::ceil(r.maxX()) - x, std::ceil(r.maxY()) - y});
    }
    host_.clearDamage();
    play(damage);
  }

  template <class Change>
  void eachCell(const Rect& rect, const Change& change) {
    // Sums of lengths may miss a whole point by the last digit.
    const Rect r = intersection(rect.insetBy(1e-6), Rect::of({}, size_));
    const auto right = static_cast<std::size_t>(std::ceil(r.maxX()));
    const auto bottom = static_cast<std::size_t>(std::ceil(r.maxY()));
    for (auto y = static_cast<std::size_t>(r.y); y < bottom; ++y) {
      for (auto x = static_cast<std::size_t>(r.x); x < right; ++x) change(y * width() + x);
    }
  }

  void play(const Region& region) {
    std::vector<bool> open(picture_.size(), false);
    for (const Rect& r : region.rects()) {
      eachCell(r, [&](std::size_t i) {
        open[i] = true;
        picture_[i] = 0;
      });
    }
    OutlineNotingCanvas canvas(size_);
    host_.paint(canvas, region);
    for (std::size_t c = 0; c < canvas.commands().size(); ++c) {
      const DrawnCommand& d = canvas.commands()[c];
      const std::string text = zq::describe(d.command, d.state.origin) + canvas.outlines()[c] +
                               ' ' + zq::describe(d.bounds) + ' ' + std::to_string(d.opacity) +
                               (d.state.scheme == ColorScheme::dark ? " dark" : "");
      const std::uint64_t number = std::hash<std::string>()(text);
      eachCell(d.visible, [&](std::size_t i) {
        if (open[i]) picture_[i] = (picture_[i] ^ number) * 0x9e3779b97f4a7c15u + 1;
      });
    }
  }

  HeadlessPlatform platform_;
  ViewHost host_;
  Size size_;
  std::vector<std::uint64_t> picture_;
  std::string difference_;
};

}  // namespace zq
