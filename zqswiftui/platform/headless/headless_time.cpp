// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <zqswiftui/platform/headless/headless_time.hpp>
#include <zqswiftui/platform/services/require.hpp>

namespace zq {

namespace {

// Sums of intervals such as 1/30 miss whole seconds by a rounding error; a call due then
// must not wait for the next advance.
constexpr double roundingSlack = 1e-9;

thread_local bool inBackgroundWork = false;

DelayedCallId newDelayedCallId() {
  static std::atomic<DelayedCallId> last{0};
  return ++last;
}

}  // namespace

HeadlessTime::HeadlessTime(BackgroundMode mode)
    : wallStart_(std::chrono::sys_days{std::chrono::year{2024} / 1 / 1}) {
  if (mode == BackgroundMode::threads) threads_ = std::make_unique<ThreadPool>();
}

HeadlessTime::~HeadlessTime() {
  dropAll();
}

void HeadlessTime::post(std::function<void()> work) {
  const std::lock_guard lock(mutex_);
  if (!closed_ && work) posted_.push_back(std::move(work));
}

DelayedCallId HeadlessTime::postDelayed(double seconds, std::function<void()> work) {
  const double delay = std::isfinite(seconds) ? std::max(seconds, 0.0) : 0.0;
  const DelayedCallId id = newDelayedCallId();
  const std::lock_guard lock(mutex_);
  if (closed_ || !work) return id;
  const double deadline = now_ + delay;
  delayed_.emplace(Key{deadline, id}, std::move(work));
  deadlines_.emplace(id, deadline);
  return id;
}

void HeadlessTime::cancel(DelayedCallId id) {
  std::function<void()> dropped;  // ended after the lock: what it holds may cancel too
  const std::lock_guard lock(mutex_);
  const auto known = deadlines_.find(id);
  if (known == deadlines_.end()) return;
  const auto call = delayed_.find(Key{known->second, id});
  dropped = std::move(call->second);
  delayed_.erase(call);
  deadlines_.erase(known);
}

bool HeadlessTime::isMainThread() const {
  return std::this_thread::get_id() == mainThread_ && !inBackgroundWork;
}

double HeadlessTime::now() const {
  const std::lock_guard lock(mutex_);
  return now_;
}

std::chrono::system_clock::time_point HeadlessTime::wallTime() const {
  return wallStart_ + std::chrono::duration_cast<std::chrono::system_clock::duration>(
                          std::chrono::duration<double>(now()));
}

void HeadlessTime::post(std::function<void()> work, bool fast) {
  if (threads_) return threads_->post(std::move(work), fast);
  const std::lock_guard lock(mutex_);
  if (!closed_) (fast ? fastWork_ : otherWork_).push_back(std::move(work));
}

void HeadlessTime::postHeavy(std::function<void()> work) {
  if (threads_) return threads_->postHeavy(std::move(work));
  post(std::move(work), false);
}

void HeadlessTime::advance(double seconds) {
  ZQ_REQUIRE(isMainThread(), "HeadlessPlatform: time is advanced on the interface thread alone");
  ZQ_REQUIRE(std::isfinite(seconds) && seconds >= 0, "HeadlessPlatform: time runs forwards");
  const double target = now() + seconds;
  do {
    runUntilIdle();
  } while (runNextDelayed(target));
  const std::lock_guard lock(mutex_);
  now_ = std::max(now_, target);
}

void HeadlessTime::stall(double seconds) {
  ZQ_REQUIRE(std::isfinite(seconds) && seconds >= 0, "HeadlessPlatform: time runs forwards");
  const std::lock_guard lock(mutex_);
  now_ += seconds;
}

void HeadlessTime::runUntilIdle() {
  while (true) {
    if (runNextPosted() || runNextBackground()) continue;
    if (!threads_) return;
    threads_->waitUntilIdle();
    const std::lock_guard lock(mutex_);
    if (posted_.empty()) return;
  }
}

void HeadlessTime::dropAll() {
  if (threads_) threads_->close();
  std::deque<std::function<void()>> work;
  std::map<Key, std::function<void()>> delayed;
  const std::lock_guard lock(mutex_);
  closed_ = true;
  delayed.swap(delayed_);
  deadlines_.clear();
  for (auto* queue : {&posted_, &fastWork_, &otherWork_}) {
    std::move(queue->begin(), queue->end(), std::back_inserter(work));
    queue->clear();
  }
}

bool HeadlessTime::runNextPosted() {
  std::function<void()> work;
  {
    const std::lock_guard lock(mutex_);
    if (posted_.empty()) return false;
    work = std::move(posted_.front());
    posted_.pop_front();
  }
  work();
  return true;
}

bool HeadlessTime::runNextBackground() {
  std::function<void()> work;
  {
    const std::lock_guard lock(mutex_);
    auto& queue = fastWork_.empty() ? otherWork_ : fastWork_;
    if (queue.empty()) return false;
    work = std::move(queue.front());
    queue.pop_front();
  }
  inBackgroundWork = true;
  work();
  work = nullptr;
  inBackgroundWork = false;
  return true;
}

bool HeadlessTime::runNextDelayed(double target) {
  std::function<void()> work;
  {
    const std::lock_guard lock(mutex_);
    if (delayed_.empty()) return false;
    const auto next = delayed_.begin();
    const double deadline = next->first.first;
    if (deadline > target + roundingSlack) return false;
    now_ = std::max(now_, deadline);
    work = std::move(next->second);
    deadlines_.erase(next->first.second);
    delayed_.erase(next);
  }
  work();
  return true;
}

}  // namespace zq
