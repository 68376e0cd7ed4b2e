// ZQSwiftUI, MIT licence; see LICENSE.
// The configurator with twenty thousand values in two hundred groups: from nothing to the painted
// window, beside a Qt tree view that shows the same file, and from what the user does to the
// painted window.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPaintEvent>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTreeView>
#include <algorithm>
#include <apps/configurator/main_view.hpp>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/platform.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace {

using namespace zq;
using namespace zq::configurator;

constexpr int kGroups = 200;
constexpr int kItems = 100;
constexpr QSize kWindow(1240, 760);

ZQUICProject largeProject() {
  std::vector<ZQUICGroup> groups;
  for (int g = 0; g < kGroups; ++g) {
    groups.push_back({.name = "group " + std::to_string(g)});
    for (int i = 0; i < kItems; ++i) {
      const auto type = allRecordTypes[static_cast<std::size_t>(i) % allRecordTypes.size()];
      groups.back().itemList.push_back({.key = "value " + std::to_string(i),
                                        .type = type,
                                        .intValue = i,
                                        .doubleValue = 0.25 * i,
                                        .stringValue = "a text of some length",
                                        .pointValue = {i * 1.0, 0.5}});
    }
  }
  ZQUICProject project;
  project.name = "large";
  project.setGroupList(std::move(groups));
  return project;
}

[[noreturn]] void stop(const char* why) {
  std::fprintf(stderr, "bench_configurator: %s\n", why);
  std::exit(1);
}

// What all benchmarks stand on: an application without a screen, and the file.
class Ground {
 public:
  static Ground& shared() {
    static auto* const one = new Ground;  // it lives as long as the process
    return *one;
  }
  QString path() const { return folder_.filePath("large.zquic"); }

 private:
  Ground() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_DATA_HOME", folder_.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", folder_.path().toUtf8());
    app_ = new QApplication(count_, nullptr);
    platform_ = new qt::Platform(*app_);
    const auto text = encodeProject(largeProject(), JsonStyle::pretty);
    if (!text.ok() || !replaceFile(path().toStdString(), text.value()).ok()) stop("no project");
  }

  QTemporaryDir folder_;
  int count_ = 0;
  QApplication* app_ = nullptr;
  qt::Platform* platform_ = nullptr;
};

// Counts what is painted into a widget, and the longest turn of the event loop meanwhile.
class Watch final : public QObject {
 public:
  explicit Watch(QWidget& widget) { widget.installEventFilter(this); }
  int paints() const { return paints_; }

  template <class Done>
  double runUntil(const Done& done) {
    double longest = 0;
    while (!done()) {
      const auto begin = std::chrono::steady_clock::now();
      QCoreApplication::processEvents(QEventLoop::AllEvents);
      const std::chrono::duration<double, std::milli> took =
          std::chrono::steady_clock::now() - begin;
      longest = std::max(longest, took.count());
    }
    return longest;
  }
  double runUntilPainted() {
    return runUntil([this, before = paints_] { return paints_ > before; });
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++paints_;
    return QObject::eventFilter(watched, event);
  }

 private:
  int paints_ = 0;
};

// A window of the configurator.
class Editor {
 public:
  Editor() {
    widget_.resize(kWindow);
    widget_.show();
    bench_->openProject(Url::file(Ground::shared().path().toStdString()));
    watch_.runUntil([this] { return bench_->document() != nullptr; });
    watch_.runUntilPainted();
  }
  Workbench& bench() { return *bench_; }
  Watch& watch() { return watch_; }
  void select(int group, int item) {
    const auto& groups = bench_->document()->content()->groups;
    bench_->selectedGroup().set(groups[static_cast<std::size_t>(group)]->id);
    bench_->selectedItem().set(bench_->group()->itemList[static_cast<std::size_t>(item)].id);
  }

 private:
  std::shared_ptr<Workbench> bench_ = std::make_shared<Workbench>(
      std::make_shared<Shelf>(), std::make_shared<OpenDocuments>(), WindowActions());
  qt::HostWidget widget_{MainView(bench_)};
  Watch watch_{widget_};
};

void openInTheConfigurator(benchmark::State& state) {
  Ground::shared();
  for (auto _ : state) {
    Editor editor;
    if (editor.bench().document()->content()->groups.size() != kGroups) stop("groups are missing");
  }
}
BENCHMARK(openInTheConfigurator)->Unit(benchmark::kMillisecond)->UseRealTime();

void openInAQtTreeView(benchmark::State& state) {
  const QString path = Ground::shared().path();
  for (auto _ : state) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) stop("the project cannot be read");
    const QJsonObject project = QJsonDocument::fromJson(file.readAll()).object();
    QStandardItemModel model;
    for (const QJsonValue& group : project["groupList"].toArray()) {
      auto* parent = new QStandardItem(group["name"].toString());
      for (const QJsonValue& item : group["itemList"].toArray()) {
        parent->appendRow({new QStandardItem(item["key"].toString()),
                           new QStandardItem(item["stringValue"].toString())});
      }
      model.appendRow(parent);
    }
    if (model.rowCount() != kGroups) stop("groups are missing");
    QTreeView view;
    view.setModel(&model);
    view.resize(kWindow);
    Watch watch(*view.viewport());
    view.show();
    watch.runUntilPainted();
  }
}
BENCHMARK(openInAQtTreeView)->Unit(benchmark::kMillisecond)->UseRealTime();

// Does something and waits until it is seen; tells the longest that the event loop stood still.
template <class Act>
void measure(benchmark::State& state, const Act& act) {
  Ground::shared();
  Editor editor;
  editor.select(kGroups / 2, 5);  // its row can be seen
  editor.watch().runUntilPainted();
  static int turn = 0;  // what the last run has saved is another value
  double longest = 0;
  for (auto _ : state) {
    act(editor, ++turn);
    longest = std::max(longest, editor.watch().runUntilPainted());
  }
  state.counters["longest_turn_ms"] = longest;
  editor.watch().runUntil(
      [&] { return editor.bench().document()->saveState() == SaveState::saved; });
}

// The project is saved meanwhile, every quarter of a second.
void editAValue(benchmark::State& state) {
  measure(state, [](Editor& editor, int turn) {
    Workbench& bench = editor.bench();
    bench.document()->edit(
        "Change value",
        [&](ProjectContent& content) {
          editItem(content, *bench.groupId.get(), *bench.itemId.get(),
                   [&](ZQUICItem& item) { item.intValue = turn, item.doubleValue = turn; });
        },
        "value");
  });
}
BENCHMARK(editAValue)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2);

void selectAnotherGroup(benchmark::State& state) {
  measure(state, [](Editor& editor, int turn) { editor.select(turn % kGroups, turn % kItems); });
}
BENCHMARK(selectAnotherGroup)->Unit(benchmark::kMillisecond)->UseRealTime();

void typeIntoTheSearch(benchmark::State& state) {
  measure(state, [](Editor& editor, int turn) {
    editor.bench().search(turn % 2 == 0 ? "value 9" : "value 99");
  });
}
BENCHMARK(typeIntoTheSearch)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
