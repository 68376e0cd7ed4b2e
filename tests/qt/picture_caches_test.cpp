// ZQSwiftUI, MIT licence; see LICENSE.
// What is kept between frames looks as if it had been drawn anew, and stays small.
#include <gtest/gtest.h>

#include <QEvent>
#include <QPainterPath>
#include <algorithm>
#include <string>
#include <tests/qt/pictures.hpp>
#include <tests/qt/support.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/lru_images.hpp>
#include <zqswiftui/platform/qt/picture_cache.hpp>
#include <zqswiftui/platform/qt/picture_reduction.hpp>
#include <zqswiftui/platform/qt/pill_cache.hpp>
#include <zqswiftui/platform/qt/symbol_cache.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>

namespace zq::qt {
namespace {

QImage square(int side) {
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::red);
  return image;
}

TEST(LruImages, keepsWhatWasUsedLastWithinItsBytes) {
  LruImages<int, std::hash<int>> images(40000);  // four of 50 x 50
  int made = 0;
  const auto use = [&](int key) {
    return images.get(key, [&] {
      ++made;
      return square(50);
    });
  };
  for (const int key : {1, 2, 3, 4}) use(key);
  EXPECT_EQ(images.bytes(), 40000U);
  use(1);  // 2 is the oldest from here on
  EXPECT_EQ(made, 4);
  use(5);
  EXPECT_EQ(images.bytes(), 40000U);
  for (const int key : {1, 3, 4, 5}) use(key);
  EXPECT_EQ(made, 5);
  use(2);
  EXPECT_EQ(made, 6);
}

TEST(LruImages, oneThatWouldPushOutTheOthersIsMadeEachTime) {
  LruImages<int, std::hash<int>> images(40000);
  images.get(1, [] { return square(50); });
  int made = 0;
  for (int i = 0; i < 3; ++i) {
    const QImage large = images.get(2, [&] {
      ++made;
      return square(51);
    });
    EXPECT_EQ(large.width(), 51);
  }
  EXPECT_EQ(made, 3);
  EXPECT_EQ(images.bytes(), 10000U);
  images.get(3, [] { return QImage(); });
  EXPECT_EQ(images.bytes(), 10000U);
}

// The same pill by the painter alone.
QImage drawnPill(QSize pixels, double radius, bool continuous, const QColor& color) {
  QImage image(pixels + QSize(20, 20), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  const QRectF rect(QPointF(10, 10), QSizeF(pixels));
  if (continuous) {
    painter.drawPath(toPainterPath(Path().addRoundedRect(toRect(rect), radius, true), {}));
  } else {
    painter.drawRoundedRect(rect, radius, radius);
  }
  return image;
}

TEST(PillCache, aKeptPillEqualsOneThatIsDrawn) {
  const QSize sizes[] = {{1, 1}, {2, 9}, {16, 16}, {61, 23}, {255, 127}, {256, 128}};
  const QColor colors[] = {QColor(Qt::black), QColor(200, 30, 90), QColor(0, 120, 255, 128),
                           QColor(10, 20, 30, 1), QColor(0, 0, 0, 0)};
  PillCache cache(1 << 22);
  for (const QSize size : sizes) {
    for (const double part : {0.1, 0.5, 1.0}) {
      const double radius = part * std::min(size.width(), size.height()) / 2;
      for (const bool continuous : {false, true}) {
        for (const QColor& color : colors) {
          QImage image(size + QSize(20, 20), QImage::Format_ARGB32_Premultiplied);
          image.fill(Qt::white);
          QPainter painter(&image);
          for (int times = 0; times < 2; ++times) {
            image.fill(Qt::white);
            painter.drawImage(10, 10, cache.image(size, radius, continuous, color.rgba()));
          }
          painter.end();
          EXPECT_LE(difference(image, drawnPill(size, radius, continuous, color)),
                    size.width() < 4 ? 12 : 1)
              << size.width() << " wide, radius " << radius << " of "
              << color.name(QColor::HexArgb).toStdString();
        }
      }
    }
  }
}

TEST(PillCache, eachColourRadiusAndKindOfCornerIsItsOwn) {
  PillCache cache(1 << 20);
  const QImage first = cache.image({30, 20}, 10, false, qRgb(1, 2, 3));
  EXPECT_NE(cache.image({30, 20}, 10, false, qRgb(1, 2, 4)), first);
  EXPECT_NE(cache.image({30, 20}, 10, false, qRgba(1, 2, 3, 254)), first);
  EXPECT_NE(cache.image({30, 20}, 9.5, false, qRgb(1, 2, 3)), first);
  EXPECT_NE(cache.image({30, 20}, 6, true, qRgb(1, 2, 3)),
            cache.image({30, 20}, 6, false, qRgb(1, 2, 3)));
  EXPECT_EQ(cache.image({30, 20}, 10, false, qRgb(1, 2, 3)), first);
  // The canvas asks for none of these.
  for (const QSize size : {QSize(0, 0), QSize(0, 10), QSize(10, 0), QSize(-1, 5), QSize(257, 5),
                           QSize(5, 129), QSize(100000, 100000)}) {
    EXPECT_FALSE(PillCache::takes(size)) << size.width();
  }
}

TEST(PillCache, theCanvasDrawsSmallAndLargePillsAlike) {
  // On either side of what is kept, and of no size.
  for (const double scale : kScales) {
    for (const Size size :
         {Size{255, 20}, Size{257, 20}, Size{40, 129}, Size{0, 20}, Size{0.2, 7}, Size{3000, 40}}) {
      const FillRoundedRect pill{{10, 10, size.width, size.height}, 8, false, Color::red()};
      const FillRoundedRect gradient{pill.rect, 8, false,
                                     LinearGradient::of({Color::red(), Color::red()})};
      const QSize window(320, 160);
      const QImage kept = played(window, scale, [&](Canvas& canvas) { canvas.draw(pill, {}); });
      const QImage drawn =
          played(window, scale, [&](Canvas& canvas) { canvas.draw(gradient, {}); });
      EXPECT_LE(difference(kept, drawn), 1) << size.width << " wide at " << scale;
    }
  }
}

TEST(SymbolCache, keepsByDrawingSizeAndColourAndAnswersNothingForNoSize) {
  const SymbolDrawing full{{{Path().addRect({0, 0, 1, 1}), 0, false}}};
  const SymbolDrawing half{{{Path().addRect({0, 0, 0.5, 1}), 0, false}}};
  SymbolCache cache(1 << 16);
  const QRgb black = qRgb(0, 0, 0);
  const QImage first = cache.image(full, {16, 16}, black);
  EXPECT_EQ(cache.image(full, {16, 16}, black).cacheKey(), first.cacheKey());
  EXPECT_NE(cache.image(half, {16, 16}, black), first);
  EXPECT_NE(cache.image(full, {16, 16}, qRgb(255, 0, 0)), first);
  EXPECT_EQ(cache.image(full, {16, 8}, black).size(), QSize(16, 8));
  for (const QSize size : {QSize(0, 0), QSize(0, 5), QSize(5, 0), QSize(-4, 4)}) {
    EXPECT_TRUE(cache.image(full, size, black).isNull());
  }
  // One beyond the whole cache is drawn and not kept.
  const std::size_t before = cache.bytes();
  EXPECT_EQ(cache.image(full, {400, 400}, black).width(), 400);
  EXPECT_EQ(cache.bytes(), before);
}

TEST(Pictures, oneThatFitsThePixelsIsCopiedAsItIsAtAnyScale) {
  for (const double scale : kScales) {
    const int side = static_cast<int>(20 * scale);
    const ZQImage picture = noise(side, side);
    const QImage image = played({60, 60}, scale, [&](Canvas& canvas) {
      canvas.draw(DrawPicture{picture, {20, 20, 20, 20}}, {});
    });
    const QRect place(side, side, side, side);
    EXPECT_EQ(image.copy(place).convertToFormat(QImage::Format_RGB32),
              toQImage(picture).convertToFormat(QImage::Format_RGB32))
        << "at scale " << scale;
    EXPECT_EQ(image.pixel(side - 1, side + 3), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(2 * side, side + 3), qRgb(255, 255, 255));
  }
}

TEST(Pictures, aSmallOneIsTheSameWhetherItIsKeptOrNot) {
  const ZQImage picture = noise(200, 160);
  for (const double scale : kScales) {
    const auto draw = [&](const ZQImage& each) {
      return played({60, 60}, scale, [&](Canvas& canvas) {
        canvas.draw(DrawPicture{each, {7, 9, 40, 32}}, {});
      });
    };
    const QImage first = draw(picture);
    EXPECT_EQ(draw(picture), first);
    // The same pixels under another identity are reduced to the same.
    EXPECT_EQ(draw(*ZQImage::fromPixels(picture.pixels())), first);
    EXPECT_NE(draw(noise(200, 160, 7)), first);
  }
}

TEST(Pictures, aReducedOneHasTheMeanOfItsPixels) {
  Pixels pixels{64, 64, {}};
  for (int i = 0; i < 64 * 64; ++i) {
    const auto v = static_cast<std::uint8_t>((i + i / 64) % 2 == 0 ? 0 : 255);  // a chess board
    pixels.rgba.insert(pixels.rgba.end(), {v, v, v, 255});
  }
  const ZQImage board = *ZQImage::fromPixels(std::move(pixels));
  for (const int side : {7, 8, 15, 31}) {
    const QImage image = played({40, 40}, 1, [&](Canvas& canvas) {
      canvas.draw(DrawPicture{board, {0, 0, double(side), double(side)}}, {});
    });
    for (int i = 1; i < side - 1; ++i) {
      EXPECT_NEAR(qGray(image.pixel(i, side / 2)), 127, 40) << side << " at " << i;
    }
  }
}

TEST(Pictures, aReducedPixelIsTheMeanOfItsArea) {
  const struct {
    QSize from, to;
  } rows[] = {{{257, 131}, {38, 19}}, {{1000, 3}, {20, 1}}, {{64, 64}, {31, 30}},
              {{2000, 40}, {9, 7}},   {{5, 5}, {1, 1}},     {{40, 40}, {40, 2}}};
  for (const auto& row : rows) {
    Pixels slope{row.from.width(), row.from.height(), {}};
    for (int i = 0; i < slope.width * slope.height; ++i) {
      const int v = i % slope.width * 200 / slope.width + i / slope.width * 55 / slope.height;
      slope.rgba.insert(slope.rgba.end(), {static_cast<std::uint8_t>(v), 9, 200, 255});
    }
    const ZQImage picture = *ZQImage::fromPixels(std::move(slope));
    const QImage exact = toQImage(picture);
    const QImage reduced = reducedPicture(picture, row.to);
    ASSERT_EQ(reduced.size(), row.to);
    const double width = 1.0 * row.from.width() / row.to.width();
    const double height = 1.0 * row.from.height() / row.to.height();
    for (int i = 0; i < row.to.width() * row.to.height(); ++i) {
      const int x = i % row.to.width(), y = i / row.to.width();
      double sum = 0;
      for (int v = static_cast<int>(y * height); v < (y + 1) * height; ++v) {
        for (int u = static_cast<int>(x * width); u < (x + 1) * width; ++u) {
          if (u >= row.from.width() || v >= row.from.height()) continue;
          const double part = (std::min(u + 1.0, (x + 1) * width) - std::max(1.0 * u, x * width)) *
                              (std::min(v + 1.0, (y + 1) * height) - std::max(1.0 * v, y * height));
          sum += part * qRed(exact.pixel(u, v));
        }
      }
      EXPECT_NEAR(qRed(reduced.pixel(x, y)), sum / (width * height), 3)
          << row.from.width() << " at " << x << ", " << y;
    }
    EXPECT_EQ(reduced.pixel(0, 0) & 0xff00ffffU, qRgb(0, 9, 200));
  }
}

// A window paints a large one roughly, and once more when its copy was made in the background.
TEST(Pictures, aLargeOneIsReducedInTheBackgroundOfItsWindow) {
  const ZQImage large = noise(900, 700);
  HostWidget window(Image(large).resizable(false));
  window.resize(90, 70);
  window.show();
  const QImage expected = played({90, 70}, 1, [&](Canvas& canvas) {
    canvas.draw(DrawPicture{*ZQImage::fromPixels(large.pixels()), {0, 0, 90, 70}}, {});
  });
  const auto shown = [&] {
    return difference(window.grab().toImage().convertToFormat(QImage::Format_RGB32),
                      expected.convertToFormat(QImage::Format_RGB32));
  };
  EXPECT_GT(shown(), 20) << "not waited for";
  EXPECT_TRUE(waitFor([&] { return shown() == 0; }));
  // It asks for its place to be painted.
  window.resize(60, 40);
  window.repaint();
  struct Painted : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint) ++count;
      return false;
    }
    int count = 0;
  } painted;
  window.installEventFilter(&painted);
  EXPECT_TRUE(waitFor([&] { return painted.count > 0; }));
}

TEST(Pictures, edgesOfAnySizeAreHarmless) {
  const ZQImage tiny = noise(1, 1), wide = noise(3000, 1);
  const Rect rects[] = {{0, 0, 0, 0},      {5, 5, -3, 4},          {1e7, 1e7, 10, 10},
                        {0, 0, 1e9, 1e9},  {0.5, 0.5, 0.01, 0.01}, {-500, -500, 1000, 1000},
                        {10, 10, 1, 20000}};
  for (const double scale : {1.0, 1.5}) {
    for (const Rect& rect : rects) {
      for (const ZQImage& picture : {tiny, wide}) {
        const QImage image = played({40, 40}, scale, [&](Canvas& canvas) {
          canvas.draw(DrawPicture{picture, rect}, {});
        });
        EXPECT_FALSE(image.isNull());
      }
    }
  }
}

TEST(Pictures, thePixelsLiveAsLongAsWhatShowsThem) {
  QImage shown;
  {
    const ZQImage picture = noise(30, 30);
    shown = toQImage(picture);
    EXPECT_EQ(static_cast<const void*>(shown.constBits()), picture.pixels().rgba.data());
  }
  EXPECT_EQ(shown, toQImage(noise(30, 30)));
}

}  // namespace
}  // namespace zq::qt
