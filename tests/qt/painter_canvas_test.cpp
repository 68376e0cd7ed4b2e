// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <cmath>
#include <functional>
#include <memory>
#include <zqswiftui/platform/qt/painter_canvas.hpp>
#include <zqswiftui/platform/qt/symbol_cache.hpp>

namespace zq::qt {
namespace {

constexpr double kScales[] = {1, 1.25, 1.5, 2};

QImage blank(double width, double height, double scale) {
  QImage image(static_cast<int>(width * scale), static_cast<int>(height * scale),
               QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(Qt::white);
  return image;
}

using Playing = std::function<void(Canvas&)>;

QImage played(double width, double height, double scale, const Playing& play,
              const QRectF& only = {}) {
  QImage image = blank(width, height, scale);
  QPainter painter(&image);
  if (!only.isEmpty()) painter.setClipRect(only);
  PainterCanvas canvas(painter, scale);
  play(canvas);
  return image;
}

std::shared_ptr<const TextContent> content(const char* text) {
  auto result = std::make_shared<TextContent>();
  result->text = text;
  return result;
}

TEST(PainterCanvas, neighboursLeaveNoGapAndNoOverlapAtAnyScale) {
  const double step = 10.0 / 3;  // edges that fall on no pixel
  for (const double scale : kScales) {
    const QImage image = played(40, 10, scale, [&](Canvas& canvas) {
      for (int i = 0; i < 12; ++i) {
        const Color half = Color::rgb(1, 0, 0, 0.5);
        canvas.draw(FillRect{{i * step, 0, step, 10}, half}, PlayState{});
      }
    });
    for (int x = 0; x < image.width(); ++x) {
      EXPECT_EQ(image.pixel(x, 3), image.pixel(0, 3)) << "column " << x << " at scale " << scale;
    }
  }
}

TEST(PainterCanvas, aHairlineIsNeverLost) {
  for (const double y : {0.0, 0.3, 0.6, 2.5}) {
    const QImage image = played(4, 4, 1, [&](Canvas& canvas) {
      canvas.draw(FillRect{{0, y, 4, 0.25}, Color::black()}, PlayState{});
    });
    int dark = 0;
    for (int row = 0; row < 4; ++row) dark += qGray(image.pixel(1, row)) == 0;
    EXPECT_EQ(dark, 1) << "at " << y;
  }
}

void drawScene(Canvas& canvas) {
  const auto words = content("Several words that need more than one line to be shown");
  canvas.draw(FillRoundedRect{{3.3, 2.7, 60, 21}, 6, false, Color::teal()}, {});
  canvas.draw(
      FillRoundedRect{
          {70, 2.7, 60, 21}, 9, true, LinearGradient::of({Color::red(), Color::blue()})},
      {});
  canvas.draw(DrawText{content("tag"), {10, 5, 40, 16}, TextAlignment::center, 1, true, false, {}},
              {});
  canvas.draw(DrawText{words, {5, 30, 90, 50}, TextAlignment::trailing, 2, false, false, {}}, {});
  PlayState aside;
  aside.origin = {100.4, 40.2};
  Path triangle;
  triangle.moveTo({0, 0}).lineTo({20, 0}).lineTo({10, 18}).close();
  const auto shared = std::make_shared<const Path>(triangle);
  canvas.draw(FillPath{shared, {0, 0, 20, 18}, Color::orange()}, aside);
  canvas.pushOpacity(0.5, {60, 20, 60, 60});
  canvas.draw(FillRect{{60, 20, 40, 40}, Color::black()}, {});
  canvas.draw(FillRect{{80, 40, 40, 40}, Color::black()}, {});
  canvas.pop();
}

TEST(PainterCanvas, aStraightLineLiesOnWholePixelsAtAnyScale) {
  for (const double scale : kScales) {
    for (const double at : {1.0, 3.0, 3.3, 3.5, 7.8}) {
      for (const Point to : {Point{0, 10}, Point{10, 0}}) {
        const auto line = std::make_shared<const Path>(Path().moveTo({}).lineTo(to));
        const QImage image = played(20, 20, scale, [&](Canvas& canvas) {
          const Rect bounds = line->bounds().insetBy(-0.5);
          canvas.draw(StrokePath{line, bounds, {}, Color::black()}, PlayState{{at, at}});
        });
        int black = 0, other = 0;
        for (int i = 0; i < image.width() * image.height(); ++i) {
          const QRgb pixel = image.pixel(i % image.width(), i / image.width());
          black += pixel == 0xff000000;
          other += pixel != 0xff000000 && pixel != 0xffffffff;
        }
        EXPECT_EQ(other, 0) << "no pale pixels";
        EXPECT_NEAR(black, std::round(scale) * 10 * scale, std::round(scale))
            << scale << ", " << at;
      }
    }
  }
}

TEST(PainterCanvas, aPartialRepaintEqualsTheFullOne) {
  for (const double scale : kScales) {
    const QImage full = played(160, 100, scale, drawScene);
    for (const QRect& part : {QRect(0, 0, 40, 40), QRect(60, 12, 60, 40), QRect(4, 28, 92, 60)}) {
      const QImage partly = played(160, 100, scale, drawScene, part);
      const QRect pixels(QPoint(int(part.x() * scale), int(part.y() * scale)),
                         QSize(int(part.width() * scale), int(part.height() * scale)));
      EXPECT_EQ(partly.copy(pixels), full.copy(pixels)) << "at scale " << scale;
    }
  }
}

TEST(PainterCanvas, overlappingDrawingsUnderOneOpacityAreSeenOnce) {
  const QImage image = played(160, 100, 1, drawScene);
  EXPECT_EQ(image.pixel(64, 26), image.pixel(90, 50));
  EXPECT_NEAR(qGray(image.pixel(90, 50)), 128, 1);
}

TEST(PainterCanvas, theStatesOpacityWeakensEveryKindOfCommand) {
  PlayState faded;
  faded.opacity = 0.5;
  const SymbolDrawing square{{{Path().addRect({0, 0, 1, 1}), 0, false}}};
  const auto path = std::make_shared<const Path>(Path().addRect({0, 0, 10, 10}));
  const Rect all{0, 0, 10, 10};
  Pixels pixels{1, 1, {0, 0, 0, 255}};
  const DrawCommand commands[] = {
      FillRect{all, Color::black()},
      FillRoundedRect{all, 1, false, Color::black()},
      FillPath{path, all, Color::black()},
      FillRect{all, LinearGradient::of({Color::black(), Color::black()})},
      DrawSymbol{&square, "square", all, Color::black()},
      DrawPicture{*ZQImage::fromPixels(pixels), all},
  };
  for (const DrawCommand& command : commands) {
    const QImage image = played(10, 10, 1, [&](Canvas& canvas) { canvas.draw(command, faded); });
    EXPECT_NEAR(qGray(image.pixel(5, 5)), 128, 1) << "command " << command.index();
  }
}

TEST(PainterCanvas, clipsNestAndEnd) {
  const QImage image = played(20, 20, 1, [](Canvas& canvas) {
    canvas.pushClip(Rect{0, 0, 10, 20});
    canvas.pushClip(Path().addRect({0, 0, 20, 10}), {});
    canvas.draw(FillRect{{0, 0, 20, 20}, Color::black()}, {});
    canvas.pop();
    canvas.pop();
    canvas.draw(FillRect{{15, 15, 5, 5}, Color::black()}, {});
  });
  EXPECT_EQ(qGray(image.pixel(5, 5)), 0);
  EXPECT_EQ(qGray(image.pixel(15, 5)), 255);
  EXPECT_EQ(qGray(image.pixel(5, 15)), 255);
  EXPECT_EQ(qGray(image.pixel(17, 17)), 0);
}

TEST(PainterCanvas, theEdgeOfARoundClipIsSoftWhateverIsDrawnInIt) {
  const Rect all{0, 0, 20, 20};
  Pixels pixels{20, 20, std::vector<std::uint8_t>(20 * 20 * 4, 0)};
  for (std::size_t i = 3; i < pixels.rgba.size(); i += 4) pixels.rgba[i] = 255;
  const ZQImage black = *ZQImage::fromPixels(pixels);
  const std::vector<std::pair<const char*, Playing>> drawings{
      {"fill",
       [&](Canvas& canvas) {
         canvas.draw(FillRect{all, Color::black()}, {});
       }},
      {"picture",
       [&](Canvas& canvas) {
         canvas.draw(DrawPicture{black, all}, {});
       }},
      {"group", [&](Canvas& canvas) {
         canvas.pushOpacity(0.99, all);
         canvas.draw(FillRect{all, Color::black()}, {});
         canvas.pop();
       }}};
  for (const auto& [what, drawing] : drawings) {
    const QImage image = played(20, 20, 1, [&drawing = drawing](Canvas& canvas) {
      canvas.pushClip(Path().addEllipse({0, 0, 20, 20}), {});
      drawing(canvas);
      canvas.pop();
    });
    int soft = 0;
    for (int x = 0; x < 10; ++x) {
      const int gray = qGray(image.pixel(x, 2));
      soft += gray > 20 && gray < 235;
    }
    EXPECT_GT(soft, 0) << what;
  }
}

TEST(PainterCanvas, leadingTextStandsAtTheRightWhereReadingBeginsThere) {
  const auto ink = [](LayoutDirection direction) {
    PlayState mirrored;
    mirrored.direction = direction;
    const QImage image = played(100, 20, 1, [&](Canvas& canvas) {
      canvas.draw(DrawText{content("ab"),
                           {0, 0, 100, 16},
                           TextAlignment::leading,
                           1,
                           true,
                           false,
                           Color::black()},
                  mirrored);
    });
    int left = 0, right = 0;
    for (int y = 0; y < 20; ++y) {
      for (int x = 0; x < 100; ++x) (x < 50 ? left : right) += 255 - qGray(image.pixel(x, y));
    }
    return std::pair(left, right);
  };
  EXPECT_GT(ink(LayoutDirection::leftToRight).first, 0);
  EXPECT_EQ(ink(LayoutDirection::leftToRight).second, 0);
  EXPECT_EQ(ink(LayoutDirection::rightToLeft).first, 0);
  EXPECT_GT(ink(LayoutDirection::rightToLeft).second, 0);
}

TEST(SymbolCache, erasingPartsLeaveHolesAndOverlapsAreOneMask) {
  const SymbolDrawing drawing{{{Path().addRect({0, 0, 1, 1}), 0, false},
                               {Path().addRect({0, 0, 0.5, 1}), 0, false},
                               {Path().addRect({0, 0.5, 1, 0.5}), 0, true}}};
  const QRgb halfRed = qRgba(255, 0, 0, 128);
  const QImage image = drawSymbol(drawing, {20, 20}, halfRed);
  EXPECT_EQ(image.pixelColor(5, 5).alpha(), 128);
  EXPECT_EQ(image.pixelColor(5, 5), image.pixelColor(15, 5));
  EXPECT_EQ(image.pixelColor(10, 15).alpha(), 0);
}

TEST(SymbolCache, staysWithinItsBytes) {
  const SymbolDrawing drawing{{{Path().addRect({0, 0, 1, 1}), 0, false}}};
  SymbolCache cache(100000);
  for (int side = 10; side < 60; ++side) {
    EXPECT_EQ(cache.image(drawing, {side, side}, qRgb(0, 0, 0)).width(), side);
    EXPECT_LE(cache.bytes(), 100000U);
  }
}

}  // namespace
}  // namespace zq::qt
