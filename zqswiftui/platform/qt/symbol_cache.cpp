// ZQSwiftUI, MIT licence; see LICENSE.
#include <QPainter>
#include <QPen>
#include <algorithm>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/symbol_cache.hpp>

namespace zq::qt {
namespace {

constexpr std::size_t kSymbolBytes = std::size_t{8} << 20;

}  // namespace

QImage drawSymbol(const SymbolDrawing& drawing, QSize pixels, QRgb color) {
  QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  const double width = pixels.width(), height = pixels.height();
  // Opaque while the parts come together, so that overlapping ones are not seen twice.
  const QColor mask(Qt::black);
  for (const SymbolPart& part : drawing.parts) {
    painter.setCompositionMode(part.erase ? QPainter::CompositionMode_DestinationOut
                                          : QPainter::CompositionMode_SourceOver);
    const QPainterPath path = toPainterPath(part.path, {}, width, height);
    if (part.lineWidth > 0) {
      painter.strokePath(path, QPen(mask, part.lineWidth * std::min(width, height), Qt::SolidLine,
                                    Qt::RoundCap, Qt::RoundJoin));
    } else {
      painter.fillPath(path, mask);
    }
  }
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(image.rect(), QColor::fromRgba(color));
  return image;
}

std::size_t SymbolCache::KeyHash::operator()(const Key& key) const {
  std::size_t hash = std::hash<const void*>{}(key.drawing);
  for (const std::size_t part :
       {static_cast<std::size_t>(key.width), static_cast<std::size_t>(key.height),
        static_cast<std::size_t>(key.color)}) {
    hash = hash * 1000003 + part;
  }
  return hash;
}

SymbolCache& SymbolCache::shared() {
  static SymbolCache cache(kSymbolBytes);
  return cache;
}

QImage SymbolCache::image(const SymbolDrawing& drawing, QSize pixels, QRgb color) {
  if (pixels.isEmpty()) return {};
  const Key key{&drawing, pixels.width(), pixels.height(), color};
  return images_.get(key, [&] { return drawSymbol(drawing, pixels, color); });
}

}  // namespace zq::qt
