// ZQSwiftUI, MIT licence; see LICENSE.
#include <QPainter>
#include <functional>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/pill_cache.hpp>

namespace zq::qt {
namespace {

constexpr std::size_t kPillBytes = std::size_t{4} << 20;

QImage drawPill(QSize pixels, double radius, bool continuous, QRgb color, double line) {
  QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  const Rect all{0, 0, static_cast<double>(pixels.width()), static_cast<double>(pixels.height())};
  if (line > 0) {
    const Path middle = Path().addRoundedRect(all.insetBy(line / 2), radius, continuous);
    const QPen pen(QColor::fromRgba(color), line, Qt::SolidLine, Qt::FlatCap, Qt::SvgMiterJoin);
    painter.strokePath(toPainterPath(middle, {}), pen);
    return image;
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor::fromRgba(color));
  if (continuous) {
    painter.drawPath(toPainterPath(Path().addRoundedRect(all, radius, true), {}));
  } else {
    painter.drawRoundedRect(image.rect(), radius, radius);
  }
  return image;
}

}  // namespace

std::size_t PillCache::KeyHash::operator()(const Key& key) const {
  const std::hash<double> length;
  std::size_t hash = (length(key.radius) + length(key.line)) * 2 + (key.continuous ? 1 : 0);
  for (const std::size_t part :
       {static_cast<std::size_t>(key.width), static_cast<std::size_t>(key.height),
        static_cast<std::size_t>(key.color)}) {
    hash = hash * 1000003 + part;
  }
  return hash;
}

PillCache& PillCache::shared() {
  static PillCache cache(kPillBytes);
  return cache;
}

QImage PillCache::image(QSize pixels, double radius, bool continuous, QRgb color, double line) {
  return images_.get({pixels.width(), pixels.height(), radius, continuous, color, line},
                     [&] { return drawPill(pixels, radius, continuous, color, line); });
}

}  // namespace zq::qt
