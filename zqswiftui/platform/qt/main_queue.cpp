// ZQSwiftUI, MIT licence; see LICENSE.
#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <algorithm>
#include <cmath>
#include <zqswiftui/platform/qt/main_queue.hpp>

namespace zq::qt {
namespace {

// Longer waits are cut into pieces of a day, which a timer's milliseconds can count.
constexpr double kLongestTimer = 86400;

DelayedCallId nextId() {
  static std::atomic<DelayedCallId> last{0};
  return ++last;
}

}  // namespace

double Clock::now() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

std::chrono::system_clock::time_point Clock::wallTime() const {
  return std::chrono::system_clock::now();
}

class MainQueue::Waker : public QObject {
 public:
  explicit Waker(MainQueue& queue) : queue_(queue) {}

  void startTimerFor(double seconds) {
    stopTimer();
    const double wait = std::clamp(seconds, 0.0, kLongestTimer);
    timer_ = startTimer(static_cast<int>(std::ceil(wait * 1000)), Qt::PreciseTimer);
  }
  void stopTimer() {
    if (timer_ != 0) killTimer(timer_);
    timer_ = 0;
  }
  bool event(QEvent* event) override {
    if (event->type() != QEvent::User && event->type() != QEvent::Timer) {
      return QObject::event(event);
    }
    if (event->type() == QEvent::Timer) stopTimer();
    queue_.run();
    return true;
  }

 private:
  MainQueue& queue_;
  int timer_ = 0;
};

MainQueue::MainQueue() : waker_(std::make_unique<Waker>(*this)) {}

MainQueue::~MainQueue() {
  dropAll();
}

void MainQueue::post(std::function<void()> work) {
  if (!work) return;
  const std::scoped_lock lock(mutex_);
  posted_.push_back(std::move(work));
  wake();
}

DelayedCallId MainQueue::postDelayed(double seconds, std::function<void()> work) {
  const DelayedCallId id = nextId();
  if (!work) return id;
  const double deadline = clock_.now() + (std::isfinite(seconds) ? std::max(seconds, 0.0) : 0.0);
  const std::scoped_lock lock(mutex_);
  const auto place = delayed_.emplace(Due{deadline, id}, std::move(work)).first;
  deadlines_.emplace(id, deadline);
  // Only the interface thread can set its timer.
  if (place == delayed_.begin()) wake();
  return id;
}

void MainQueue::cancel(DelayedCallId id) {
  std::function<void()> cancelled;  // ends after the lock: it may hold the last of something
  const std::scoped_lock lock(mutex_);
  const auto deadline = deadlines_.find(id);
  if (deadline == deadlines_.end()) return;
  const auto place = delayed_.find({deadline->second, id});
  cancelled = std::move(place->second);
  delayed_.erase(place);
  deadlines_.erase(deadline);
}

void MainQueue::dropAll() {
  for (;;) {
    std::deque<std::function<void()>> posted;
    std::map<Due, std::function<void()>> delayed;
    {
      const std::scoped_lock lock(mutex_);
      posted.swap(posted_);
      delayed.swap(delayed_);
      deadlines_.clear();
    }
    if (posted.empty() && delayed.empty()) return;
  }
}

void MainQueue::wake() {
  if (woken_) return;
  woken_ = true;
  QCoreApplication::postEvent(waker_.get(), new QEvent(QEvent::User));
}

void MainQueue::run() {
  {
    const std::scoped_lock lock(mutex_);
    woken_ = false;
  }
  runDue();
  armTimer();  // a modal loop inside posted work must see what comes due meanwhile
  runPosted();
  armTimer();
}

// What is posted meanwhile waits for the next turn, so that input and painting get theirs.
void MainQueue::runPosted() {
  std::unique_lock lock(mutex_);
  for (std::size_t left = posted_.size(); left > 0 && !posted_.empty(); --left) {
    const std::function<void()> work = std::move(posted_.front());
    posted_.pop_front();
    // A modal loop inside this work must find the rest of the queue.
    if (!posted_.empty()) wake();
    lock.unlock();
    work();
    lock.lock();
  }
}

void MainQueue::runDue() {
  const double now = clock_.now();
  std::unique_lock lock(mutex_);
  while (!delayed_.empty() && delayed_.begin()->first.first <= now) {
    const auto first = delayed_.begin();
    const std::function<void()> work = std::move(first->second);
    deadlines_.erase(first->first.second);
    delayed_.erase(first);
    if (!delayed_.empty()) wake();
    lock.unlock();
    work();
    lock.lock();
  }
}

void MainQueue::armTimer() {
  const std::scoped_lock lock(mutex_);
  if (delayed_.empty()) return waker_->stopTimer();
  waker_->startTimerFor(delayed_.begin()->first.first - clock_.now());
}

}  // namespace zq::qt
