// ZQSwiftUI, MIT licence; see LICENSE.
#include <QApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/drop_offer.hpp>
#include <zqswiftui/platform/qt/foreign_drop.hpp>
#include <zqswiftui/platform/qt/host_fields.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/inspector_overlay.hpp>

namespace zq::qt {
namespace {

// Qt counts a wheel in eighths of a degree, 120 for a notch; a notch scrolls by 48 points.
constexpr double kPointsPerEighth = 48.0 / 120.0;

constexpr std::array<std::pair<int, Key>, 17> kKeys{{
    {Qt::Key_Tab, Key::tab},
    {Qt::Key_Backtab, Key::tab},
    {Qt::Key_Return, Key::enter},
    {Qt::Key_Enter, Key::enter},
    {Qt::Key_Escape, Key::escape},
    {Qt::Key_Space, Key::space},
    {Qt::Key_Backspace, Key::backspace},
    {Qt::Key_Delete, Key::deleteForward},
    {Qt::Key_Left, Key::left},
    {Qt::Key_Right, Key::right},
    {Qt::Key_Up, Key::up},
    {Qt::Key_Down, Key::down},
    {Qt::Key_Home, Key::home},
    {Qt::Key_End, Key::end},
    {Qt::Key_PageUp, Key::pageUp},
    {Qt::Key_PageDown, Key::pageDown},
    {Qt::Key_Menu, Key::menu},
}};

Modifiers modifiersOf(Qt::KeyboardModifiers modifiers) {
  return {modifiers.testFlag(Qt::ShiftModifier), modifiers.testFlag(Qt::ControlModifier),
          modifiers.testFlag(Qt::AltModifier)};
}

PointerButton buttonOf(Qt::MouseButton button) {
  if (button == Qt::LeftButton) return PointerButton::primary;
  return button == Qt::RightButton ? PointerButton::secondary : PointerButton::middle;
}

// Keys that neither type nor mean anything here are none.
std::optional<KeyEvent> toKeyEvent(const QKeyEvent& event) {
  KeyEvent result;
  result.modifiers = modifiersOf(event.modifiers());
  const QString text = event.text();
  if (!text.isEmpty() && text.front().isPrint()) result.text = text.toStdString();
  for (const auto& [key, meaning] : kKeys) {
    if (event.key() != key) continue;
    result.key = meaning;
    if (key == Qt::Key_Backtab) result.modifiers.shift = true;
    return result;
  }
  if (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier) {
    return KeyEvent{.key = Key::menu, .text = {}, .modifiers = {}};
  }
  // With Control held a key types nothing, but it still is that letter.
  if (result.text.empty() && event.key() > Qt::Key_Space && event.key() < 0x7f) {
    result.text = QString(QChar(event.key())).toLower().toStdString();
  }
  if (result.text.empty()) return std::nullopt;
  return result;
}

// The types alone: the data is fetched when it is dropped.
DropInfo offered(const QDropEvent& event) {
  return {toPoint(event.position()), offeredTypes(*event.mimeData())};
}

bool hasFile(const DragItems& items) {
  return std::any_of(items.begin(), items.end(),
                     [](const auto& item) { return item->types().front() == dragTypeFileUrl; });
}

bool byKeyboard(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
}

}  // namespace

int HostWidget::countClicks(const QMouseEvent& event) {
  const QPoint position = event.position().toPoint();
  const bool again = sincePress_.isValid() &&
                     sincePress_.elapsed() < QApplication::doubleClickInterval() &&
                     (position - lastPress_).manhattanLength() < QApplication::startDragDistance();
  clicks_ = again ? clicks_ + 1 : 1;
  sincePress_.start();
  lastPress_ = position;
  return clicks_;
}

void HostWidget::mousePressEvent(QMouseEvent* event) {
  const bool taken = host_->pointerDown(toPoint(event->position()), buttonOf(event->button()),
                                        countClicks(*event), modifiersOf(event->modifiers()));
  if (taken) fields_->takeFocus(Qt::MouseFocusReason);
  event->setAccepted(taken);
}

void HostWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
}

void HostWidget::mouseReleaseEvent(QMouseEvent* event) {
  event->setAccepted(host_->pointerUp(toPoint(event->position()), buttonOf(event->button()),
                                      modifiersOf(event->modifiers())));
}

