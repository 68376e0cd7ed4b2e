// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QTimer>
#include <QUrl>
#include <QWidget>
#include <chrono>
#include <functional>
#include <memory>
#include <utility>

#include "bench.hpp"

// A panel of the files that this program opened, with a field to search them.
namespace bench {

constexpr double kPatience = 5000;
constexpr int kPanelWidth = 420, kPanelHeight = 300;

// Where the list is that the panel reads, as the desktop keeps it. Without digits, which are
// searched for.
inline QString openedFolder() {
  QString name = QStringLiteral("/zq-bench-");
  for (const char digit : std::to_string(QCoreApplication::applicationPid())) {
    name += QLatin1Char(static_cast<char>('a' + (digit - '0')));
  }
  return QDir::tempPath() + name;
}
inline QString openedList() {
  return openedFolder() + "/recently-used.xbel";
}

// The files and the list, gone with it.
class OpenedFiles {
 public:
  explicit OpenedFiles(int n) {
    QDir().mkpath(openedFolder());
    QByteArray list = R"(<?xml version="1.0" encoding="UTF-8"?>
<xbel version="1.0" xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks">
)";
    const QByteArray name = QCoreApplication::applicationName().toUtf8();
    for (int i = 0; i < n; ++i) {
      const QString path = openedFolder() + QStringLiteral("/Document of the year %1.txt").arg(i);
      QFile file(path);
      check(file.open(QIODevice::WriteOnly) && file.resize(i * 997), "a file is made");
      list += "<bookmark href=\"" + QUrl::fromLocalFile(path).toEncoded() +
              "\" modified=\"2025-01-01T10:00:00Z\"><info>"
              "<metadata owner=\"http://freedesktop.org\"><bookmark:applications>"
              "<bookmark:application name=\"" +
              name +
              "\" exec=\"'x' %u\" modified=\"2025-01-01T10:00:00Z\" count=\"1\"/>"
              "</bookmark:applications></metadata></info></bookmark>\n";
    }
    QFile file(openedList());
    check(file.open(QIODevice::WriteOnly) && file.write(list + "</xbel>\n") > 0,
          "the list is made");
  }
  ~OpenedFiles() { QDir(openedFolder()).removeRecursively(); }
  OpenedFiles(const OpenedFiles&) = delete;
  OpenedFiles& operator=(const OpenedFiles&) = delete;
};

struct Panel {
  std::unique_ptr<QWidget> window;
  QWidget* list = nullptr;  // what paints the rows
  QRect rows;               // of it, with the first row at its top
};

// Notes when something within a part of a widget is painted.
class Painted final : public QObject {
 public:
  explicit Painted(const Panel& panel) : part_(panel.rows) {
    panel.list->installEventFilter(this);
    wakes_.start(std::chrono::seconds(1));
  }
  void forget() { painted_ = false; }
  void await() {
    const Timer timer;
    while (!std::exchange(painted_, false)) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
      check(timer.ms() < kPatience, "it is painted");
    }
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      painted_ = painted_ || static_cast<QPaintEvent*>(event)->region().intersects(part_);
    }
    return false;
  }

 private:
  QRect part_;
  QTimer wakes_;  // who waits for what never comes finds out
  bool painted_ = false;
};

// Whether the first row shows a name.
inline bool rowsThere(const Panel& panel) {
  const QImage row = panel.list->grab({panel.rows.topLeft(), QSize(200, 25)}).toImage();
  int dark = 0;
  for (int y = 0; y < row.height(); ++y) {
    for (int x = 0; x < row.width(); ++x) dark += qGray(row.pixel(x, y)) < 128;
  }
  return dark > 50;
}

// The time of what `act` sets off, to the painted frame.
inline double untilPainted(Painted& painted, const std::function<void()>& act) {
  painted.forget();
  const Timer timer;
  act();
  painted.await();
  return timer.ms();
}

inline void press(QLineEdit& field, int key, const QString& text) {
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&field, &event);
  }
}

inline void reportSearch(int n, const Panel& panel) {
  auto* field = panel.window->findChild<QLineEdit*>();
  check(field != nullptr, "there is a field");
  field->setFocus();
  Painted painted(panel);
  Series longest;
  const Series keys = repeated([&](int r) {
    double most = 0, all = 0;
    const auto timed = [&](int key, const QString& text) {
      const double ms = untilPainted(painted, [&] { press(*field, key, text); });
      most = std::max(most, ms);
      all += ms;
    };
    for (const char* text : {"1", "2", "3"}) timed(Qt::Key_0 + (*text - '0'), text);
    check(field->text() == "123" && rowsThere(panel), "R2 rows are found");
    for (int i = 0; i < 3; ++i) timed(Qt::Key_Backspace, {});
    if (r >= 0) longest.add(most);
    return all / 6;
  });
  report("R2", n, keys, "a key in the search to the painted frame");
  report("R2-longest", n, longest, "the longest of six");
}

inline void reportRowHover(int n, const Panel& panel) {
  constexpr int kRow = 25, kRows = 8;
  Painted painted(panel);
  const Series moves = repeated([&](int) {
    double all = 0;
    for (int i = 0; i < kRows; ++i) {
      const QPointF at(40, panel.rows.y() + kRow * i + kRow / 2);
      all += untilPainted(painted, [&] {
        QMouseEvent move(QEvent::MouseMove, at, panel.list->mapToGlobal(at), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(panel.list, &move);
      });
    }
    return all / kRows;
  });
  report("R3", n, moves, "the pointer onto another row, to the painted frame");
}

// `make` shows a panel, which may fill later.
template <class Make>
void reportRecent(int n, const Make& make) {
  const OpenedFiles files(n);
  Panel panel;
  Series first;
  const Series rows = repeated([&](int r) {
    panel = {};
    const Timer timer;
    panel = make();
    Painted painted(panel);
    painted.await();
    if (r >= 0) first.add(timer.ms());
    double ms = timer.ms();
    while (!rowsThere(panel)) {
      painted.forget();  // what rowsThere had painted
      painted.await();
      ms = timer.ms();
      check(ms < kPatience, "R1 rows are painted");
    }
    return ms;
  });
  report("R1", n, first, "from nothing to the first frame");
  report("R1-rows", n, rows, "from nothing, list and files read, to the painted rows");
  reportSearch(n, panel);
  reportRowHover(n, panel);
}

}  // namespace bench
