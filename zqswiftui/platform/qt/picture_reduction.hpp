// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QImage>
#include <QSize>
#include <zqswiftui/platform/base/zq_image.hpp>

namespace zq::qt {

// The picture at a smaller size, each pixel the mean of the area that it covers; premultiplied
// ARGB. Neither side may be larger than the picture's, nor less than 1. Any thread; some
// milliseconds for each ten million pixels.
QImage reducedPicture(const ZQImage& picture, QSize pixels);

}  // namespace zq::qt
