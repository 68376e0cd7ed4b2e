// ZQSwiftUI, MIT licence; see LICENSE.
#include <QLinearGradient>
#include <algorithm>
#include <cmath>
#include <zqswiftui/platform/qt/painter_canvas.hpp>
#include <zqswiftui/platform/qt/picture_cache.hpp>
#include <zqswiftui/platform/qt/pill_cache.hpp>
#include <zqswiftui/platform/qt/symbol_cache.hpp>
#include <zqswiftui/platform/qt/text_player.hpp>
#include <zqswiftui/platform/services/require.hpp>

namespace zq::qt {
namespace {

// Nobody looks at more than this of one symbol; beyond it the picture is stretched.
constexpr int kMaxSymbolSide = 2048;

QLinearGradient toQGradient(const LinearGradient& gradient, const Rect& rect,
                            const PlayState& state) {
  const auto at = [&](UnitPoint p) {
    return QPointF(rect.x + rect.width * p.x, rect.y + rect.height * p.y);
  };
  QLinearGradient result(at(gradient.startPoint), at(gradient.endPoint));
  for (const LinearGradient::Stop& stop : gradient.stops) {
    const double location = std::clamp(sanitized(stop.location), 0.0, 1.0);
    result.setColorAt(location, toQColor(stop.color.resolve(state.scheme), state.opacity));
  }
  return result;
}

QPen penOf(const StrokeStyle& style, const QBrush& brush) {
  const double width = sanitized(style.lineWidth);
  QPen pen(brush, width, Qt::SolidLine, style.roundCap ? Qt::RoundCap : Qt::FlatCap,
           style.roundJoin ? Qt::RoundJoin : Qt::SvgMiterJoin);
  pen.setMiterLimit(10);
  if (style.dash.empty() || !(width > 0)) return pen;
  QList<qreal> dash;
  for (const double length : style.dash) dash.push_back(sanitized(length) / width);
  if (dash.size() % 2 != 0) dash += dash;  // lines and gaps swap places in the second round
  if (*std::max_element(dash.begin(), dash.end()) > 0) {
    pen.setDashPattern(dash);
    if (std::isfinite(style.dashPhase)) pen.setDashOffset(style.dashPhase / width);
  }
  return pen;
}

// The two ends of a path that is one level or upright line, drawn whole.
const Path::Element* straightLine(const Path& path, const StrokeStyle& style) {
  const auto& e = path.elements();
  const bool line = e.size() == 2 && e[0].verb == Path::Verb::move &&
                    e[1].verb == Path::Verb::line && !style.roundCap && style.dash.empty();
  return line && (e[0].p3.x == e[1].p3.x || e[0].p3.y == e[1].p3.y) ? e.data() : nullptr;
}

// A whole outline with square corners.
bool isFrame(const StrokePath& shape) {
  return shape.path->isRect() && !shape.style.roundJoin && shape.style.dash.empty();
}

}  // namespace

PainterCanvas::PainterCanvas(QPainter& painter, double scale)
    : painter_(&painter), grid_{std::isfinite(scale) && scale > 0 ? scale : 1.0} {
  forgetPainterState();
}

PainterCanvas::~PainterCanvas() {
  while (!pushed_.empty()) pop();
}

void PainterCanvas::draw(const DrawCommand& command, const PlayState& state) {
  std::visit([&](const auto& shape) { drawShape(shape, state); }, command);
}

void PainterCanvas::drawShape(const FillRect& shape, const PlayState& state) {
  if (shape.rect.empty()) return;
  const Rect rect = grid_.snap(shape.rect.offsetBy(state.origin));
  // Snapped edges lie on pixels, unless a scaling moves them off.
  setAntialiasing(scaledDepth_ > 0 || softClips_ > 0);
  if (const auto* color = shape.paint.color()) {
    brushIsFill_ = brushIsFill_ && fill_.color == *color && fill_.scheme == state.scheme &&
                   fill_.opacity == state.opacity;
    painter_->fillRect(toQRectF(rect), resolved(fill_, *color, state));
  } else {
    painter_->fillRect(toQRectF(rect), brushOf(shape.paint, rect, state));
  }
}

void PainterCanvas::drawShape(const FillRoundedRect& shape, const PlayState& state) {
  if (shape.rect.empty()) return;
  const Rect rect = grid_.snap(shape.rect.offsetBy(state.origin));
  const double radius = std::min(sanitized(shape.radius), std::min(rect.width, rect.height) / 2);
  if (drawPill(shape, rect, radius, state)) return;
  setAntialiasing(true);
  withoutPen();
  fillWith(shape.paint, rect, state);
  if (shape.continuous && radius > 0) {
    painter_->drawPath(toPainterPath(Path().addRoundedRect(rect, radius, true), {}));
  } else {
    painter_->drawRoundedRect(toQRectF(rect), radius, radius);
  }
}

bool PainterCanvas::drawPill(const FillRoundedRect& shape, const Rect& rect, double radius,
                             const PlayState& state) {
  const auto* color = shape.paint.color();
  // A scaling would show the pixels of the picture.
  if (color == nullptr || scaledDepth_ > 0 || !(radius > 0)) return false;
  const QSizeF exact(rect.width * grid_.scale, rect.height * grid_.scale);
  if (!(exact.width() < kMaxSymbolSide && exact.height() < kMaxSymbolSide)) return false;
  const QSize pixels = exact.toSize();
  if (!PillCache::takes(pixels)) return false;
  brushIsFill_ = brushIsFill_ && fill_.color == *color && fill_.scheme == state.scheme &&
                 fill_.opacity == state.opacity;
  const QRgb tint = resolved(fill_, *color, state).rgba();
  const QImage image =
      PillCache::shared().image(pixels, radius * grid_.scale, shape.continuous, tint);
  drawImage(rect, image);
  return true;
}

void PainterCanvas::drawShape(const FillPath& shape, const PlayState& state) {
  if (!shape.path || shape.path->empty()) return;
  // A path that is crisp by itself stays so: its place is a whole pixel.
  const Point origin = grid_.snap(state.origin);
  setAntialiasing(true);
  withoutPen();
  fillWith(shape.paint, shape.rect.offsetBy(origin), state);
  painter_->drawPath(toPainterPath(*shape.path, origin));
}

void PainterCanvas::drawShape(const StrokePath& shape, const PlayState& state) {
  if (!shape.path || shape.path->empty() || !(shape.style.lineWidth > 0)) return;
  if (scaledDepth_ == 0 && isFrame(shape)) return drawFrame(shape, state);
  const Point origin = grid_.snap(state.origin);
  const Path::Element* line = straightLine(*shape.path, shape.style);
  if (line != nullptr && scaledDepth_ == 0) return drawLine(line, shape, origin, state);
  if (scaledDepth_ == 0 && drawRing(shape, origin, state)) return;
  setAntialiasing(true);
  const QBrush brush = brushOf(shape.paint, shape.rect.offsetBy(origin), state);
  painter_->strokePath(toPainterPath(*shape.path, origin), penOf(shape.style, brush));
}

// How broad a line is on whole pixels.
double PainterCanvas::breadthOf(const StrokeStyle& style) const {
  return std::max(1.0, std::round(style.lineWidth * grid_.scale)) / grid_.scale;
}

// On whole pixels: half of a line of one pixel would lie on either side of its place, and be seen
// as two pale ones.
double PainterCanvas::lineStart(double middle, double breadth) const {
  return std::floor((middle - breadth / 2) * grid_.scale + 0.5) / grid_.scale;
}

void PainterCanvas::drawLine(const Path::Element* ends, const StrokePath& shape, Point origin,
                             const PlayState& state) {
  const Point from = ends[0].p3, to = ends[1].p3;
  const bool upright = from.x == to.x;
  const double breadth = breadthOf(shape.style);
  const auto across = [&](double middle) { return lineStart(middle, breadth); };
  const auto [low, high] = upright ? std::minmax(from.y, to.y) : std::minmax(from.x, to.x);
  const Rect rect = upright ? Rect{across(from.x + origin.x), low + origin.y, breadth, high - low}
                            : Rect{low + origin.x, across(from.y + origin.y), high - low, breadth};
  PlayState placed = state;
  placed.origin = {};
  drawShape(FillRect{rect, shape.paint}, placed);
}

// Each side as a line on whole pixels; many large ones that cross cost little where only parts of
// them are painted.
void PainterCanvas::drawFrame(const StrokePath& shape, const PlayState& state) {
  const double breadth = breadthOf(shape.style);
  const Rect middle = shape.path->bounds().offsetBy(state.origin);
  const double left = lineStart(middle.x, breadth), top = lineStart(middle.y, breadth);
  const double right = lineStart(middle.maxX(), breadth) + breadth;
  const double bottom = lineStart(middle.maxY(), breadth) + breadth;
  PlayState placed = state;
  placed.origin = {};
  const auto fill = [&](const Rect& rect) { drawShape(FillRect{rect, shape.paint}, placed); };
  if (right - left <= 2 * breadth || bottom - top <= 2 * breadth) {
    return fill({left, top, right - left, bottom - top});
  }
  fill({left, top, right - left, breadth});
  fill({left, bottom - breadth, right - left, breadth});
  fill({left, top + breadth, breadth, bottom - top - 2 * breadth});
  fill({right - breadth, top + breadth, breadth, bottom - top - 2 * breadth});
}

// A small outline with round corners, as a picture where it begins and ends on whole pixels.
bool PainterCanvas::drawRing(const StrokePath& shape, Point origin, const PlayState& state) {
  const auto* color = shape.paint.color();
  if (color == nullptr || !(shape.radius > 0) || !shape.style.dash.empty()) return false;
  const Rect rect = shape.rect.offsetBy(origin);
  const QSizeF exact(rect.width * grid_.scale, rect.height * grid_.scale);
  if (!(exact.width() < kMaxSymbolSide && exact.height() < kMaxSymbolSide)) return false;
  const QSize pixels = exact.toSize();
  if (!PillCache::takes(pixels) || QSizeF(pixels) != exact) return false;
  const QRgb tint = toQColor(color->resolve(state.scheme), state.opacity).rgba();
  const QImage image =
      PillCache::shared().image(pixels, shape.radius * grid_.scale, shape.continuous, tint,
                                shape.style.lineWidth * grid_.scale);
  drawImage(rect, image);
  return true;
}

void PainterCanvas::drawShape(const DrawText& text, const PlayState& state) {
  if (!text.content || text.content->text.empty()) return;
  PreparedText& prepared = PreparedText::of(*text.content);
  if (!fontKnown_ || !prepared.font().isCopyOf(font_)) {
    font_ = prepared.font();
    painter_->setFont(font_);
    fontKnown_ = true;
  }
  const bool same =
      text_.color == text.color && text_.scheme == state.scheme && text_.opacity == state.opacity;
  if (!same) textPen_ = QPen(resolved(text_, text.color, state));
  if (!same || pen_ != PenIs::text) {
    painter_->setPen(textPen_);
    pen_ = PenIs::text;
  }
  prepared.draw(*painter_, grid_, text, state);
}

void PainterCanvas::drawShape(const DrawSymbol& symbol, const PlayState& state) {
  if (symbol.drawing == nullptr || symbol.rect.empty()) return;
  const Rect rect = grid_.snap(symbol.rect.offsetBy(state.origin));
  const auto side = [&](double length) {
    return static_cast<int>(std::min(std::round(length * grid_.scale), double{kMaxSymbolSide}));
  };
  const QColor color = toQColor(symbol.color.resolve(state.scheme));
  const QImage image = SymbolCache::shared().image(
      *symbol.drawing, {side(rect.width), side(rect.height)}, color.rgba());
  withOpacity(state.opacity, [&] { drawImage(rect, image); });
}

void PainterCanvas::drawShape(const DrawPicture& picture, const PlayState& state) {
  if (picture.rect.empty()) return;
  const Rect rect = grid_.snap(picture.rect.offsetBy(state.origin));
  setAntialiasing(softClips_ > 0);
  withOpacity(state.opacity, [&] { drawPicture(*painter_, grid_, rect, picture.picture); });
}

const QColor& PainterCanvas::resolved(Tint& tint, const Color& color, const PlayState& state) {
  if (tint.opacity != state.opacity || tint.scheme != state.scheme || tint.color != color) {
    tint = {color, state.scheme, state.opacity,
            toQColor(color.resolve(state.scheme), state.opacity)};
  }
  return tint.resolved;
}

QBrush PainterCanvas::brushOf(const Paint& paint, const Rect& rect, const PlayState& state) {
  if (const auto* gradient = paint.gradient()) {
    return toQGradient(*gradient, rect, state);
  }
  return toQColor(paint.color()->resolve(state.scheme), state.opacity);
}

void PainterCanvas::fillWith(const Paint& paint, const Rect& rect, const PlayState& state) {
  const auto* color = paint.color();
  if (color == nullptr) {
    painter_->setBrush(brushOf(paint, rect, state));
    brushIsFill_ = false;
    return;
  }
  if (brushIsFill_ && fill_.opacity == state.opacity && fill_.scheme == state.scheme &&
      fill_.color == *color) {
    return;
  }
  painter_->setBrush(resolved(fill_, *color, state));
  brushIsFill_ = true;
}

void PainterCanvas::drawImage(const Rect& rect, const QImage& image) {
  setAntialiasing(softClips_ > 0);
  drawOnPixels(*painter_, grid_, rect, image);
}

void PainterCanvas::setAntialiasing(bool on) {
  if (antialiasing_ == on) return;
  painter_->setRenderHint(QPainter::Antialiasing, on);
  antialiasing_ = on;
}

void PainterCanvas::withoutPen() {
  if (pen_ == PenIs::none) return;
  painter_->setPen(noPen_);
  pen_ = PenIs::none;
}

void PainterCanvas::withOpacity(double opacity, const auto& drawing) {
  if (opacity >= 1) return drawing();
  const double outer = painter_->opacity();
  painter_->setOpacity(outer * sanitized(opacity));
  drawing();
  painter_->setOpacity(outer);
}

void PainterCanvas::forgetPainterState() {
  fontKnown_ = false;
  brushIsFill_ = false;
  pen_ = PenIs::unknown;
  antialiasing_ = false;
  painter_->setRenderHints(QPainter::Antialiasing, false);
  painter_->setRenderHints(QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
}

void PainterCanvas::pushClip(const Rect& rect) {
  pushed_.emplace_back();
  painter_->save();
  const Rect clip = rect.empty() ? Rect{} : grid_.snap(rect);
  painter_->setClipRect(toQRectF(clip), Qt::IntersectClip);
}

void PainterCanvas::pushClip(const Path& path, Point origin) {
  Pushed entry;
  entry.softClip = true;
  pushed_.push_back(std::move(entry));
  ++softClips_;
  painter_->save();
  painter_->setRenderHint(QPainter::Antialiasing);
  antialiasing_ = true;
  painter_->setClipPath(onGrid(path, grid_.snap(origin)), Qt::IntersectClip);
}

// With its outermost edges on whole pixels, as those of what is filled: Qt takes what remains
// of a soft edge in a partial repaint for a hard one.
QPainterPath PainterCanvas::onGrid(const Path& path, Point origin) const {
  const Rect exact = path.bounds();
  const Rect snapped = grid_.snap(exact.offsetBy(origin));
  if (!(exact.width > 0 && exact.height > 0)) return toPainterPath(path, origin);
  const double scaleX = snapped.width / exact.width, scaleY = snapped.height / exact.height;
  return toPainterPath(path, {snapped.x - exact.x * scaleX, snapped.y - exact.y * scaleY}, scaleX,
                       scaleY);
}

void PainterCanvas::pushScale(double scaleX, double scaleY, Point about) {
  Pushed entry;
  entry.scaled = true;
  pushed_.push_back(std::move(entry));
  ++scaledDepth_;
  painter_->save();
  painter_->translate(about.x, about.y);
  painter_->scale(std::isfinite(scaleX) ? scaleX : 1.0, std::isfinite(scaleY) ? scaleY : 1.0);
  painter_->translate(-about.x, -about.y);
}

void PainterCanvas::pushOpacity(double opacity, const Rect& bounds) {
  // Only what shows is worth a picture; a list scrolled inside a window may be very long.
  const QPaintDevice* device = painter_->device();
  const QRectF whole = painter_->combinedTransform().inverted().mapRect(
      QRectF(0, 0, device->width() * device->devicePixelRatioF(),
             device->height() * device->devicePixelRatioF()));
  Rect shown = intersection(bounds, toRect(whole));
  if (painter_->hasClipping()) shown = intersection(shown, toRect(painter_->clipBoundingRect()));
  // Edges and strokes that were rounded outwards.
  const Rect target = shown.empty() ? Rect{} : grid_.snap(shown.insetBy(-2 / grid_.scale));

  Pushed entry;
  entry.outer = painter_;
  entry.target = target;
  entry.opacity = std::clamp(sanitized(opacity), 0.0, 1.0);
  const auto pixels = [&](double length) {
    return std::max(1, static_cast<int>(std::lround(length * grid_.scale)));
  };
  entry.image = std::make_unique<QImage>(pixels(target.width), pixels(target.height),
                                         QImage::Format_ARGB32_Premultiplied);
  entry.image->setDevicePixelRatio(grid_.scale);
  entry.image->fill(Qt::transparent);
  entry.painter = std::make_unique<QPainter>(entry.image.get());
  entry.painter->translate(-target.x, -target.y);
  painter_ = entry.painter.get();
  pushed_.push_back(std::move(entry));
  forgetPainterState();
}

void PainterCanvas::pop() {
  ZQ_REQUIRE(!pushed_.empty(), "PainterCanvas: pop() without a push");
  const Pushed entry = std::move(pushed_.back());
  pushed_.pop_back();
  if (entry.outer == nullptr) {
    painter_->restore();
    if (entry.scaled) --scaledDepth_;
    if (entry.softClip) --softClips_;
  } else {
    entry.painter->end();
    painter_ = entry.outer;
    forgetPainterState();
    withOpacity(entry.opacity, [&] {
      entry.image->setDevicePixelRatio(1);
      drawImage(entry.target, *entry.image);
    });
  }
  forgetPainterState();
}

}  // namespace zq::qt
