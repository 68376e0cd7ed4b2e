// ZQSwiftUI, MIT licence; see LICENSE.
#include <QCoreApplication>
#include <QEvent>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTextDocument>
#include <QTimer>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <zqswiftui/platform/qt/accessibility.hpp>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/desktop.hpp>
#include <zqswiftui/platform/qt/font_cache.hpp>
#include <zqswiftui/platform/qt/foreign_drop.hpp>
#include <zqswiftui/platform/qt/host_fields.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/inspector_overlay.hpp>
#include <zqswiftui/platform/qt/painter_canvas.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq::qt {
namespace {

constexpr int kFrameMilliseconds = 16;
constexpr QSize kFallbackSize(640, 480);

QEvent::Type frameEvent() {
  static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
  return type;
}

int side(double length, int fallback) {
  if (!std::isfinite(length)) return fallback;
  return static_cast<int>(std::min(std::ceil(sanitized(length)), double{QWIDGETSIZE_MAX}));
}

Qt::CursorShape shapeOf(Cursor cursor) {
  switch (cursor) {
    case Cursor::pointingHand:
      return Qt::PointingHandCursor;
    case Cursor::crosshair:
      return Qt::CrossCursor;
    case Cursor::text:
      return Qt::IBeamCursor;
    case Cursor::resizeDiagonal:
      return Qt::SizeFDiagCursor;
    case Cursor::resizeDiagonalBack:
      return Qt::SizeBDiagCursor;
    case Cursor::resizeHorizontal:
      return Qt::SplitHCursor;
    case Cursor::resizeVertical:
      return Qt::SplitVCursor;
    case Cursor::grab:
      return Qt::OpenHandCursor;
    case Cursor::arrow:
      break;
  }
  return Qt::ArrowCursor;
}

// A piece of the display list may reach a pixel over its bounds: edges are rounded and
// smoothed.
QRect withEdges(const QRectF& rect) {
  return rect.adjusted(-1, -1, 1, 1).toAlignedRect();
}

}  // namespace

HostWidget::HostWidget(View root, QWidget* parent)
    : QWidget(parent),
      host_(std::make_unique<ViewHost>(std::move(root), static_cast<HostDelegate&>(*this))),
      fields_(std::make_unique<FieldEditors>(*this)),
      accessible_(std::make_shared<AccessibleTree>(*this)),
      fonts_(fontGeneration()),
      frameTimer_(new QTimer(this)) {
  setMouseTracking(true);
  setAcceptDrops(true);
  // Where a click leaves the focus is for the view to say.
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  frameTimer_->setTimerType(Qt::PreciseTimer);
  frameTimer_->setInterval(kFrameMilliseconds);
  frameTimer_->callOnTimeout(this, [this] { runFrame(); });
  appearanceListener_ =
      zq::Platform::current().appearance().addListener([this] { updateAppearance(); });
  host_->setVisible(false);
  updateAppearance();
}

HostWidget::~HostWidget() {
  if (zq::Platform::installed()) {
    zq::Platform::current().appearance().removeListener(appearanceListener_);
  }
  accessible_.reset();
  // A focused editor that goes would pass its focus on through this widget.
  fields_->giveFocusToHost();
  fields_.reset();
  inspector_.reset();
  host_.reset();
}

void HostWidget::setRoot(View root) {
  host_->setRoot(std::move(root));
}

QSize HostWidget::sizeHint() const {
  const Size ideal = host_->sizeThatFits(ProposedSize::unspecified());
  return {side(ideal.width, kFallbackSize.width()), side(ideal.height, kFallbackSize.height())};
}

QSize HostWidget::minimumSizeHint() const {
  const Size least = host_->sizeThatFits(ProposedSize::exactly({0, 0}));
  return {side(least.width, 0), side(least.height, 0)};
}

void HostWidget::frameRequested() {
  QCoreApplication::postEvent(this, new QEvent(frameEvent()));
}

