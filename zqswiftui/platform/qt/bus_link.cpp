// ZQSwiftUI, MIT licence; see LICENSE.
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <utility>
#include <zqswiftui/platform/qt/bus_link.hpp>

namespace zq::qt {
namespace {

constexpr double kFirstRetrySeconds = 1;
constexpr double kLongestRetrySeconds = 30;
constexpr int kLookForBusMilliseconds = 100;

std::atomic<bool> absenceSaid{false};

void say(const char* what, std::string reason = {}) {
  std::replace_if(
      reason.begin(), reason.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  if (!reason.empty()) reason = " (" + reason + ")";
  std::fprintf(stderr, "zqswiftui: %s%s\n", what, reason.c_str());
}

}  // namespace

BusLink::Mailbox::Mailbox() : bell(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

void BusLink::Mailbox::put(Job job) {
  {
    const std::lock_guard lock(mutex);
    jobs.push_back(std::move(job));
  }
  ::eventfd_write(bell.descriptor(), 1);
}

std::deque<BusLink::Job> BusLink::Mailbox::take() {
  eventfd_t rings = 0;
  ::eventfd_read(bell.descriptor(), &rings);
  const std::lock_guard lock(mutex);
  return std::exchange(jobs, {});
}

BusLink::BusLink(zq::MainQueue& queue, BusConnection::Heard heard)
    : queue_(queue), heard_(std::move(heard)), retrySeconds_(kFirstRetrySeconds) {}

BusLink::~BusLink() {
  if (!thread_.joinable()) return;
  ending_ = true;
  mailbox_->put([] {});
  thread_.join();
  queue_.cancel(retry_);
}

void BusLink::put(Job job) {
  std::call_once(started_, [this] { thread_ = std::thread([this] { run(); }); });
  mailbox_->put(std::move(job));
}

void BusLink::send(std::shared_ptr<const Notification> notification) {
  put([this, notification = std::move(notification)] {
    if (!reach()) return;
    connection_->send(*notification);
    if (!connection_->alive()) lose();
  });
}

std::future<void> BusLink::listen(const std::string& name) {
  const auto done = std::make_shared<std::promise<void>>();
  put([this, name, done] {
    if (reach()) connection_->listen(name);
    names_.insert(name);
    if (connection_ && !connection_->alive()) lose();
    if (!connection_) retryLater();
    done->set_value();
  });
  return done->get_future();
}

void BusLink::unlisten(const std::string& name) {
  put([this, name] {
    names_.erase(name);
    if (connection_) connection_->unlisten(name);
  });
}

void BusLink::run() {
  for (;;) {
    const std::deque<Job> jobs = mailbox_->take();
    if (jobs.empty() && ending_) break;
    // At the end there is time for one bus that does not answer, not for one after another.
    if (!ending_) tried_ = false;
    for (const Job& job : jobs) job();
    if (connection_ && !connection_->alive()) lose();
    if (!ending_) waitForWork();
    // Before the next jobs: they can still reach a bus that has taken its place.
    if (connection_ && !connection_->alive()) lose();
  }
  if (connection_) connection_->flush();
  connection_.reset();
}

void BusLink::waitForWork() {
  pollfd bell{mailbox_->bell.descriptor(), POLLIN, 0};
  // Without files left there is no bell to wait for.
  const int milliseconds = bell.fd < 0 ? kLookForBusMilliseconds : -1;
  if (connection_) return connection_->wait(bell.fd, milliseconds);
  ::poll(&bell, 1, milliseconds);
}

// Whether there is a bus; looks for one once for all that came together.
bool BusLink::reach() {
  if (connection_ || std::exchange(tried_, true)) return connection_ != nullptr;
  std::string reason;
  connection_ = BusConnection::open(heard_, ending_, reason);
  if (!connection_) {
    if (!std::exchange(announced_, true) && !absenceSaid.exchange(true)) {
      say("there is no session bus, notifications stay inside this process", reason);
    }
    retryLater();
    return false;
  }
  for (const std::string& name : names_) connection_->listen(name);
  retrySeconds_ = kFirstRetrySeconds;
  if (std::exchange(announced_, false)) {
    say("the session bus is there, notifications reach other processes again");
  }
  return true;
}

void BusLink::lose() {
  connection_.reset();
  tried_ = true;
  announced_ = true;
  say("the session bus is gone, notifications stay inside this process");
  retryLater();
}

// Who only posts finds the bus again at the next post.
void BusLink::retryLater() {
  if (names_.empty() || retry_ != 0) return;
  const auto retry = [this, mailbox = std::weak_ptr(mailbox_)] {
    const auto alive = mailbox.lock();
    if (!alive) return;
    alive->put([this] {
      retry_ = 0;
      reach();
    });
  };
  retry_ = queue_.postDelayed(retrySeconds_, retry);
  retrySeconds_ = std::min(2 * retrySeconds_, kLongestRetrySeconds);
}

}  // namespace zq::qt
