// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QColor>
#include <QImage>
#include <QSize>
#include <zqswiftui/platform/qt/lru_images.hpp>
#include <zqswiftui/platform/toolkit/symbols/symbols.hpp>

namespace zq::qt {

// Symbols as tinted pictures, drawn once for each size in pixels and colour. Interface thread
// only.
class SymbolCache {
 public:
  static SymbolCache& shared();
  explicit SymbolCache(std::size_t capacityInBytes) : images_(capacityInBytes) {}

  // Null for an empty size.
  QImage image(const SymbolDrawing& drawing, QSize pixels, QRgb color);
  std::size_t bytes() const { return images_.bytes(); }

 private:
  struct Key {
    const SymbolDrawing* drawing = nullptr;
    int width = 0;
    int height = 0;
    QRgb color = 0;
    bool operator==(const Key&) const = default;
  };
  struct KeyHash {
    std::size_t operator()(const Key& key) const;
  };
  LruImages<Key, KeyHash> images_;
};

// Draws without keeping anything.
QImage drawSymbol(const SymbolDrawing& drawing, QSize pixels, QRgb color);

}  // namespace zq::qt
