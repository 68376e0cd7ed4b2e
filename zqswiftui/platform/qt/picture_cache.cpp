// ZQSwiftUI, MIT licence; see LICENSE.
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <zqswiftui/platform/qt/lru_images.hpp>
#include <zqswiftui/platform/qt/picture_cache.hpp>

namespace zq::qt {
namespace {

constexpr std::size_t kCapacity = std::size_t{24} << 20;

struct Key {
  std::string identity;
  QSize pixels;
  bool operator==(const Key&) const = default;
};

struct KeyHash {
  std::size_t operator()(const Key& key) const {
    return std::hash<std::string>{}(key.identity) ^
           (static_cast<std::size_t>(key.pixels.width()) << 16) ^
           static_cast<std::size_t>(key.pixels.height());
  }
};

// Of each of the four bytes by itself: two sums of sixteen bits are added up at a time.
quint32 mean(quint32 a, quint32 b, quint32 c, quint32 d) {
  constexpr quint32 kEven = 0x00ff00ff, kHalves = 0x00020002;
  const quint32 even = (a & kEven) + (b & kEven) + (c & kEven) + (d & kEven) + kHalves;
  const quint32 odd = (a >> 8 & kEven) + (b >> 8 & kEven) + (c >> 8 & kEven) + (d >> 8 & kEven);
  return (even >> 2 & kEven) | ((odd + kHalves) << 6 & ~kEven);
}

// The last column or row of an odd size is left out.
QImage halved(const QImage& image) {
  QImage half(image.width() / 2, image.height() / 2, image.format());
  for (int y = 0; y < half.height(); ++y) {
    const auto* upper = reinterpret_cast<const quint32*>(image.constScanLine(2 * y));
    const auto* lower = reinterpret_cast<const quint32*>(image.constScanLine(2 * y + 1));
    auto* out = reinterpret_cast<quint32*>(half.scanLine(y));
    for (int x = 0; x < half.width(); ++x) {
      const qsizetype left = qsizetype{2} * x;
      out[x] = mean(upper[left], upper[left + 1], lower[left], lower[left + 1]);
    }
  }
  return half;
}

QImage reduced(const ZQImage& picture, QSize pixels) {
  static LruImages<Key, KeyHash> cache(kCapacity);
  return cache.get({picture.identity(), pixels}, [&] {
    QImage image = toQImage(picture);
    // The interface thread does this, and Qt's scaling costs several times as much for each pixel.
    const QSize enough = 4 * pixels.expandedTo({1, 1});
    while (image.width() >= enough.width() && image.height() >= enough.height()) {
      image = halved(image);
    }
    return image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
  });
}

}  // namespace

QImage toQImage(const ZQImage& picture) {
  // The wrapper holds the picture, whose pixels it shows.
  auto owner = std::make_unique<ZQImage>(picture);
  const Pixels& pixels = picture.pixels();
  return QImage(
      pixels.rgba.data(), pixels.width, pixels.height, qsizetype{4} * pixels.width,
      QImage::Format_RGBA8888_Premultiplied, [](void* held) { delete static_cast<ZQImage*>(held); },
      owner.release());
}

void drawOnPixels(QPainter& painter, const PixelGrid& grid, const Rect& rect, const QImage& image) {
  if (grid.scale == 1) return painter.drawImage(toQRectF(rect), image);
  // Qt would resample a picture under its scaling for dense screens.
  const QTransform outer = painter.worldTransform();
  painter.setWorldTransform(QTransform::fromScale(1 / grid.scale, 1 / grid.scale) * outer);
  painter.drawImage(
      QRectF(std::round(rect.x * grid.scale), std::round(rect.y * grid.scale),
             std::round(rect.width * grid.scale), std::round(rect.height * grid.scale)),
      image);
  painter.setWorldTransform(outer);
}

void drawPicture(QPainter& painter, const PixelGrid& grid, const Rect& rect,
                 const ZQImage& picture) {
  const QSize pixels(static_cast<int>(std::min(std::round(rect.width * grid.scale), 16384.0)),
                     static_cast<int>(std::min(std::round(rect.height * grid.scale), 16384.0)));
  // The painter looks at four pixels for each one that it sets; below half the size that
  // leaves some out, and fine patterns shimmer.
  if (2 * pixels.width() < picture.width() || 2 * pixels.height() < picture.height()) {
    return drawOnPixels(painter, grid, rect, reduced(picture, pixels));
  }
  painter.drawImage(toQRectF(rect), toQImage(picture));
}

}  // namespace zq::qt