void HostWidget::cursorChanged(Cursor cursor) {
  setCursor(shapeOf(cursor));
}

void HostWidget::helpChanged(const std::string& text, const Rect& bounds) {
  help_ = toQString(text);
  helpBounds_ = toQRectF(bounds).toAlignedRect();
  if (help_.isEmpty() && QToolTip::isVisible()) QToolTip::hideText();
}

void HostWidget::runFrame() {
  if (inFrame_) return;
  inFrame_ = true;
  host_->frame();
  inFrame_ = false;
  fields_->sync();
  accessible_->frameEnded();
  if (inspector_) inspector_->frameEnded();
  tellLayout();
  repaintDamage();
  pace();
}

void HostWidget::repaintDamage() {
  if (host_->damage().empty()) return;
  QRegion region;
  for (const Rect& rect : host_->damage().rects()) {
    region += withEdges(toQRectF(rect)) & this->rect();
  }
  host_->clearDamage();
  update(region);
}

void HostWidget::pace() {
  const bool run = host_->animating() && isVisible();
  if (run == frameTimer_->isActive()) return;
  run ? frameTimer_->start() : frameTimer_->stop();
}

// A layout around this widget asks only when it is told to.
void HostWidget::tellLayout() {
  if (isWindow() || parentWidget() == nullptr || parentWidget()->layout() == nullptr) return;
  const QSize hint = sizeHint();
  if (std::exchange(lastHint_, hint) != hint) updateGeometry();
}

void HostWidget::updateAppearance() {
  AppearanceValues values = zq::Platform::current().appearance().values();
  if (testAttribute(Qt::WA_SetPalette)) values.colorScheme = schemeOf(palette());
  if (testAttribute(Qt::WA_SetLayoutDirection)) {
    values.layoutDirection = layoutDirection() == Qt::RightToLeft ? LayoutDirection::rightToLeft
                                                                  : LayoutDirection::leftToRight;
  }
  appearance_ = values;
  host_->setAppearance(values);
  if (std::exchange(fonts_, fontGeneration()) != fontGeneration()) {
    host_->fontsChanged();
    fields_->fontsChanged();
  }
  update();
}

bool HostWidget::event(QEvent* event) {
  if (event->type() == frameEvent()) {
    runFrame();
    return true;
  }
  if (event->type() == QEvent::ToolTip) {
    showHelp(static_cast<QHelpEvent*>(event)->globalPos());
    return true;
  }
  // Another screen may have other pixels.
  if (event->type() == QEvent::ScreenChangeInternal) update();
  return QWidget::event(event);
}

void HostWidget::showHelp(QPoint position) {
  if (help_.isEmpty()) return QToolTip::hideText();
  // A text that happens to look like markup is shown as it stands.
  const QString shown = Qt::mightBeRichText(help_) ? help_.toHtmlEscaped() : help_;
  QToolTip::showText(position, shown, this, helpBounds_);
}

void HostWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QColor background = toQColor(Color::background().resolve(appearance_.colorScheme));
  Region region;
  for (const QRect& rect : event->region()) {
    painter.fillRect(rect, background);
    region.add(toRect(withEdges(QRectF(rect))));
  }
  PainterCanvas canvas(painter, painter.device()->devicePixelRatioF());
  host_->paint(canvas, region);
}

void HostWidget::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  host_->setSize({static_cast<double>(width()), static_cast<double>(height())});
  runFrame();
}

void HostWidget::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  host_->setVisible(true);
  host_->setWindowActive(isActiveWindow());
  runFrame();
}

void HostWidget::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  host_->setVisible(false);
  pace();
}

void HostWidget::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  switch (event->type()) {
    case QEvent::ActivationChange:
      return host_->setWindowActive(isActiveWindow());
    case QEvent::PaletteChange:
    case QEvent::LayoutDirectionChange:
      return updateAppearance();
    default:
      return;
  }
}

}  // namespace zq::qt
