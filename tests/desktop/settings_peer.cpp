// ZQSwiftUI, MIT licence; see LICENSE.
// The two ends of the settings road, each a process of its own:
//   settings_peer edit NAME FILE COUNT   edits a value so often, and broadcasts each edit
//   settings_peer follow NAME            prints the value after each change that it is told
// Both are of the application test.example.NAME. The editor ends by printing how often its
// file was replaced and for how many quarters of a second it ran; the follower ends once the
// value is 999.
#include <sys/inotify.h>
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cstdio>
#include <zqswiftui/platform/qt/platform.hpp>
#include <zqswiftui/settings/zq_config.hpp>

namespace {

using namespace zq;

constexpr int betweenEdits = 20;  // milliseconds

void say(const char* format, double value) {
  std::printf(format, value);
  std::fflush(stdout);
}

// Counts what is renamed into a folder, as a file that is replaced whole is.
class RenameCounter {
 public:
  explicit RenameCounter(const std::string& folder) : events_(::inotify_init1(IN_NONBLOCK)) {
    ::inotify_add_watch(events_, folder.c_str(), IN_MOVED_TO);
  }
  ~RenameCounter() { ::close(events_); }
  RenameCounter(const RenameCounter&) = delete;
  RenameCounter& operator=(const RenameCounter&) = delete;

  int count() {
    alignas(inotify_event) std::array<char, 4096> buffer{};
    for (ssize_t size = 0; (size = ::read(events_, buffer.data(), buffer.size())) > 0;) {
      for (ssize_t at = 0; at < size; ++count_) {
        inotify_event event{};
        std::copy_n(buffer.data() + at, sizeof event, reinterpret_cast<char*>(&event));
        at += static_cast<ssize_t>(sizeof event + event.len);
      }
    }
    return count_;
  }

 private:
  int events_;
  int count_ = 0;
};

void edit(ZQUICProject& project, double value) {
  project.editGroupList([value](auto& groups) { groups[0].itemList[0].doubleValue = value; });
  project.broadcast();
}

int runEditor(const QString& name, const std::string& file, int count) {
  ZQUICProject project{Url::file(file)};
  project.appBundleId = "test.example." + name.toStdString();
  project.configFileUrl = Url::file(file);
  RenameCounter renames(file.substr(0, file.rfind('/')));
  QElapsedTimer elapsed;
  elapsed.start();
  QTimer timer;
  int made = 0;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    edit(project, ++made == count ? 999 : made);
    if (made == count) QCoreApplication::quit();
  });
  timer.start(betweenEdits);
  QApplication::exec();
  const auto quarters = static_cast<double>(elapsed.elapsed()) / 250;
  // The last edit was not due yet, but a normal end has written it.
  say("writes %.0f\n", renames.count());
  say("quarters %.0f\n", quarters);
  return 0;
}

int runFollower() {
  ZQConfig config;
  const Subscription token = config.willChange.connect([&config] {
    const double value = config.doubleValue("Canvas", "zoom");
    say("value %.0f\n", value);
    if (value == 999) QCoreApplication::quit();
  });
  say("following %.0f\n", config.doubleValue("Canvas", "zoom"));
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  const QStringList words = QCoreApplication::arguments();
  if (words.size() < 3) return 2;
  QCoreApplication::setOrganizationDomain("example.test");
  QCoreApplication::setApplicationName(words[2]);
  const qt::Platform platform(app);
  if (words[1] == "follow") return runFollower();
  return words.size() == 5 ? runEditor(words[2], words[3].toStdString(), words[4].toInt()) : 2;
}
