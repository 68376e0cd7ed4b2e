// ZQSwiftUI, MIT licence; see LICENSE.
// From a post to its arrival in another process, beside the least that could carry it. Run as
// `dbus-run-session -- bench_bus`.
#include <benchmark/benchmark.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QEventLoop>
#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstring>
#include <functional>
#include <string>
#include <vector>
#include <zqswiftui/platform/qt/bus_notifications.hpp>
#include <zqswiftui/platform/qt/main_queue.hpp>
#include <zqswiftui/platform/qt/memory_file.hpp>

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

void listenToNotifications(int socket) {
  int count = 0;
  QCoreApplication app(count, nullptr);
  zq::qt::MainQueue queue;
  zq::qt::BusNotifications notifications(queue);
  notifications.observe("bench", [socket](const std::string&) { say(socket, now()); });
  say(socket, 1);
  QCoreApplication::exec();
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

void listenToFiles(int socket) {
  say(socket, 1);
  for (;;) {
    std::uint64_t size = 0;
    iovec part{&size, sizeof(size)};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control{};
    msghdr message{nullptr, 0, &part, 1, control.data(), control.size(), 0};
    if (::recvmsg(socket, &message, MSG_CMSG_CLOEXEC) <= 0) return;
    const cmsghdr* header = CMSG_FIRSTHDR(&message);
    if (header == nullptr) return;
    int descriptor = -1;
    std::memcpy(&descriptor, CMSG_DATA(header), sizeof(int));
    const zq::qt::OwnedFile file(descriptor);
    benchmark::DoNotOptimize(zq::qt::readSealedMemoryFile(descriptor, size, size));
    say(socket, now());
  }
}

void sendFile(int socket, const std::string& payload) {
  const zq::qt::OwnedFile file = zq::qt::sealedMemoryFile(payload);
  std::uint64_t size = payload.size();
  iovec part{&size, sizeof(size)};
  alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control{};
  msghdr message{nullptr, 0, &part, 1, control.data(), control.size(), 0};
  cmsghdr* header = CMSG_FIRSTHDR(&message);
  *header = {CMSG_LEN(sizeof(int)), SOL_SOCKET, SCM_RIGHTS};
  const int descriptor = file.descriptor();
  std::memcpy(CMSG_DATA(header), &descriptor, sizeof(int));
  if (::sendmsg(socket, &message, 0) < 0) std::abort();
}

// Made before this process has threads, which a fork would not take along.
struct Peers {
  Listener notifications{listenToNotifications};
  Listener qtSignals{listenToSignals};
  Listener files{listenToFiles};
  const bool ready =
      notifications.arrival() != 0 && qtSignals.arrival() != 0 && files.arrival() != 0;
  int count = 0;
  QCoreApplication app{count, nullptr};
};

Peers& peers() {
  static Peers peers;
  return peers;
}

void measure(benchmark::State& state, const Listener& listener,
             const std::function<void(const std::string&)>& post) {
  if (!peers().ready) return state.SkipWithError("there is no session bus");
  const std::string payload(static_cast<std::size_t>(state.range(0)), 'x');
  std::vector<double> seconds;
  for (auto _ : state) {
    const std::int64_t start = now();
    post(payload);
    seconds.push_back(static_cast<double>(listener.arrival() - start) * 1e-9);
    state.SetIterationTime(seconds.back());
    QCoreApplication::processEvents();
  }
  std::sort(seconds.begin(), seconds.end());
  state.counters["median_us"] = seconds[seconds.size() / 2] * 1e6;
  state.counters["p99_us"] = seconds[seconds.size() * 99 / 100] * 1e6;
}

void notification(benchmark::State& state) {
  const Listener& listener = peers().notifications;
  zq::qt::MainQueue queue;
  zq::qt::BusNotifications notifications(queue);
  measure(state, listener,
          [&](const std::string& payload) { notifications.post("bench", payload); });
}

void bareSignalOfQt(benchmark::State& state) {
  const Listener& listener = peers().qtSignals;
  QDBusConnection bus = QDBusConnection::sessionBus();
  measure(state, listener, [&](const std::string& payload) {
    QDBusMessage message = QDBusMessage::createSignal("/bench", "org.zq.Bench", "Posted");
    bus.send(message << 0 << QByteArray::fromStdString(payload));
  });
}

// No bus at all, one socket between the two.
void bareMemoryFile(benchmark::State& state) {
  const Listener& listener = peers().files;
  measure(state, listener,
          [&](const std::string& payload) { sendFile(listener.socket(), payload); });
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(2 << 10)->Arg(1 << 20)->Iterations(1000)->UseManualTime();
  benchmark->Unit(benchmark::kMicrosecond);
}

BENCHMARK(notification)->Apply(sizes);
BENCHMARK(bareSignalOfQt)->Apply(sizes);
BENCHMARK(bareMemoryFile)->Apply(sizes);

}  // namespace
