// ZQSwiftUI, MIT licence; see LICENSE.
#include <QAbstractListModel>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <algorithm>
#include <cmath>

#include "bench.hpp"
#include "media_jobs.hpp"
#include "pictures.hpp"
#include "window.hpp"

// Qt Quick: Flow and Repeater over a C++ list model, with the software renderer.
namespace bench {
namespace {

class Model final : public QAbstractListModel {
  Q_OBJECT
 public:
  explicit Model(const std::vector<std::string>& texts) {
    for (const auto& text : texts) rows_ << QString::fromStdString(text);
  }
  int rowCount(const QModelIndex& = {}) const override { return static_cast<int>(rows_.size()); }
  QVariant data(const QModelIndex& at, int) const override { return rows_[at.row()]; }
  QHash<int, QByteArray> roleNames() const override { return {{Qt::DisplayRole, "label"}}; }
  void set(int i, const std::string& text) {
    rows_[i] = QString::fromStdString(text);
    emit dataChanged(index(i), index(i), {Qt::DisplayRole});
  }
  void insert(int i, const std::string& text) {
    beginInsertRows({}, i, i);
    rows_.insert(i, QString::fromStdString(text));
    endInsertRows();
  }
  void remove(int i) {
    beginRemoveRows({}, i, i);
    rows_.removeAt(i);
    endRemoveRows();
  }

 private:
  QStringList rows_;
};

struct Scene : Window {
  ~Scene() { drop(); }
  void build(Model& model, bool hover = false) {
    drop();
    root = qobject_cast<QQuickItem*>(component.createWithInitialProperties(
        {{QStringLiteral("model"), QVariant::fromValue(&model)},
         {QStringLiteral("hover"), hover}}));
    if (!root) std::fprintf(stderr, "%s\n", qPrintable(component.errorString()));
    check(root, "QML loads");
    root->setParentItem(window.contentItem());
    flow = root->property("flow").value<QQuickItem*>();
  }
  void drop() { delete std::exchange(root, nullptr); }
  void layout() { QMetaObject::invokeMethod(flow, "forceLayout"); }
  std::vector<QQuickItem*> tagItems() const {
    std::vector<QQuickItem*> found;
    for (QQuickItem* child : flow->childItems()) {
      if (child->property("label").isValid()) found.push_back(child);
    }
    return found;
  }
  // The row of each is found from where it stands.
  double checkRows(int n, int width, const char* what) const {
    auto found = tagItems();
    check(static_cast<int>(found.size()) == n, what);
    std::sort(found.begin(), found.end(), [](const QQuickItem* a, const QQuickItem* b) {
      return a->y() != b->y() ? a->y() < b->y() : a->x() < b->x();
    });
    Rows rows(width);
    for (const QQuickItem* item : found) {
      const auto spot = rows.next(item->width(), item->height());
      check(std::abs(item->x() - spot.x) < 0.01 && std::abs(item->y() - spot.y) < 0.01, what);
    }
    check(std::abs(flow->height() - rows.height()) < 0.01, what);
    return rows.height();
  }

