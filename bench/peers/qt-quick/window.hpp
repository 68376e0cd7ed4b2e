// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QCoreApplication>
#include <QImage>
#include <QQuickWindow>
#include <QScreen>

#include "bench.hpp"

// A window whose frames are told. A frame is one turn of its own update request, sent at once and
// not after the 5 ms that the platform would wait.
namespace bench {

struct Window {
  Window() {
    window.resize(kViewW, kViewH);
    window.setColor(Qt::white);
    QObject::connect(&window, &QQuickWindow::frameSwapped, &window, [this] { ++swaps; });
  }
  void frame() {
    QCoreApplication::sendPostedEvents();
    QEvent update(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&window, &update);
  }
  QImage shown() {
    return window.screen()
        ->grabWindow(window.winId(), 0, 0, kViewW, kViewH)
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
  }
  void repaintAll() {  // a new background makes all of the window dirty
    const QColor white(Qt::white);
    window.setColor(window.color() == white ? QColor(0xfe, 0xfe, 0xfe) : white);
    frame();
  }
  void checkComplete(const char* what) {
    frame();
    const QImage is = shown();
    repaintAll();
    repaintAll();
    check(!is.isNull() && is == shown(), what);
  }

  QQuickWindow window;
  long swaps = 0;
};

}  // namespace bench
