// ZQSwiftUI, MIT licence; see LICENSE.
#include "pictures.hpp"

#include <QCoreApplication>
#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <QTimer>
#include <QUrl>
#include <memory>

#include "shown.hpp"

// Images with `asynchronous`, in the real event loop.
namespace bench {
namespace {

class PictureWindow {
 public:
  PictureWindow() {
    window_.resize(kViewW, kViewH);
    window_.setColor(Qt::white);
    QObject::connect(&window_, &QQuickWindow::frameSwapped, &window_,
                     [this] { done_ = root_ && root_->property("ready").toInt() == count_; });
    window_.show();
    QCoreApplication::processEvents();
  }

  // Until a frame was painted after the last one became ready.
  double show(const Wall& wall, const std::vector<std::string>& files, Stall& stall) {
    QStringList urls;
    for (const auto& f : files) urls << QUrl::fromLocalFile(QString::fromStdString(f)).toString();
    done_ = false;
    count_ = static_cast<int>(files.size());
    QTimer heart;
    heart.setTimerType(Qt::PreciseTimer);
    QObject::connect(&heart, &QTimer::timeout, [&] { stall.turn(); });
    heart.start(1);
    QCoreApplication::processEvents();
    stall.turn();
    stall = {};
    const Timer timer;
    root_.reset(qobject_cast<QQuickItem*>(component_.createWithInitialProperties(
        {{QStringLiteral("files"), urls},
         {QStringLiteral("cell"), QSizeF(wall.cellWidth, wall.cellHeight)},
         {QStringLiteral("reduced"), wall.reduced}})));
    if (!root_) std::fprintf(stderr, "%s\n", qPrintable(component_.errorString()));
    check(root_ != nullptr, "QML loads");
    root_->setParentItem(window_.contentItem());
    while (!done_) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    stall.turn();
    return timer.ms();
  }
  QImage shown() {
    return window_.screen()->grabWindow(window_.winId(), 0, 0, kViewW, kViewH).toImage();
  }

 private:
  QQmlEngine engine_;
  QQmlComponent component_{&engine_, QUrl(QStringLiteral("qrc:/Peer/Pictures.qml"))};
  QQuickWindow window_;
  std::unique_ptr<QQuickItem> root_;
  int count_ = 0;
  bool done_ = false;
};

}  // namespace

bool pictures(const Arguments& arguments) {
  return runWall(arguments, [&](const Wall& wall, const std::string& folder, int n) {
    PictureWindow window;
    Stall stall;
    window.show(wall, warmUps(wall, folder), stall);
    const double ms = window.show(wall, filesOf(wall, folder, n), stall);
    reportWall(wall, n, ms, &stall);
    checkShown(wall, n, window.shown());
    if (!arguments.png().empty()) window.shown().save(QString::fromStdString(arguments.png()));
  });
}

}  // namespace bench
