// ZQSwiftUI, MIT licence; see LICENSE.
#include <QAbstractListModel>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <memory>

#include "media_jobs.hpp"
#include "window.hpp"

// The ruler as a Repeater of ticks: of all that there are, and of those in sight; the timeline as
// one of rectangles.
namespace bench {
namespace {

struct MediaWindow : Window {
  void load(const char* file, const QVariantMap& properties) {
    component = std::make_unique<QQmlComponent>(
        &engine, QUrl(QStringLiteral("qrc:/Peer/") + QLatin1String(file)));
    root.reset(qobject_cast<QQuickItem*>(component->createWithInitialProperties(properties)));
    if (!root) std::fprintf(stderr, "%s\n", qPrintable(component->errorString()));
    check(root != nullptr, "QML loads");
    root->setParentItem(window.contentItem());
    if (!window.isVisible()) {
      window.show();
      QCoreApplication::processEvents();
    }
    frame();
    check(swaps > 0, "window exposed");
  }

  QQmlEngine engine;
  std::unique_ptr<QQmlComponent> component;
  std::unique_ptr<QQuickItem> root;
};

void ruler(const Arguments& arguments) {
  const int n = arguments.n();
  const int majors = static_cast<int>(n / kTickSeconds) + 1;
  const QVariantMap scale{{QStringLiteral("step"), kTickSeconds},
                          {QStringLiteral("pitch"), kTickPoints}};
  MediaWindow scene;
  scene.load("RangeRuler.qml", scale);
  const double start = n / 2.0;
  reportPan("M1-range", n, [&](double to) {
    scene.root->setProperty("start", start + to * (kTickSeconds / kTickPoints));
    scene.frame();
  });
  scene.checkComplete("M1-range frame complete");

  QVariantMap all = scale;
  all.insert(QStringLiteral("majors"), majors);
  all.insert(QStringLiteral("minors"), 2 * majors - 1);
  const Timer timer;
  scene.load("Ruler.qml", all);
  report("M1-open", n, timer.ms());
  reportPan("M1", n, [&](double to) {
    scene.root->setProperty("at", to);
    scene.frame();
  });
  scene.checkComplete("M1 frame complete");
  if (!arguments.png().empty()) scene.shown().save(QString::fromStdString(arguments.png()));
}

class Segments final : public QAbstractListModel {
 public:
  explicit Segments(int n) {
    for (int i = 0; i < n; ++i) ends_ << i + 0.5;
  }
  int rowCount(const QModelIndex& = {}) const override { return static_cast<int>(ends_.size()); }
  QVariant data(const QModelIndex& at, int role) const override {
    return role == Qt::UserRole ? static_cast<double>(at.row()) : ends_[at.row()];
  }
  QHash<int, QByteArray> roleNames() const override {
    return {{Qt::UserRole, "start"}, {Qt::UserRole + 1, "end"}};
  }
  void moveEnd(int i, double by) {
    ends_[i] += by;
    emit dataChanged(index(i), index(i), {Qt::UserRole + 1});
  }

 private:
  QList<double> ends_;
};

void timeline(const Arguments& arguments) {
  const int n = arguments.n();
  Segments segments(n);
  MediaWindow scene;
  scene.load("Timeline.qml", {{QStringLiteral("model"), QVariant::fromValue(&segments)},
                              {QStringLiteral("total"), static_cast<double>(n)}});
  const auto edited = [&](const char* item, const auto& edit) {
    const Series series = repeated([&](int r) {
      const long before = scene.swaps;
      const Timer timer;
      edit(r);
      scene.frame();
      const double ms = timer.ms();
      check(scene.swaps > before, item);
      return ms;
    });
    scene.checkComplete(item);
    report(item, n, series);
  };
  edited("M2", [&](int r) { segments.moveEnd(n / 2, r % 2 ? 0.25 : -0.25); });
  edited("M2-zoom", [&](int r) { scene.root->setProperty("total", n * (r % 2 ? 1 : 0.8)); });
  if (!arguments.png().empty()) scene.shown().save(QString::fromStdString(arguments.png()));
}

}  // namespace

bool media(const Arguments& arguments) {
  static const MediaJob jobs[] = {{"ruler", ruler}, {"timeline", timeline}};
  return runMedia(arguments, jobs);
}

}  // namespace bench
