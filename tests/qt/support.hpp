// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <zqswiftui/platform/qt/platform.hpp>

namespace zq::qt {

inline Platform& platform() {
  return static_cast<Platform&>(zq::Platform::current());
}

// Runs the event loop until the condition holds, or answers false after long enough to blame
// the program and not the machine.
bool waitFor(const auto& done) {
  constexpr int kPatienceMilliseconds = 60000;
  QElapsedTimer time;
  time.start();
  while (!done() && time.elapsed() < kPatienceMilliseconds) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  return done();
}

// Runs what has been posted, and what that posts.
inline void settle() {
  for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
}

inline void sendMouse(QWidget& widget, QEvent::Type type, QPointF position) {
  const bool move = type == QEvent::MouseMove;
  QMouseEvent event(
      type, position, widget.mapToGlobal(position), move ? Qt::NoButton : Qt::LeftButton,
      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &event);
}

inline void click(QWidget& widget, QPointF position) {
  sendMouse(widget, QEvent::MouseButtonPress, position);
  sendMouse(widget, QEvent::MouseButtonRelease, position);
  settle();
}

// To whatever has the focus.
inline void press(int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
  QWidget* target = QApplication::focusWidget();
  if (target == nullptr) return;
  QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
  QCoreApplication::sendEvent(target, &down);
  QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
  QCoreApplication::sendEvent(target, &up);
  settle();
}

inline void type(const QString& text) {
  for (const QChar c : text) press(c.toUpper().unicode(), c);
}

}  // namespace zq::qt
