// ZQSwiftUI, MIT licence; see LICENSE.
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/inspector_overlay.hpp>
#include <zqswiftui/platform/qt/painter_canvas.hpp>

namespace zq::qt {
namespace {

constexpr int kFlashMilliseconds = 400;

}  // namespace

InspectorOverlay::InspectorOverlay(HostWidget& host)
    : QWidget(&host), host_(host), inspector_(host.host()), flash_(new QTimer(this)) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  setGeometry(host.rect());
  flash_->setSingleShot(true);
  flash_->setInterval(kFlashMilliseconds);
  flash_->callOnTimeout(this, [this] {
    inspector_.endFlash();
    update();
  });
  host.installEventFilter(this);
  if (host.underMouse()) setPointer(toPoint(host.mapFromGlobal(QPointF(QCursor::pos()))));
  show();
}

InspectorOverlay::~InspectorOverlay() = default;

void InspectorOverlay::frameEnded() {
  inspector_.frameEnded();
  raise();  // over editors that have come since
  update();
  flash_->start();
}

void InspectorOverlay::setPointer(std::optional<Point> point) {
  if (inspector_.setPointer(point)) update();
}

bool InspectorOverlay::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::MouseMove) {
    setPointer(toPoint(static_cast<QMouseEvent*>(event)->position()));
  }
  if (event->type() == QEvent::Leave) setPointer(std::nullopt);
  if (event->type() == QEvent::Resize) setGeometry(host_.rect());
  return false;
}

void InspectorOverlay::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PainterCanvas canvas(painter, painter.device()->devicePixelRatioF());
  inspector_.paint(canvas);
}

}  // namespace zq::qt