  QQmlEngine engine;
  QQmlComponent component{&engine, QUrl(QStringLiteral("qrc:/Peer/Tags.qml"))};
  QQuickItem* root = nullptr;
  QQuickItem* flow = nullptr;
};

void build(Scene& scene, int n) {
  const auto strings = tags(n);
  Series frames, drops;
  double height = 0;
  const Series built = repeated([&](int r) {
    const Timer timer;
    Model model(strings);
    scene.build(model);
    scene.layout();
    const double placed = timer.ms();
    height = scene.checkRows(n, kViewW, "W1 all tags placed");
    const long before = scene.swaps;
    const Timer rest;
    scene.frame();
    const double whole = placed + rest.ms();
    check(scene.swaps > before, "W1 frame");
    if (r == -kWarmups) scene.checkComplete("W1 frame complete");
    const Timer drop;
    scene.drop();
    if (r >= 0) frames.add(whole), drops.add(drop.ms());
    scene.frame();
    return placed;
  });
  reportBuilt(n, built, frames, drops, height);
}

void width(Scene& scene, int n) {
  Series frames;
  const Series placed = repeated([&](int r) {
    const Timer timer;
    scene.root->setWidth(kNarrowW);
    scene.layout();
    const double ms = timer.ms();
    scene.checkRows(n, kNarrowW, "W2 all tags placed");
    const Timer rest;
    scene.frame();
    if (r >= 0) frames.add(ms + rest.ms());
    if (r == 0) scene.checkComplete("W2 frame complete");
    scene.root->setWidth(kViewW);
    scene.frame();
    return ms;
  });
  report("W2", n, placed);
  report("W2-frame", n, frames);
}

void edits(Scene& scene, Model& model) {
  const int n = model.rowCount();
  const auto edit = [&](const char* item, const auto& change, const auto& back) {
    report(item, n, repeated([&](int r) {
             const Timer timer;
             change();
             scene.frame();
             const double ms = timer.ms();
             if (r == 0) {
               scene.checkRows(model.rowCount(), kViewW, item);
               scene.checkComplete(item);
             }
             back();
             scene.frame();
             return ms;
           }));
  };
  edit(
      "W4", [&] { model.set(kChangeAt, longer(tag(kChangeAt))); },
      [&] { model.set(kChangeAt, tag(kChangeAt)); });
  edit(
      "W4-all", [&] { model.set(0, tooWide()); }, [&] { model.set(0, tag(0)); });
  edit(
      "W5-append", [&] { model.insert(n, tag(static_cast<std::uint32_t>(n))); },
      [&] { model.remove(n); });
  edit(
      "W5-remove", [&] { model.remove(0); }, [&] { model.insert(0, tag(0)); });
}

void repaint(Scene& scene, int n) {
  const Series all = repeated([&](int) {
    const Timer timer;
    scene.repaintAll();
    return timer.ms();
  });
  scene.window.setColor(Qt::white);
  scene.frame();
  report("W7", n, all, "all painted into the window's pixels");
  reportIdle(n, [&] { scene.frame(); });
}

void hover(Scene& scene, Model& model) {
  scene.build(model, true);
  scene.frame();
  std::vector<QQuickItem*> under;
  for (int i = 0; i < kHoverMoves; ++i) {
    const Position at = hoverPosition(i);
    under.push_back(scene.flow->childAt(at.x, at.y));
  }
  int changes = 0;
  const Series moves = repeated([&](int) {
    changes = 0;
    const Timer timer;
    for (int i = 0; i < kHoverMoves; ++i) {
      const Position to = hoverPosition(i);
      const QPointF at(to.x, to.y);
      QMouseEvent move(QEvent::MouseMove, at, at, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
      QCoreApplication::sendEvent(&scene.window, &move);
      const std::size_t now = static_cast<std::size_t>(i);
      if (under[now] == under[now ? now - 1 : under.size() - 1]) continue;
      scene.frame();
      ++changes;
    }
    return timer.ms() / kHoverMoves;
  });
  int lit = 0;
  for (const auto* item : scene.tagItems()) {
    lit += item->property("color").value<QColor>() == QColor(kLit);
  }
  check(changes > 100 && lit == 1, "W8 tags hovered");
  report("W8", model.rowCount(), moves, std::to_string(changes) + " of 200 moves changed the tag");
  scene.checkComplete("W8 frame complete");
}

void items(const Arguments& arguments) {
  const int n = arguments.n();
  Model model(tags(n));
  Scene scene;
  scene.window.show();
  QCoreApplication::processEvents();
  check(scene.swaps > 0, "window exposed");
  build(scene, n);
  scene.build(model);
  scene.checkComplete("first frame complete");
  width(scene, n);
  edits(scene, model);
  if (n == 1000) repaint(scene, n);
  if (!arguments.png().empty()) scene.shown().save(QString::fromStdString(arguments.png()));
  if (n == 1000) hover(scene, model);
}

void firstFrame(const Program& program) {
  Model model(tags(program.n()));
  Scene scene;
  scene.build(model);
  scene.window.show();
  while (!scene.swaps) QCoreApplication::processEvents();
  if (program.reportFirstFrame()) scene.checkComplete("W3 frame complete");
  scene.checkRows(program.n(), kViewW, "all tags placed");
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  const bench::Program program("qt-quick", argc, argv);
  QGuiApplication application(argc, argv);
  QFont font(QString::fromLatin1(bench::kFontFamily));
  font.setPixelSize(bench::kFontPx);
  QGuiApplication::setFont(font);
  return program.run(bench::items, bench::firstFrame, [](const bench::Arguments& arguments) {
    return bench::pictures(arguments) || bench::media(arguments);
  });
}

#include "main.moc"
