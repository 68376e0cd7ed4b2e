// ZQSwiftUI, MIT licence; see LICENSE.
#include <QTransform>
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

QImage reduced(const ZQImage& picture, QSize pixels) {
  static LruImages<Key, KeyHash> cache(kCapacity);
  return cache.get({picture.identity(), pixels}, [&] {
    return toQImage(picture)
        .scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
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
