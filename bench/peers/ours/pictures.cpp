// ZQSwiftUI, MIT licence; see LICENSE.
#include "pictures.hpp"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <memory>
#include <optional>
#include <zqswiftui/images/zq_cached_image.hpp>
#include <zqswiftui/layout/flow_layout.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

#include "shown.hpp"

// The library's cached pictures of files, in a window and the real event loop.
namespace bench {
namespace {

zq::DecodeSize sizeOf(const Wall& wall) {
  if (!wall.reduced) return {};
  return zq::DecodeSize{.points = static_cast<double>(wall.cellWidth), .scale = 1};
}

struct Cell {
  std::string file;
  zq::Size size;
  zq::DecodeSize decoded;
  zq::View body(zq::Context&) const {
    return zq::ZQCachedImage(zq::Url::file(file), {.decodeSize = decoded})
        .frame(size.width, size.height);
  }
  bool operator==(const Cell&) const = default;
};

zq::View viewOf(const Wall& wall, const std::vector<std::string>& files) {
  std::vector<Cell> cells;
  cells.reserve(files.size());
  for (const std::string& file : files) {
    cells.push_back({file, zq::Size(wall.cellWidth, wall.cellHeight), sizeOf(wall)});
  }
  return zq::ScrollView(
      zq::LayoutView(zq::NewFlowLayout({.alignment = zq::Alignment::leading(), .spacing = kGap}),
                     {zq::ForEach(cells, &Cell::file, [](const Cell& cell) { return cell; })}));
}

// Whether every one is there; those that were are not looked at again.
class AllReady {
 public:
  AllReady(const Wall& wall, const std::vector<std::string>& files) {
    for (const auto& file : files) {
      waiting_.push_back(zq::ZQCachedImageVM::lookup(zq::Url::file(file), sizeOf(wall)));
    }
  }
  bool operator()() {
    using Status = zq::ZQCachedImageVM::Status;
    while (!waiting_.empty() && waiting_.back()->status.get() == Status::ready) waiting_.pop_back();
    return waiting_.empty();
  }

 private:
  std::vector<std::shared_ptr<zq::ZQCachedImageVM>> waiting_;
};

class PictureWindow {
 public:
  PictureWindow() {
    window_.resize(kViewW, kViewH);
    window_.show();
    QCoreApplication::processEvents();
  }

  // Until a frame was painted after the last one became ready.
  double show(const Wall& wall, const std::vector<std::string>& files, Stall& stall) {
    QTimer heart;
    heart.setTimerType(Qt::PreciseTimer);
    heart.callOnTimeout([&] { stall.turn(); });
    heart.start(1);
    QCoreApplication::processEvents();
    stall = {};
    const Timer timer;
    window_.setRoot(viewOf(wall, files));
    AllReady ready(wall, files);
    while (!ready() || window_.host().needsFrame()) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    QCoreApplication::sendPostedEvents(&window_, QEvent::UpdateRequest);
    stall.turn();
    return timer.ms();
  }
  QImage shown() { return window_.grab().toImage(); }

 private:
  zq::qt::HostWidget window_{zq::View()};
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
