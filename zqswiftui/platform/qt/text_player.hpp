// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QFont>
#include <QStaticText>
#include <memory>
#include <optional>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/text_layout.hpp>
#include <zqswiftui/platform/toolkit/canvas.hpp>
#include <zqswiftui/platform/toolkit/display_list.hpp>

class QPainter;

namespace zq::qt {

// A text in its shaped form, kept with its content between frames.
class PreparedText {
 public:
  // That of the content, made where there is none or the fonts have changed since.
  static PreparedText& of(const TextContent& content);

  explicit PreparedText(const TextContent& content);

  // Draws with the painter's pen; font() must be the painter's font.
  void draw(QPainter& painter, const PixelGrid& grid, const DrawText& text, const PlayState& state);
  const QFont& font() const { return font_; }

 private:
  struct Lines {
    TextLimits limits;
    TextBlock block;
  };
  void drawLine(QPainter& painter, const PixelGrid& grid, const Rect& rect, double aside);
  void drawLines(QPainter& painter, const PixelGrid& grid, const Rect& rect, double aside);
  void breakLines(const TextContent& content, const TextLimits& limits);

  QFont font_;
  double ascent_ = 0;
  double lineHeight_ = 0;
  unsigned generation_ = 0;
  double lineWidth_ = 0;
  std::optional<QStaticText> line_;
  // A text is hardly ever drawn in two widths, so one form is kept.
  std::unique_ptr<Lines> lines_;
};

}  // namespace zq::qt
