// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <memory>
#include <vector>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/toolkit/canvas.hpp>

namespace zq::qt {

// Plays display lists with a QPainter whose units are points, on a device of `scale` pixels a
// point. Takes the painter over: whoever draws with it afterwards sets what he needs.
//   QPainter painter(&image);
//   PainterCanvas canvas(painter, image.devicePixelRatio());
//   host.paintAll(canvas);
class PainterCanvas final : public Canvas {
 public:
  PainterCanvas(QPainter& painter, double scale);
  ~PainterCanvas() override;
  PainterCanvas(const PainterCanvas&) = delete;
  PainterCanvas& operator=(const PainterCanvas&) = delete;

  void draw(const DrawCommand& command, const PlayState& state) override;
  void pushClip(const Rect& rect) override;
  void pushClip(const Path& path, Point origin) override;
  void pushOpacity(double opacity, const Rect& bounds) override;
  void pushScale(double scaleX, double scaleY, Point about) override;
  void pop() override;

 private:
  enum class PenIs : unsigned char { unknown, none, text };
  // What a push changed: the painter's state, or the painter itself for a picture apart.
  struct Pushed {
    QPainter* outer = nullptr;  // of a picture apart
    std::unique_ptr<QImage> image;
    std::unique_ptr<QPainter> painter;
    Rect target;
    double opacity = 1;
    bool scaled = false;
    bool softClip = false;
  };
  // The last colour and what it became, for runs of commands in one colour.
  struct Tint {
    Color color;
    ColorScheme scheme = ColorScheme::light;
    double opacity = -1;
    QColor resolved;
  };

  void drawShape(const FillRect& shape, const PlayState& state);
  void drawShape(const FillRoundedRect& shape, const PlayState& state);
  // As a copy of a kept picture, where it is small and of one colour; false: to be drawn.
  bool drawPill(const FillRoundedRect& shape, const Rect& rect, double radius,
                const PlayState& state);
  void drawShape(const FillPath& shape, const PlayState& state);
  void drawShape(const StrokePath& shape, const PlayState& state);
  double breadthOf(const StrokeStyle& style) const;
  double lineStart(double middle, double breadth) const;
  void drawFrame(const StrokePath& shape, const PlayState& state);
  bool drawRing(const StrokePath& shape, Point origin, const PlayState& state);
  void drawLine(const Path::Element* ends, const StrokePath& shape, Point origin,
                const PlayState& state);
  void drawShape(const DrawText& text, const PlayState& state);
  void drawShape(const DrawSymbol& symbol, const PlayState& state);
  void drawShape(const DrawPicture& picture, const PlayState& state);

  const QColor& resolved(Tint& tint, const Color& color, const PlayState& state);
  QBrush brushOf(const Paint& paint, const Rect& rect, const PlayState& state);
  void fillWith(const Paint& paint, const Rect& rect, const PlayState& state);
  QPainterPath onGrid(const Path& path, Point origin) const;
  void drawImage(const Rect& rect, const QImage& image);  // pixel for pixel
  void setAntialiasing(bool on);
  void withoutPen();
  void withOpacity(double opacity, const auto& drawing);
  void forgetPainterState();

  QPainter* painter_;
  PixelGrid grid_;
  std::vector<Pushed> pushed_;
  int scaledDepth_ = 0;
  int softClips_ = 0;  // Qt cuts hard along a soft edge what is drawn without antialiasing

  Tint fill_;
  Tint text_;
  const QPen noPen_{Qt::NoPen};
  QPen textPen_;
  QFont font_;
  bool fontKnown_ = false;
  bool brushIsFill_ = false;  // the painter's brush is that of fill_
  PenIs pen_ = PenIs::unknown;
  bool antialiasing_ = false;
};

}  // namespace zq::qt
