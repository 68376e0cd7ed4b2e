// ZQSwiftUI, MIT licence; see LICENSE.
// Clips, groups and transforms inside each other, and texts as they are played.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFontMetricsF>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <tests/qt/pictures.hpp>
#include <zqswiftui/platform/qt/font_cache.hpp>
#include <zqswiftui/platform/qt/text_measurer.hpp>

namespace zq::qt {
namespace {

constexpr QRgb kWhite = qRgb(255, 255, 255);
constexpr QRgb kBlack = qRgb(0, 0, 0);

TEST(CanvasGroups, aClipUnderAScalingIsScaledWithWhatItClips) {
  for (const double scale : kScales) {
    const QImage image = played({80, 80}, scale, [](Canvas& canvas) {
      canvas.pushScale(2, 2, {40, 40});
      canvas.pushClip(Rect{30, 30, 20, 20});
      canvas.draw(FillRect{{0, 0, 80, 80}, Color::black()}, {});
      canvas.pop();
      canvas.pop();
    });
    // To the pixel that rounding before the scaling may cost.
    const QRect ink = inkIn(image);
    EXPECT_NEAR(ink.left(), 20 * scale, 1) << "at scale " << scale;
    EXPECT_NEAR(ink.right() + 1, 60 * scale, 1) << "at scale " << scale;
    EXPECT_EQ(ink.width(), ink.height());
  }
}

TEST(CanvasGroups, opacitiesMultiplyWhereGroupsNest) {
  for (const double scale : kScales) {
    const QImage image = played({60, 60}, scale, [](Canvas& canvas) {
      canvas.pushOpacity(0.5, {0, 0, 60, 60});
      canvas.pushClip(Rect{10, 10, 40, 40});
      canvas.pushOpacity(0.5, {0, 0, 60, 60});
      canvas.draw(FillRect{{0, 0, 60, 60}, Color::black()}, {});
      canvas.pop();
      canvas.pop();
      canvas.draw(FillRect{{0, 0, 5, 5}, Color::black()}, {});
      canvas.pop();
    });
    const auto gray = [&](double x, double y) {
      return qGray(image.pixel(static_cast<int>(x * scale), static_cast<int>(y * scale)));
    };
    EXPECT_NEAR(gray(30, 30), 191, 1) << "at scale " << scale;
    EXPECT_NEAR(gray(2, 2), 128, 1);
    EXPECT_EQ(gray(7, 30), 255);
  }
}

TEST(CanvasGroups, aGroupOfFullOpacityChangesNoPixelWhereverItLies) {
  const auto scene = [](Canvas& canvas) {
    canvas.draw(FillRoundedRect{{4.3, 3.1, 40, 21}, 7, false, Color::teal()}, {});
    canvas.draw(FillRect{{20, 10, 30.4, 8.6}, Color::red()}, {});
    canvas.draw(DrawText{textOf("Words"),
                         {6, 5, 60, 18},
                         TextAlignment::leading,
                         1,
                         true,
                         false,
                         Color::black()},
                {});
  };
  for (const double scale : kScales) {
    const QImage plain = played({80, 40}, scale, scene);
    const QImage grouped = played({80, 40}, scale, [&](Canvas& canvas) {
      canvas.pushOpacity(1, {2.2, 1.7, 70.3, 30.9});
      scene(canvas);
      canvas.pop();
    });
    EXPECT_LE(difference(grouped, plain), 1) << "at scale " << scale;
  }
}

TEST(CanvasGroups, aGroupOutsideTheWindowOrOfNoSizeOrOfBadOpacityHarmsNothing) {
  const double nan = std::nan("");
  const Rect rects[] = {{500, 500, 10, 10}, {0, 0, 0, 0}, {-1e9, -1e9, 2e9, 2e9}, {0, 0, 60, 60}};
  for (const Rect& bounds : rects) {
    for (const double opacity : {0.0, -1.0, 7.0, nan}) {
      const QImage image = played({60, 60}, 1.5, [&](Canvas& canvas) {
        canvas.pushOpacity(opacity, bounds);
        canvas.draw(FillRect{{10, 10, 10, 10}, Color::black()}, {});
        canvas.pop();
        canvas.draw(FillRect{{40, 40, 10, 10}, Color::black()}, {});
      });
      EXPECT_EQ(image.pixel(67, 67), kBlack);
      if (!(opacity > 0)) {
        EXPECT_EQ(image.pixel(22, 22), kWhite) << opacity;
      }
    }
  }
}

TEST(CanvasGroups, scalingsOfNothingAndOfNoNumberEndWithTheirGroup) {
  for (const double factor : {0.0, -1.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
    const QImage image = played({60, 60}, 1, [&](Canvas& canvas) {
      canvas.pushScale(factor, factor, {30, 30});
      canvas.pushOpacity(0.5, {0, 0, 60, 60});
      canvas.draw(FillRoundedRect{{20, 20, 20, 20}, 4, false, Color::red()}, {});
      canvas.draw(DrawPicture{noise(4, 4), {0, 0, 4, 4}}, {});
      canvas.pop();
      canvas.pop();
      canvas.draw(FillRect{{50, 50, 5, 5}, Color::black()}, {});
    });
    EXPECT_EQ(image.pixel(52, 52), kBlack) << factor;
  }
}

// Plays groups and commands drawn from the generator, as deep as a real tree.
void playRandom(Canvas& canvas, std::mt19937& random, int depth) {
  const auto number = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  const int commands = 1 + static_cast<int>(number(0, 3));
  for (int i = 0; i < commands; ++i) {
    const Rect rect{number(-10, 90), number(-10, 60), number(1, 60), number(1, 40)};
    const Color color = Color::rgb(number(0, 1), number(0, 1), number(0, 1), number(0.2, 1));
    switch (static_cast<int>(number(0, 4))) {
      case 0:
        canvas.draw(FillRect{rect, color}, {});
        break;
      case 1:
        canvas.draw(FillRoundedRect{rect, number(0, 20), i % 2 == 0, color}, {});
        break;
      case 2:
        canvas.draw(
            DrawText{textOf("Words here"), rect, TextAlignment::center, 2, false, false, color},
            {});
        break;
      default:
        // Drawn pixel for pixel: Qt samples a stretched one a little differently in each clip.
        canvas.draw(DrawSymbol{findSymbol("star.fill"), "star.fill", rect, color}, {});
        break;
    }
    if (depth == 0) continue;
    switch (static_cast<int>(number(0, 3))) {
      case 0:
        canvas.pushClip(rect);
        break;
      case 1:
        canvas.pushOpacity(number(0.2, 1), rect.insetBy(-30));
        break;
      default:
        canvas.pushClip(Path().addRoundedRect(rect, 9, false), {3.3, 2.2});
        break;
    }
    playRandom(canvas, random, depth - 1);
    canvas.pop();
  }
}

int differentPixels(const QImage& a, const QImage& b) {
  int count = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      count += difference(a.copy(x, y, 1, 1), b.copy(x, y, 1, 1)) > 1;
    }
  }
  return count;
}

TEST(CanvasGroups, aSoftClipIsAsSoftInAPartialRepaint) {
  for (const double scale : kScales) {
    for (const bool partial : {false, true}) {
      QImage image = played({60, 60}, scale, [](Canvas&) {});
      QPainter painter(&image);
      if (partial) painter.setClipRect(20, 0, 20, 60);
      PainterCanvas canvas(painter, scale);
      canvas.pushClip(Path().addRoundedRect({0, 0, 40.3, 30.7}, 8, false), {9.6, 9.4});
      canvas.draw(DrawPicture{noise(60, 60), {0, 0, 60, 60}}, {});
      canvas.pop();
      // The edges lie where those of the same shape filled lie.
      const QImage filled = played({60, 60}, scale, [](Canvas& all) {
        all.draw(FillRoundedRect{{9.6, 9.4, 40.3, 30.7}, 8, false, Color::black()}, {});
      });
      const int middle = static_cast<int>(30 * scale);
      for (int y = 0; y < image.height(); ++y) {
        EXPECT_EQ(image.pixel(middle, y) == kWhite, filled.pixel(middle, y) == kWhite)
            << "row " << y << " at scale " << scale << (partial ? ", partly" : "");
      }
    }
  }
}

TEST(CanvasGroups, anyPartOfAnySceneEqualsThatPartOfTheWhole) {
  for (const double scale : kScales) {
    for (unsigned seed = 1; seed <= 12; ++seed) {
      const auto scene = [&](Canvas& canvas) {
        std::mt19937 random(seed);
        playRandom(canvas, random, 3);
      };
      const QImage whole = played({100, 72}, scale, scene);
      QImage tiled = whole;
      tiled.fill(Qt::white);
      for (int y = 0; y < 72; y += 24) {
        for (int x = 0; x < 100; x += 20) {
          QPainter painter(&tiled);
          painter.setClipRect(x, y, 20, 24);
          PainterCanvas canvas(painter, scale);
          scene(canvas);
        }
      }
      // Qt takes a single column of a soft edge for a hard one.
      EXPECT_LE(differentPixels(tiled, whole), 9) << "seed " << seed << " at scale " << scale;
    }
  }
}

QImage playedText(const std::string& text, const Rect& rect, TextAlignment alignment, int maxLines,
                  bool singleLine, bool middle = false, double scale = 1) {
  return played({300, 120}, scale, [&](Canvas& canvas) {
    canvas.draw(
        DrawText{textOf(text), rect, alignment, maxLines, singleLine, middle, Color::black()}, {});
  });
}

TEST(PlayedTexts, whatDoesNotFitEndsInTheWidthThatItHas) {
  const std::string longText(5000, 'm');
  const std::string words = "Several words that need quite a few lines to be shown as a whole";
  for (const double scale : kScales) {
    for (const std::string& text : {longText, words}) {
      for (const bool middle : {false, true}) {
        for (const int lines : {1, 2}) {
          const Rect rect{20, 20, 70, 40};
          const QImage image =
              playedText(text, rect, TextAlignment::leading, lines, false, middle, scale);
          const QRect ink = inkIn(image);
          EXPECT_GE(ink.left(), std::floor(20 * scale) - 1);
          EXPECT_LE(ink.right(), std::ceil(90 * scale)) << text.substr(0, 9) << lines << middle;
          EXPECT_GT(ink.width(), 40 * scale);
        }
      }
    }
  }
}

TEST(PlayedTexts, theMiddleIsCutSoThatTheEndCanBeRead) {
  const auto right = [](const std::string& text) {
    const QImage image = playedText(text, {0, 0, 120, 20}, TextAlignment::leading, 1, false, true);
    const QRect ink = inkIn(image);
    return image.copy(ink.right() - 20, 0, 21, 20);
  };
  EXPECT_EQ(right("a very long name of a file.txt"), right("another even longer name.txt"));
  EXPECT_NE(right("a very long name of a file.txt"), right("another even longer name.jpg"));
}

TEST(PlayedTexts, rightToLeftTextsStandWhereTheyWereMeasured) {
  const TextMeasurer measurer;
  const std::string hebrew = "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D \xD7\xA2\xD7\x95\xD7\x9C\xD7\x9D";
  for (const std::string& text : {hebrew, "ab " + hebrew, hebrew + " 12."}) {
    for (const bool single : {true, false}) {
      const double width = measurer.lineWidth(text, {});
      const QRect ink =
          inkIn(playedText(text, {40, 10, width, 20}, TextAlignment::leading, 1, single));
      EXPECT_GE(ink.left(), 39) << single;
      EXPECT_LE(ink.right(), 40 + width);
      EXPECT_GT(ink.width(), width * 0.8);
    }
  }
}

TEST(PlayedTexts, brokenTextsAreDrawnAsReplacementsAndMeasuredAsSuch) {
  const TextMeasurer measurer;
  const std::string rows[] = {"\xff\xfe\xfd", std::string("a\0b", 3), "\xed\xa0\x80",
                              "caf\xc3",      "\xf4\x90\x80\x80 end", "a\r\nb\tc\x7f"};
  for (const std::string& text : rows) {
    const double width = measurer.lineWidth(text, {});
    EXPECT_GT(width, 0);
    const QRect ink = inkIn(playedText(text, {40, 10, width, 20}, TextAlignment::leading, 1, true));
    EXPECT_GE(ink.left(), 39);
    EXPECT_LE(ink.right(), 40 + width);
  }
}

TEST(PlayedTexts, aContentThatIsDrawnAgainInAnotherWidthOrFontIsBrokenAnew) {
  const auto content = textOf("Several words that need quite a few lines");
  const auto draw = [&](double width) {
    return played({300, 120}, 1, [&](Canvas& canvas) {
      canvas.draw(
          DrawText{
              content, {0, 0, width, 110}, TextAlignment::leading, 0, false, false, Color::black()},
          {});
    });
  };
  const QImage narrow = draw(60), wide = draw(200);
  EXPECT_GT(inkIn(narrow).height(), inkIn(wide).height());
  EXPECT_EQ(draw(60), narrow);
  forgetFonts();
  EXPECT_EQ(draw(60), narrow);
}

TEST(Strokes, dashesOfHopelessLengthsEndSoon) {
  const auto line = std::make_shared<const Path>(Path().moveTo({5, 20}).lineTo({195, 20}));
  const double nan = std::nan("");
  const std::vector<double> dashes[] = {
      {1e-9}, {0, 0}, {nan, 3}, {-4, 2}, {1e300, 1}, {0, 1e-7, 3}, std::vector<double>(1000, 1.5)};
  for (const std::vector<double>& dash : dashes) {
    for (const double width : {1e-6, 1.0, 40.0}) {
      QElapsedTimer time;
      time.start();
      played({200, 40}, 1, [&](Canvas& canvas) {
        canvas.draw(
            StrokePath{line, {0, 0, 200, 40}, {.lineWidth = width, .dash = dash}, Color::black()},
            {});
      });
      EXPECT_LT(time.elapsed(), 5000) << "dash " << dash.front() << " of " << width;
    }
  }
}

}  // namespace
}  // namespace zq::qt
