// ZQSwiftUI, MIT licence; see LICENSE.
// The whole road of a settings edit: from the edit in one process to the changed tree in
// another, beside a bare bus signal that carries as many bytes. Run as
// `dbus-run-session -- bench_road`.
#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QTemporaryDir>
#include <string>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/platform.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>
#include <zqswiftui/settings/project_json.hpp>
#include <zqswiftui/settings/zq_config.hpp>

#include "peer_process.hpp"

namespace {

using namespace zq;

constexpr const char* kBundleId = "test.example.bench_road";

void nameApplication() {
  QCoreApplication::setOrganizationDomain("example.test");
  QCoreApplication::setApplicationName("bench_road");
}

// About that many bytes of JSON, in groups of fifty.
std::vector<ZQUICGroup> groupsOf(std::size_t bytes) {
  constexpr std::size_t itemBytes = 210;
  std::vector<ZQUICGroup> groups;
  for (std::size_t i = 0; i * itemBytes < bytes; ++i) {
    if (i % 50 == 0) groups.push_back({.name = "group" + std::to_string(i / 50)});
    groups.back().itemList.push_back({.key = "some key " + std::to_string(i % 50),
                                      .doubleValue = 0.25 * static_cast<double>(i)});
  }
  return groups;
}

// Says when its tree has another value in it.
struct Follower {
  std::shared_ptr<ZQConfig> config;
  int socket;
  View body(Context& context) const {
    const double value = context.observe(config).doubleValue("group0", "someKey0");
    say(socket, now());
    return Text(std::to_string(value));
  }
};

void follow(int socket) {
  const QTemporaryDir folder;
  qputenv("XDG_DATA_HOME", folder.path().toUtf8());
  const std::string resource = folder.filePath("bench_road/ZQConfigurator.zquic").toStdString();
  fu_createParentFolderIfNeeded(Url::file(resource));
  if (!replaceFile(resource, "{}").ok()) return;
  int count = 0;
  QApplication app(count, nullptr);
  nameApplication();
  const qt::Platform platform(app);
  const auto config = std::make_shared<ZQConfig>(ZQConfig::defaultFileName, true);
  qt::HostWidget window(Follower{config, socket});
  window.show();
  QApplication::exec();
}

// Made before this process has threads, which a fork would not take along.
struct Processes {
  Listener follower{follow};
  Listener qtSignals{listenToSignals};
  const bool ready = follower.arrival() != 0 && qtSignals.arrival() != 0;
  int count = 0;
  QApplication app{count, nullptr};
  const qt::Platform platform{app};
};

Processes& processes() {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static Processes processes;
  return processes;
}

void rest() {
  QCoreApplication::processEvents();
}

void editToChangedTree(benchmark::State& state) {
  const Listener& follower = processes().follower;
  if (!processes().ready) return state.SkipWithError("there is no session bus");
  ZQUICProject project;
  project.appBundleId = kBundleId;
  project.setGroupList(groupsOf(static_cast<std::size_t>(state.range(0))));
  measureArrivals(
      state, follower,
      [&project] {
        project.editGroupList([](auto& groups) { groups[0].itemList[0].doubleValue += 1; });
        project.broadcast();
      },
      rest);
  state.counters["bytes"] =
      static_cast<double>(encodeProject(project, JsonStyle::compact).value().size());
}

void bareSignalOfQt(benchmark::State& state) {
  const Listener& listener = processes().qtSignals;
  if (!processes().ready) return state.SkipWithError("there is no session bus");
  const QByteArray payload(static_cast<qsizetype>(state.range(0)), 'x');
  QDBusConnection bus = QDBusConnection::sessionBus();
  measureArrivals(
      state, listener,
      [&] {
        QDBusMessage message = QDBusMessage::createSignal("/bench", "org.zq.Bench", "Posted");
        bus.send(message << 0 << payload);
      },
      rest);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(2 << 10)->Arg(1 << 20)->Iterations(500)->UseManualTime();
  benchmark->Unit(benchmark::kMicrosecond);
}

BENCHMARK(editToChangedTree)->Apply(sizes);
BENCHMARK(bareSignalOfQt)->Apply(sizes);

}  // namespace
