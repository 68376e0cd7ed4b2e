// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QImage>

#include "pictures.hpp"

namespace bench {

// Something else than the white ground in each cell of the window's pixels.
inline void checkShown(const Wall& wall, int n, const QImage& window) {
  const int columns = columnsOf(wall);
  for (int i = 0; i < std::min(n, wall.pictures); ++i) {
    const int x = i % columns * (wall.cellWidth + kGap) + wall.cellWidth / 2;
    const int y = i / columns * (wall.cellHeight + kGap) + wall.cellHeight / 2;
    check((window.pixel(x, y) & 0xffffff) != 0xffffff, "each picture is shown");
  }
}

}  // namespace bench