void HostWidget::mouseMoveEvent(QMouseEvent* event) {
  event->setAccepted(
      host_->pointerMove(toPoint(event->position()), modifiersOf(event->modifiers())));
}

void HostWidget::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  host_->pointerLeft();
}

void HostWidget::wheelEvent(QWheelEvent* event) {
  const QPointF pixels(event->pixelDelta());
  const QPointF delta = pixels.isNull() ? QPointF(event->angleDelta()) * kPointsPerEighth : pixels;
  // Qt counts towards the beginning, the view towards the end.
  event->setAccepted(host_->wheel({toPoint(event->position()), -delta.x(), -delta.y()}));
}

void HostWidget::keyPressEvent(QKeyEvent* event) {
#ifndef NDEBUG
  if (event->key() == Qt::Key_F12 && event->modifiers() == Qt::NoModifier) {
    inspector_ ? inspector_.reset() : void(inspector_ = std::make_unique<InspectorOverlay>(*this));
    return;
  }
#endif
  const std::optional<KeyEvent> key = toKeyEvent(*event);
  // What an editor leaves over must not be typed into the field a second time.
  const bool typing = fields_->haveFocus() && key && !key->text.empty() && key->key != Key::enter &&
                      !key->modifiers.control && !key->modifiers.alt;
  if (key && !typing && host_->key(*key)) return fields_->followFocus();
  QWidget::keyPressEvent(event);
}

void HostWidget::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  if (fields_->movingFocus()) return;
  host_->focusIn(byKeyboard(event->reason()), event->reason() == Qt::BacktabFocusReason);
  fields_->followFocus();
}

void HostWidget::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  if (!fields_->movingFocus() && !fields_->haveFocus()) host_->focusOut();
}

bool HostWidget::focusNextPrevChild(bool next) {
  if (!host_->focusNext(!next)) {
    // Beyond the ends of the view lie the other widgets of the window; without any, the way
    // begins again. It leads on from this widget: its editors stand elsewhere in Qt's order.
    fields_->giveFocusToHost();
    if (QWidget::focusNextPrevChild(next) && QApplication::focusWidget() != this) return true;
    host_->focusIn(true, !next);
  }
  fields_->takeFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

void HostWidget::answerDrag(QDropEvent& event) {
  if (host_->dragMoved(offered(event))) {
    event.setDropAction(Qt::CopyAction);
    event.accept();
  } else {
    event.ignore();
  }
}

void HostWidget::dragEnterEvent(QDragEnterEvent* event) {
  if (event->source() == nullptr) {
    if (!foreignDrop_) foreignDrop_ = ForeignDrop::create(*this);
    if (foreignDrop_) foreignDrop_->entered();
  }
  // Taken wherever it enters: a place for it may lie further inside.
  host_->dragMoved(offered(*event));
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

void HostWidget::dragMoveEvent(QDragMoveEvent* event) {
  answerDrag(*event);
}

void HostWidget::dragLeaveEvent(QDragLeaveEvent*) {
  if (foreignDrop_) foreignDrop_->left();
  host_->dragLeft();
}

// The data of a drop that is taken here; absent where its program is late with it, or where the
// place for it has changed while it came.
std::optional<DragItems> HostWidget::itemsOf(const QDropEvent& event, const DropInfo& info) {
  const std::vector<std::string> types = host_->dropTypes(info);
  auto fetched = foreignDrop_ ? foreignDrop_->take() : std::nullopt;
  if (!fetched) return offeredItems(*event.mimeData(), types);
  const bool late = fetched->late && fetched->items.empty();
  if (late || !isVisible() || fetched->types != types) return std::nullopt;
  return std::move(fetched->items);
}

void HostWidget::dropEvent(QDropEvent* event) {
  DropInfo info = offered(*event);
  std::optional<DragItems> items = itemsOf(*event, info);
  if (!items) host_->dragLeft();
  bool taken = false;
  if (items) {
    info.items = std::move(*items);
    // The list that promised files may hold pages alone.
    if (!info.items.empty() && !hasFile(info.items)) std::erase(info.types, dragTypeFileUrl);
    taken = host_->drop(info);
  }
  event->setDropAction(taken ? Qt::CopyAction : Qt::IgnoreAction);
  event->setAccepted(taken);
}

}  // namespace zq::qt
