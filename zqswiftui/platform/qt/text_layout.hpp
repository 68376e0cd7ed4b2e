// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QString>
#include <QTextLayout>
#include <memory>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/qt/font_cache.hpp>

class QPainter;

namespace zq::qt {

enum class LineFeeds { asSpaces, kept };

// The text as it is shaped: control characters, which have no width of their own that shaping
// and measuring agree upon, are blanks. Writes into `text` to reuse its memory.
void setShapedText(QString& text, std::string_view utf8, LineFeeds lineFeeds);

struct TextLimits {
  double width = 0;  // points; infinity: only line feeds break
  int maxLines = 0;  // 0: any number
  bool elideMiddle = false;
  bool operator==(const TextLimits&) const = default;
};

// A text broken into lines, the last one shortened where the text does not fit. Measuring and
// painting both use it, so what is painted is never larger than what was measured.
class TextBlock {
 public:
  TextBlock(const QString& text, const FontEntry& font, const TextLimits& limits);

  struct Line {
    QTextLine line;
    double width = 0;
  };
  const std::vector<Line>& lines() const { return lines_; }
  double width() const;

 private:
  void breakLines(const QString& text, const FontEntry& font, const TextLimits& limits);
  void addShortened(const QString& rest, const FontEntry& font, const TextLimits& limits);

  std::unique_ptr<QTextLayout> body_;  // where its lines find it when the block moves
  std::unique_ptr<QTextLayout> shortened_;
  std::vector<Line> lines_;
};

}  // namespace zq::qt
