// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <utility>

namespace zq::probe {

inline constexpr int kBeat = 10;  // milliseconds

// Measures by a timer how late the interface thread is, and does something at each beat.
class Heart : public QObject {
 public:
  explicit Heart(std::function<void()> atEach = nullptr) : atEach_(std::move(atEach)) {
    since_.start();
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.callOnTimeout(this, [this] {
      longest_ = std::max(longest_, since_.restart());
      if (atEach_) atEach_();
    });
    timer_.start(kBeat);
  }
  qint64 takeLongest() { return std::exchange(longest_, 0); }

 private:
  std::function<void()> atEach_;
  QTimer timer_;
  QElapsedTimer since_;
  qint64 longest_ = 0;
};

}  // namespace zq::probe
