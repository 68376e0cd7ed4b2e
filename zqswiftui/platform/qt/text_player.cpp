// ZQSwiftUI, MIT licence; see LICENSE.
#include <QPainter>
#include <QTextOption>
#include <cmath>
#include <zqswiftui/platform/qt/text_player.hpp>

namespace zq::qt {
namespace {

// The part of the free width that lies left of the text.
double freePartLeft(TextAlignment alignment, LayoutDirection direction) {
  const double part = 0.5 * static_cast<double>(alignment);
  return direction == LayoutDirection::rightToLeft ? 1 - part : part;
}

QStaticText shapedLine(const TextContent& content, const QFont& font) {
  QString text;
  setShapedText(text, content.text, LineFeeds::asSpaces);
  QStaticText line(text);
  line.setTextFormat(Qt::PlainText);
  line.setPerformanceHint(QStaticText::AggressiveCaching);
  QTextOption option;
  option.setWrapMode(QTextOption::NoWrap);
  line.setTextOption(option);
  line.prepare({}, font);
  return line;
}

}  // namespace

PreparedText::PreparedText(const TextContent& content) : generation_(fontGeneration()) {
  const FontEntry& entry = fontEntry(content.font);
  font_ = entry.font;
  ascent_ = entry.ascent;
  lineHeight_ = entry.lineHeight;
}

PreparedText& PreparedText::of(const TextContent& content) {
  auto* prepared = static_cast<PreparedText*>(content.playerCache.get());
  if (prepared == nullptr || prepared->generation_ != fontGeneration()) {
    content.playerCache = std::make_shared<PreparedText>(content);
    prepared = static_cast<PreparedText*>(content.playerCache.get());
  }
  return *prepared;
}

void PreparedText::draw(QPainter& painter, const PixelGrid& grid, const DrawText& text,
                        const PlayState& state) {
  const Rect rect = text.rect.offsetBy(state.origin);
  const double left = freePartLeft(text.alignment, state.direction);
  if (text.singleLine) {
    if (!line_) {
      line_ = shapedLine(*text.content, font_);
      lineWidth_ = std::ceil(line_->size().width());
    }
    return drawLine(painter, grid, rect, left);
  }
  breakLines(*text.content, {rect.width, text.maxLines, text.elideMiddle});
  drawLines(painter, grid, rect, left);
}

void PreparedText::drawLine(QPainter& painter, const PixelGrid& grid, const Rect& rect,
                            double aside) {
  const double x = rect.x + (rect.width - lineWidth_) * aside;
  const double baseline = grid.snap(rect.y + ascent_);
  painter.drawStaticText(QPointF(grid.snap(x), baseline - ascent_), *line_);
}

void PreparedText::breakLines(const TextContent& content, const TextLimits& limits) {
  if (lines_ && lines_->limits == limits) return;
  QString text;
  setShapedText(text, content.text, LineFeeds::kept);
  lines_ = std::make_unique<Lines>(Lines{limits, TextBlock(text, fontEntry(content.font), limits)});
}

void PreparedText::drawLines(QPainter& painter, const PixelGrid& grid, const Rect& rect,
                             double aside) {
  double baseline = rect.y + ascent_;
  for (const TextBlock::Line& line : lines_->block.lines()) {
    const double x = rect.x + (rect.width - std::ceil(line.width)) * aside;
    line.line.draw(&painter, {grid.snap(x), grid.snap(baseline) - line.line.ascent()});
    baseline += lineHeight_;
  }
}

}  // namespace zq::qt
