// ZQSwiftUI, MIT licence; see LICENSE.
#include <QCoreApplication>
#include <array>
#include <tools/zqc/bus.hpp>
#include <utility>
#include <zqswiftui/platform/qt/bus_notifications.hpp>
#include <zqswiftui/platform/qt/main_queue.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq::zqc {

namespace {

// An application with a queue and nothing to be seen.
struct Quiet {
  std::array<char, 4> name{"zqc"};
  std::array<char*, 2> arguments{name.data(), nullptr};
  int count = 1;
  QCoreApplication application{count, arguments.data()};
  qt::MainQueue queue;
};

}  // namespace

int checkBus(const Session& session) {
  std::string reason;
  const std::atomic<bool> ending{false};
  const auto bus = qt::BusConnection::open([](const qt::Notification&) {}, ending, reason);
  if (bus) return exitOk;
  return session.fail(exitUnavailable, "no session bus is reached: " + reason);
}

int broadcastProject(const Session& session, const std::string& path, const ZQUICProject& project) {
  const auto json = encodeProject(project, JsonStyle::compact);
  if (!json.ok()) return session.fail(exitData, path + ": " + json.error().sentence);
  if (json.value().size() > DistributedNotifications::maxPayloadSize) {
    return session.fail(exitData, path + ": the project is too big to be broadcast");
  }
  Quiet quiet;
  qt::BusNotifications notifications(quiet.queue);
  notifications.post(ZQUICProject::broadcastName(project.appBundleId), json.value());
  return exitOk;
}

int watchPayloads(const Session&, const std::string& bundleId,
                  std::function<bool(const std::string&)> received) {
  Quiet quiet;
  qt::BusNotifications notifications(quiet.queue);
  bool wanted = true;
  notifications.observe(ZQUICProject::broadcastName(bundleId), [&](const std::string& payload) {
    wanted = wanted && received(payload);
    if (!wanted) QCoreApplication::quit();
  });
  return QCoreApplication::exec();
}

}  // namespace zq::zqc
