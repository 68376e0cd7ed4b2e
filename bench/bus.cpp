// ZQSwiftUI, MIT licence; see LICENSE.
// From a post to its arrival in another process, beside the least that could carry it. Run as
// `dbus-run-session -- bench_bus`.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <cstring>
#include <string>
#include <zqswiftui/platform/qt/bus_notifications.hpp>
#include <zqswiftui/platform/qt/main_queue.hpp>
#include <zqswiftui/platform/qt/memory_file.hpp>

#include "peer_process.hpp"

namespace {

void listenToNotifications(int socket) {
  int count = 0;
  QCoreApplication app(count, nullptr);
  zq::qt::MainQueue queue;
  zq::qt::BusNotifications notifications(queue);
  notifications.observe("bench", [socket](const std::string&) { say(socket, now()); });
  say(socket, 1);
  QCoreApplication::exec();
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
  measureArrivals(
      state, listener, [&] { post(payload); }, [] { QCoreApplication::processEvents(); });
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
