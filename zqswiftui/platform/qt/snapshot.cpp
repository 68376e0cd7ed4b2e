// ZQSwiftUI, MIT licence; see LICENSE.
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QRegion>
#include <QThread>
#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/font_cache.hpp>
#include <zqswiftui/platform/qt/painter_canvas.hpp>
#include <zqswiftui/platform/qt/snapshot.hpp>

namespace zq::qt {
namespace {

constexpr double kMaxSide = 16384;
constexpr int kTurnMilliseconds = 16;
// Frames in which views may still ask for another, before one that never ends is shown as is.
constexpr int kMaxFrames = 8;

struct NoWindow final : HostDelegate {
  void frameRequested() override {}
};

// What the native editors show in a window.
void paintField(QPainter& painter, double scale, const TextFieldState& field) {
  const bool hint = field.text.empty();
  auto content = std::make_shared<TextContent>();
  content->text = hint ? field.placeholder : field.text;
  content->font = field.font;
  const double height = fontEntry(field.font).lineHeight;
  const Rect line{field.bounds.x, field.bounds.midY() - height / 2, field.bounds.width, height};
  const RGBA& c = field.color;
  const Color color = Color::rgb(static_cast<double>(c.red), static_cast<double>(c.green),
                                 static_cast<double>(c.blue), static_cast<double>(c.alpha));
  PlayState state;
  state.direction = field.direction;
  state.opacity = field.opacity();
  QRegion shown(toQRectF(field.clip).toAlignedRect());
  for (const Rect& covered : field.covered) shown -= toQRectF(covered).toAlignedRect();
  painter.setClipRegion(shown);
  PainterCanvas canvas(painter, scale);
  canvas.pushClip(field.clip);
  canvas.draw(DrawText{content, line, field.alignment, 1, true, false, color}, state);
  canvas.pop();
}

// Events, and frames as a window asks for them.
void letPass(double seconds, ViewHost& host) {
  QElapsedTimer time;
  time.start();
  while (static_cast<double>(time.elapsed()) < seconds * 1000) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, kTurnMilliseconds);
    if (host.needsFrame() || host.animating()) host.frame();
    QThread::msleep(1);
  }
}

}  // namespace

QImage renderView(View view, Size size, double scale, const AppearanceValues& appearance,
                  double seconds) {
  const double factor = std::isfinite(scale) && scale > 0 ? scale : 1;
  const auto pixels = [&](double length) {
    return static_cast<int>(std::min(std::ceil(sanitized(length) * factor), kMaxSide));
  };
  QImage image(pixels(size.width), pixels(size.height), QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return image;
  image.setDevicePixelRatio(factor);
  image.fill(toQColor(Color::background().resolve(appearance.colorScheme)));

  NoWindow window;
  ViewHost host(std::move(view), window);
  host.setAppearance(appearance);
  host.setSize(size);
  for (int i = 0; i < kMaxFrames && host.needsFrame(); ++i) host.frame();
  if (seconds > 0) letPass(seconds, host);
  QPainter painter(&image);
  PainterCanvas canvas(painter, factor);
  host.paintAll(canvas);
  for (const TextFieldState& field : host.textFields()) paintField(painter, factor, field);
  return image;
}

}  // namespace zq::qt
