// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/qt/painter_canvas.hpp>
#include <zqswiftui/platform/qt/picture_cache.hpp>

namespace zq::qt {

constexpr double kScales[] = {1, 1.25, 1.5, 2};

using Playing = std::function<void(Canvas&)>;

// What the canvas leaves on a white picture of that many points.
inline QImage played(QSize points, double scale, const Playing& play) {
  QImage image(qRound(points.width() * scale), qRound(points.height() * scale),
               QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(Qt::white);
  QPainter painter(&image);
  PainterCanvas canvas(painter, scale);
  play(canvas);
  return image;
}

// A picture in which no two pixels near each other are alike.
inline ZQImage noise(int width, int height, unsigned seed = 1) {
  Pixels pixels{width, height, {}};
  for (int i = 0; i < width * height; ++i) {
    seed = seed * 1664525 + 1013904223;
    const auto part = [&](int shift) { return static_cast<std::uint8_t>(seed >> shift); };
    pixels.rgba.insert(pixels.rgba.end(), {part(8), part(16), part(24), 255});
  }
  return *ZQImage::fromPixels(std::move(pixels));
}

inline std::shared_ptr<const TextContent> textOf(std::string text, FontSpec font = {}) {
  return std::make_shared<const TextContent>(TextContent{std::move(text), font, nullptr});
}

// The largest step between the two in any part of any pixel; 255 for two sizes.
inline int difference(const QImage& a, const QImage& b) {
  if (a.size() != b.size()) return 255;
  int worst = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
      worst = std::max({worst, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                        std::abs(qBlue(p) - qBlue(q))});
    }
  }
  return worst;
}

// The pixels that are not white, as a rectangle.
inline QRect inkIn(const QImage& image) {
  QRect ink;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qGray(image.pixel(x, y)) < 200) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

}  // namespace zq::qt
