// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QImage>
#include <QPainter>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/qt/conversions.hpp>

namespace zq::qt {

// Draws a picture of exactly the pixels that the rectangle, whose edges lie on pixels, covers:
// copied as it is where the painter does not scale it any further.
void drawOnPixels(QPainter& painter, const PixelGrid& grid, const Rect& rect, const QImage& image);

// Draws a picture stretched to the rectangle. At less than half its size a reduced copy is drawn,
// which is kept. In a window that of a large picture is made in the background: until it is there
// the picture is drawn roughly, then that place is painted again.
void drawPicture(QPainter& painter, const PixelGrid& grid, const Rect& rect,
                 const ZQImage& picture);

// The picture's pixels, shared and not copied.
QImage toQImage(const ZQImage& picture);

}  // namespace zq::qt
