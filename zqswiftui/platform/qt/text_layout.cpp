// ZQSwiftUI, MIT licence; see LICENSE.
#include <QTextOption>
#include <algorithm>
#include <cmath>
#include <zqswiftui/platform/qt/text_layout.hpp>

namespace zq::qt {
namespace {

// Qt computes lengths of lines in 26.6 bits.
constexpr double kMaxWidth = 1 << 24;
constexpr QChar kEllipsis(0x2026);

bool isControl(char16_t c) {
  return c < 0x20 || c == 0x7f;
}

char16_t shaped(char16_t c, LineFeeds lineFeeds) {
  if (!isControl(c)) return c;
  return c == u'\n' && lineFeeds == LineFeeds::kept ? char16_t{QChar::LineSeparator} : u' ';
}

QTextOption lineOption(QTextOption::WrapMode wrap) {
  QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
  option.setWrapMode(wrap);
  return option;
}

// One that stands for all that comes after it: cut at the width, or ended where the text goes
// on in a line that is not shown.
QString shortenedLine(const QString& rest, const FontEntry& font, double width, bool middle) {
  const auto mode = middle ? Qt::ElideMiddle : Qt::ElideRight;
  const qsizetype feed = rest.indexOf(QChar(QChar::LineSeparator));
  if (feed < 0) return font.metrics.elidedText(rest, mode, width);
  const QString first = rest.left(feed);
  QString marked = first + kEllipsis;
  if (font.metrics.horizontalAdvance(marked) <= width) return marked;
  return font.metrics.elidedText(first + QChar(u' ') + kEllipsis, Qt::ElideRight, width);
}

// Qt keeps free what the last glyph leans out by, which no measured width contains; a text
// must fit into the width that it was measured to have.
void fitLine(QTextLine& line, const FontEntry& font, double width) {
  line.setLineWidth(width + std::max(0.0, -font.metrics.minRightBearing()));
  if (line.horizontalAdvance() > width) line.setLineWidth(width);
}

}  // namespace

void setShapedText(QString& text, std::string_view utf8, LineFeeds lineFeeds) {
  text.resize(static_cast<qsizetype>(utf8.size()));
  QChar* out = text.data();
  for (const char c : utf8) {
    if (static_cast<signed char>(c) < 0) {
      text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
      for (QChar& wide : text) wide = QChar(shaped(wide.unicode(), lineFeeds));
      return;
    }
    *out++ = QChar(shaped(static_cast<char16_t>(c), lineFeeds));
  }
}

TextBlock::TextBlock(const QString& text, const FontEntry& font, const TextLimits& limits)
    : body_(std::make_unique<QTextLayout>(text, font.font)) {
  body_->setCacheEnabled(true);
  TextLimits bounded = limits;
  bounded.width = std::clamp(limits.width, 0.0, kMaxWidth);
  if (!(bounded.width >= 0)) bounded.width = 0;
  if (limits.elideMiddle && limits.maxLines == 1) {
    addShortened(text, font, bounded);
  } else {
    breakLines(text, font, bounded);
  }
}

void TextBlock::breakLines(const QString& text, const FontEntry& font, const TextLimits& limits) {
  body_->setTextOption(lineOption(QTextOption::WrapAtWordBoundaryOrAnywhere));
  body_->beginLayout();
  for (QTextLine line = body_->createLine(); line.isValid(); line = body_->createLine()) {
    fitLine(line, font, limits.width);
    line.setPosition({0, 0});
    const qsizetype end = line.textStart() + line.textLength();
    const bool last = limits.maxLines > 0 && static_cast<int>(lines_.size()) + 1 == limits.maxLines;
    if (last && end < text.size()) {
      body_->endLayout();
      return addShortened(text.mid(line.textStart()), font, limits);
    }
    lines_.push_back({line, line.horizontalAdvance()});
  }
  body_->endLayout();
}

void TextBlock::addShortened(const QString& rest, const FontEntry& font, const TextLimits& limits) {
  const QString line = shortenedLine(rest, font, limits.width, limits.elideMiddle);
  shortened_ = std::make_unique<QTextLayout>(line, font.font);
  shortened_->setCacheEnabled(true);
  shortened_->setTextOption(lineOption(QTextOption::NoWrap));
  shortened_->beginLayout();
  QTextLine only = shortened_->createLine();
  if (only.isValid()) {
    only.setLineWidth(kMaxWidth);
    only.setPosition({0, 0});
    lines_.push_back({only, only.horizontalAdvance()});
  }
  shortened_->endLayout();
}

double TextBlock::width() const {
  double widest = 0;
  for (const Line& line : lines_) widest = std::max(widest, line.width);
  return widest;
}

}  // namespace zq::qt
