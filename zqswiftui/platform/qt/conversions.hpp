// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QColor>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <cmath>
#include <string>
#include <string_view>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/geometry.hpp>
#include <zqswiftui/platform/toolkit/path.hpp>

namespace zq::qt {

inline QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline QPointF toQPointF(Point p) {
  return {p.x, p.y};
}

inline Point toPoint(QPointF p) {
  return {p.x(), p.y()};
}

inline QRectF toQRectF(const Rect& r) {
  return {r.x, r.y, r.width, r.height};
}

inline Rect toRect(const QRectF& r) {
  return {r.x(), r.y(), r.width(), r.height()};
}

inline QColor toQColor(const RGBA& c, double opacity = 1) {
  const auto part = [](float v) { return static_cast<int>(std::lround(v * 255.0f)); };
  const double alpha = std::clamp(static_cast<double>(c.alpha) * opacity, 0.0, 1.0);
  return QColor(part(c.red), part(c.green), part(c.blue),
                static_cast<int>(std::lround(alpha * 255.0)));
}

// The path, scaled and then moved.
QPainterPath toPainterPath(const Path& path, Point offset, double scaleX = 1, double scaleY = 1);

// Lengths and edges on the device's pixels. Each edge is rounded by itself, so neighbours that
// share an edge share its pixel.
struct PixelGrid {
  double scale = 1;

  double snap(double v) const { return std::round(v * scale) / scale; }
  Point snap(Point p) const { return {snap(p.x), snap(p.y)}; }
  // A rectangle that is thinner than a pixel still covers one.
  Rect snap(const Rect& r) const {
    const double left = snap(r.x), top = snap(r.y);
    return {left, top, std::max(snap(r.maxX()) - left, 1 / scale),
            std::max(snap(r.maxY()) - top, 1 / scale)};
  }
};

}  // namespace zq::qt
