// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QImage>
#include <QPainter>
#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>
#include <zqswiftui/layout/flow_layout.hpp>
#include <zqswiftui/platform/qt/painter_canvas.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>
#include <zqswiftui/platform/toolkit/view_host.hpp>

#include "bench.hpp"

// The job's list of tags made with this library, and an offscreen window that shows it.
namespace bench {

struct Model : zq::ObservableObject {
  explicit Model(std::vector<std::string> texts) : tags{this, std::move(texts)} {}
  zq::Published<std::vector<std::string>> tags;
};

inline zq::View pill(const std::string& text, unsigned color) {
  return zq::Text(text)
      .font(zq::Font::custom(kFontFamily, kFontPx))
      .foregroundColor(zq::Color::hex(kInk))
      .padding(kPad)
      .background(
          zq::RoundedRectangle(kRadius, zq::CornerStyle::circular).fill(zq::Color::hex(color)));
}

struct Tag {
  std::string text;
  zq::View body(zq::Context&) const { return pill(text, kPlain); }
  bool operator==(const Tag&) const = default;
};

struct HoverTag {
  std::string text;
  zq::View body(zq::Context& context) const {
    const auto inside = context.state(false);
    return pill(text, *inside ? kLit : kPlain).onHover([inside](bool now) { inside.set(now); });
  }
  bool operator==(const HoverTag&) const = default;
};

template <class T>
struct Tags {
  std::shared_ptr<Model> model;
  zq::View body(zq::Context& context) const {
    const auto texts = context.observe(model).tags.snapshot();
    const auto make = [](const std::string& text, int) { return T{text}; };
    return zq::ScrollView(
        zq::LayoutView(zq::NewFlowLayout({.alignment = zq::Alignment::leading(), .spacing = kGap}),
                       {zq::ForEach(texts, std::identity{}, 0, make)}));
  }
};

// What a window does with a tree of views: runs its frames and paints what they damaged over
// the last picture.
class Window final : private zq::HostDelegate {
 public:
  explicit Window(zq::View root, int width = kViewW)
      : image_(width, kViewH, QImage::Format_RGB32), host_(std::move(root), *this) {
    image_.fill(Qt::white);
    host_.setSize({static_cast<double>(width), kViewH});
  }

  zq::ViewHost& host() { return host_; }
  const QImage& image() const { return image_; }
  long painted() const { return painted_; }

  // The size that a window manager gave: the pixels come anew, as in any window.
  void resize(int width) {
    image_ = QImage(width, kViewH, QImage::Format_RGB32);
    host_.setSize({static_cast<double>(width), kViewH});
  }
  void evaluateAndPlace() { host_.frame(); }
  void frame() {
    if (host_.needsFrame()) host_.frame();
    paintDamage();
  }
  void repaintAll() {
    zq::Region all;
    all.add({0, 0, static_cast<double>(image_.width()), kViewH});
    paint(image_, all);
  }
  void checkComplete(const char* what) {
    frame();
    QImage whole(image_.size(), image_.format());
    zq::Region all;
    all.add({0, 0, static_cast<double>(image_.width()), kViewH});
    paint(whole, all);
    check(image_ == whole, what);
  }

 private:
  void frameRequested() override {}

  void paintDamage() {
    zq::Region pixels;
    for (const zq::Rect& r : host_.damage().rects()) {
      const double left = std::floor(r.x), top = std::floor(r.y);
      pixels.add({left, top, std::ceil(r.maxX()) - left, std::ceil(r.maxY()) - top});
    }
    host_.clearDamage();
    if (!pixels.empty()) paint(image_, pixels);
  }
  void paint(QImage& image, const zq::Region& region) {
    QPainter painter(&image);
    QRegion clip;
    for (const zq::Rect& r : region.rects()) clip |= zq::qt::toQRectF(r).toRect();
    painter.setClipRegion(clip);
    for (const QRect& r : clip) painter.fillRect(r, Qt::white);
    zq::qt::PainterCanvas canvas(painter, 1);
    host_.paint(canvas, region);
    ++painted_;
  }

  QImage image_;
  zq::ViewHost host_;
  long painted_ = 0;
};

}  // namespace bench
