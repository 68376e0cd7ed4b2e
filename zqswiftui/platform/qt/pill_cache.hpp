// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QColor>
#include <QImage>
#include <QSize>
#include <zqswiftui/platform/qt/lru_images.hpp>

namespace zq::qt {

// Small rectangles with round corners, and outlines of such, as pictures, drawn once for each size
// in pixels, radius and colour: a list of tags or buttons holds few different ones, and copying one
// costs a fraction of tracing its corners. Interface thread only.
class PillCache {
 public:
  static PillCache& shared();
  explicit PillCache(std::size_t capacityInBytes) : images_(capacityInBytes) {}

  // Larger ones are better drawn: their corners are a small part of them.
  static bool takes(QSize pixels) {
    return pixels.width() <= 256 && pixels.height() <= 128 && !pixels.isEmpty();
  }
  // The radius is in pixels; continuous corners bend more slowly. With a width of the line in
  // pixels it is the outline alone, inside of the size; the radius is that of the line's middle.
  QImage image(QSize pixels, double radius, bool continuous, QRgb color, double line = 0);

 private:
  struct Key {
    int width = 0;
    int height = 0;
    double radius = 0;
    bool continuous = false;
    QRgb color = 0;
    double line = 0;
    bool operator==(const Key&) const = default;
  };
  struct KeyHash {
    std::size_t operator()(const Key& key) const;
  };
  LruImages<Key, KeyHash> images_;
};

}  // namespace zq::qt
