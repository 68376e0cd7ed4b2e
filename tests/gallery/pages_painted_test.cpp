// ZQSwiftUI, MIT licence; see LICENSE.
// Every page on a real canvas: a part that is painted again looks as it did in the whole, on
// screens of every scale.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <apps/gallery/gallery_page.hpp>
#include <cstdlib>
#include <memory>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/qt/painter_canvas.hpp>

namespace zq::gallery {
namespace {

constexpr Size kWindow{700, 900};
constexpr int kTile = 100;

// The fonts of the canvas need one.
class Application : public testing::Environment {
 public:
  void SetUp() override { application_ = std::make_unique<QApplication>(argc_, argv_); }
  void TearDown() override { application_.reset(); }

 private:
  int argc_ = 1;
  char name_[6] = "pages";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};
const testing::Environment* const application = testing::AddGlobalTestEnvironment(new Application);

void paintPart(QImage& image, double scale, ViewHost& host, const Rect& part) {
  QPainter painter(&image);
  painter.setClipRect(qt::toQRectF(part));
  painter.fillRect(qt::toQRectF(part), Qt::white);
  qt::PainterCanvas canvas(painter, scale);
  Region region;
  region.add(part.insetBy(-1));
  host.paint(canvas, region);
}

// How many pixels are seen to differ.
int differing(const QImage& a, const QImage& b) {
  int count = 0;
  for (int y = 0; y < a.height(); ++y) {
    const auto* p = reinterpret_cast<const QRgb*>(a.constScanLine(y));
    const auto* q = reinterpret_cast<const QRgb*>(b.constScanLine(y));
    for (int x = 0; x < a.width(); ++x) {
      const int step =
          std::max({std::abs(qRed(p[x]) - qRed(q[x])), std::abs(qGreen(p[x]) - qGreen(q[x])),
                    std::abs(qBlue(p[x]) - qBlue(q[x]))});
      count += step > 1;  // one more blending may round otherwise
    }
  }
  return count;
}

class PaintedPages : public testing::TestWithParam<std::size_t> {};

TEST_P(PaintedPages, lookTheSameWholeAndInParts) {
  ASSERT_NE(application, nullptr);
  Harness screen(galleryPages()[GetParam()].content(), kWindow);
  for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
    QImage whole(static_cast<int>(kWindow.width * scale), static_cast<int>(kWindow.height * scale),
                 QImage::Format_ARGB32_Premultiplied);
    whole.setDevicePixelRatio(scale);
    whole.fill(Qt::red);  // what is painted nowhere shows
    QImage tiled = whole;
    paintPart(whole, scale, screen.host(), Rect::of({}, kWindow));
    for (int y = 0; y < kWindow.height; y += kTile) {
      for (int x = 0; x < kWindow.width; x += kTile) {
        paintPart(tiled, scale, screen.host(), {double(x), double(y), kTile, kTile});
      }
    }
    // Qt takes a single column of a soft clip, cut off by the edge of a part, for a hard one.
    EXPECT_LE(differing(whole, tiled), 6) << "at scale " << scale;
  }
}

INSTANTIATE_TEST_SUITE_P(All, PaintedPages, testing::Range(std::size_t{0}, galleryPages().size()),
                         [](const auto& place) {
                           std::string name = pageSlug(galleryPages()[place.param].title);
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

}  // namespace
}  // namespace zq::gallery
