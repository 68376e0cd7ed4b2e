// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <benchmark/benchmark.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QEventLoop>
#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <functional>
#include <vector>

// A second process, and how long it takes until something arrives there.

namespace {

std::int64_t now() {  // one clock for all processes
  return std::chrono::steady_clock::now().time_since_epoch().count();
}

// Runs listen in a process of its own, which is given the other end of the socket. There it
// says a first word once it listens, and then the time of each arrival.
class Listener {
 public:
  explicit Listener(const std::function<void(int socket)>& listen) {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends.data()) != 0 || ::fork() != 0) {
      socket_ = ends[0];
      ::close(ends[1]);
      return;
    }
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    listen(ends[1]);
    ::_exit(0);
  }
  int socket() const { return socket_; }
  std::int64_t arrival() const {
    std::int64_t time = 0;
    return ::read(socket_, &time, sizeof(time)) == sizeof(time) ? time : 0;
  }

 private:
  int socket_ = -1;
};

void say(int socket, std::int64_t time) {
  if (::write(socket, &time, sizeof(time)) < 0) ::_exit(1);
}

// The number that comes first ends the loop; the rest has been unpacked by then.
void listenToSignals(int socket) {
  int count = 0;
  QCoreApplication app(count, nullptr);
  QEventLoop loop;
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.connect({}, "/bench", "org.zq.Bench", "Posted", &loop, SLOT(exit(int)))) return;
  say(socket, 1);
  while (loop.exec() == 0) say(socket, now());
}

// Each round does the work and waits for its arrival, and lets this process rest.
void measureArrivals(benchmark::State& state, const Listener& listener,
                     const std::function<void()>& work, const std::function<void()>& rest) {
  std::vector<double> seconds;
  for (auto _ : state) {
    const std::int64_t start = now();
    work();
    seconds.push_back(static_cast<double>(listener.arrival() - start) * 1e-9);
    state.SetIterationTime(seconds.back());
    rest();
  }
  std::sort(seconds.begin(), seconds.end());
  state.counters["median_us"] = seconds[seconds.size() / 2] * 1e6;
  state.counters["p99_us"] = seconds[seconds.size() * 99 / 100] * 1e6;
}

}  // namespace
