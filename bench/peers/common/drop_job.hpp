// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>
#include <functional>

#include "bench.hpp"

// Files dropped at once on a place that takes pictures, as a file manager offers them, until one
// call has all that were taken.
namespace bench {

class DroppedFiles : public QMimeData {
 public:
  explicit DroppedFiles(int n) {
    for (int i = 0; i < n; ++i) {
      list_ += "file:///home/someone/pictures/of%20the%20sea/" + QByteArray::number(i);
      list_ += i % 10 ? ".JPG\r\n" : ".txt\r\n";
    }
  }
  static int taken(int n) { return n - (n + 9) / 10; }
  QStringList formats() const override { return {QStringLiteral("text/uri-list")}; }
  bool hasFormat(const QString& format) const override { return formats().contains(format); }

 protected:
  QVariant retrieveData(const QString&, QMetaType) const override { return list_; }

 private:
  QByteArray list_;
};

// Drops, and runs the event loop until `done`; tells the time less what is waited by design, and
// the longest that the interface was kept from its work.
inline void reportDrop(int n, QWidget& place, double waitedMs, const std::function<void()>& begin,
                       const std::function<bool()>& done) {
  const DroppedFiles files(n);
  Series longest;
  const Series all = repeated([&](int r) {
    begin();
    const Timer timer;
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&place, &enter);
    QDropEvent drop({50, 50}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&place, &drop);
    double most = timer.ms();
    while (!done()) {
      const Timer one;
      QCoreApplication::processEvents();
      most = std::max(most, one.ms());
    }
    const double ms = timer.ms() - waitedMs;
    if (r >= 0) longest.add(most);
    return ms;
  });
  report("F1", n, all, "from the drop to the one call, less what is waited for more");
  report("F1-longest", n, longest, "the longest piece of it on the interface thread");
}

}  // namespace bench
