// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <zqswiftui/platform/qt/painter_canvas.hpp>
#include <zqswiftui/platform/qt/text_measurer.hpp>

namespace zq::qt {
namespace {

constexpr double kNoLimit = std::numeric_limits<double>::infinity();

// The columns and rows that the text darkens when it is drawn in the rectangle.
QRect inkOf(const std::string& text, const FontSpec& font, const Rect& rect, bool singleLine,
            int maxLines) {
  QImage image(600, 200, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::white);
  QPainter painter(&image);
  PainterCanvas canvas(painter, 1);
  auto content = std::make_shared<TextContent>();
  content->text = text;
  content->font = font;
  canvas.draw(
      DrawText{content, rect, TextAlignment::leading, maxLines, singleLine, false, Color::black()},
      {});
  QRect ink;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qGray(image.pixel(x, y)) < 200) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

TEST(TextMeasurer, nothingIsPaintedOutsideOfWhatWasMeasured) {
  const TextMeasurer measurer;
  for (const char* text :
       {"tag-000042", "WAVE", "a\tb\nc", "Zwölf Boxkämpfer", "\xff\xfe", "iii"}) {
    for (const double size : {10.0, 11.5, 13.0, 26.0}) {
      FontSpec font;
      font.size = size;
      const double width = measurer.lineWidth(text, font);
      EXPECT_EQ(width, std::ceil(width));
      const QRect ink = inkOf(text, font, {20, 20, width, 40}, true, 1);
      EXPECT_GE(ink.left(), 19) << text << " at " << size;
      EXPECT_LE(ink.right(), 20 + width) << text << " at " << size;
      EXPECT_GE(ink.top(), 20) << text;
      EXPECT_LE(ink.bottom(), 20 + measurer.metrics(font).lineHeight) << text;
    }
  }
}

TEST(TextMeasurer, wrappingKeepsToWidthAndLines) {
  const TextMeasurer measurer;
  const FontSpec font = measurer.styleFont(TextStyle::body);
  const std::string words = "Several words that need more than one line, and Donaudampfschiff";
  const double whole = measurer.lineWidth(words, font);
  const struct {
    std::string text;
    double width;
    int maxLines;
    int lines;
  } rows[] = {
      {words, kNoLimit, 0, 1}, {words, whole, 0, 1},        {words, whole / 2 + 20, 0, 2},
      {words, 60, 3, 3},       {"a\nb\nc", kNoLimit, 0, 3}, {"a\nb\nc", kNoLimit, 2, 2},
      {"", 100, 0, 1},
  };
  const double line = measurer.metrics(font).lineHeight;
  for (const auto& row : rows) {
    const TextSize size = measurer.wrapped(row.text, font, row.width, row.maxLines);
    EXPECT_EQ(size.lines, row.lines) << row.text << " in " << row.width;
    EXPECT_LE(size.width, row.width);
    EXPECT_EQ(size.height, row.lines * line);
    if (row.text.empty()) continue;
    const QRect ink = inkOf(row.text, font, {0, 0, size.width, size.height}, false, row.maxLines);
    EXPECT_LE(ink.right(), size.width) << row.text << " in " << row.width;
    EXPECT_LE(ink.bottom(), size.height) << row.text << " in " << row.width;
  }
  EXPECT_GT(measurer.wrapped(words, font, 0, 0).lines, 10);
  EXPECT_GT(measurer.wrapped(words, font, std::nan(""), 0).lines, 10);
}

TEST(TextMeasurer, whatIsCutEndsInAnEllipsis) {
  const TextMeasurer measurer;
  const FontSpec font = measurer.styleFont(TextStyle::body);
  const double two = measurer.wrapped("ab\ncd", font, kNoLimit, 1).width;
  EXPECT_EQ(two, measurer.lineWidth("ab\u2026", font));
}

TEST(TextMeasurer, badSizesAndWeightsStillMeasure) {
  const TextMeasurer measurer;
  for (const double size : {0.0, -3.0, std::nan(""), kNoLimit, 1e9, 0.01}) {
    for (const int weight : {-5, 0, 5000}) {
      const FontSpec font{"", size, weight, true, true};
      EXPECT_GE(measurer.lineWidth("a", font), 0);
      EXPECT_GT(measurer.metrics(font).lineHeight, 0);
    }
  }
}

}  // namespace
}  // namespace zq::qt
