// ZQSwiftUI, MIT licence; see LICENSE.
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QStaticText>
#include <algorithm>
#include <cmath>

#include "bench.hpp"
#include "pictures.hpp"

// The same jobs with no toolkit in between: layout is one loop over an array of sizes, painting
// is the painter called once for each visible tag. What no toolkit can do without.
namespace bench {
namespace {

QFont tagFont() {
  QFont font(QString::fromLatin1(kFontFamily));
  font.setPixelSize(kFontPx);
  return font;
}

double placeAll(const std::vector<QSizeF>& sizes, std::vector<QRectF>& places, double width) {
  Rows rows(width);
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const auto spot = rows.next(sizes[i].width(), sizes[i].height());
    places[i] = {QPointF(spot.x, spot.y), sizes[i]};
  }
  return rows.height();
}

struct Scene {
  explicit Scene(std::vector<std::string> texts) : text(std::move(texts)) {
    size.reserve(text.size());
    for (const auto& t : text) size.push_back(measured(t));
    box.resize(text.size());
    shaped.resize(text.size());
  }

  QSizeF measured(const std::string& t) const {
    const QString wide = QString::fromLatin1(t.data(), static_cast<qsizetype>(t.size()));
    return {std::ceil(metrics.horizontalAdvance(wide)) + 2 * kPad,
            std::ceil(metrics.height()) + 2 * kPad};
  }
  void setText(std::size_t i, const std::string& t) {
    text[i] = t;
    size[i] = measured(t);
    shaped[i] = QStaticText();
  }
  void insert(std::size_t i, const std::string& t) {
    const auto at = static_cast<std::ptrdiff_t>(i);
    text.insert(text.begin() + at, t);
    size.insert(size.begin() + at, measured(t));
    shaped.insert(shaped.begin() + at, QStaticText());
    box.emplace_back();
  }
  void remove(std::size_t i) {
    const auto at = static_cast<std::ptrdiff_t>(i);
    text.erase(text.begin() + at);
    size.erase(size.begin() + at);
    shaped.erase(shaped.begin() + at);
    box.pop_back();
  }
  double layout(double width) { return placeAll(size, box, width); }
  void shape(std::size_t i) {
    shaped[i].setText(QString::fromStdString(text[i]));
    shaped[i].setTextFormat(Qt::PlainText);
    shaped[i].setPerformanceHint(QStaticText::AggressiveCaching);
    shaped[i].prepare({}, font);
  }
  void shapeVisible() {
    for (std::size_t i = 0; i < box.size() && box[i].y() < kViewH; ++i) {
      if (shaped[i].text().isEmpty()) shape(i);
    }
  }
  void paintOne(QPainter& painter, std::size_t i) const {
    painter.setBrush(QColor(static_cast<int>(i) == hover ? kLit : kPlain));
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(box[i], kRadius, kRadius);
    painter.setPen(QColor(kInk));
    painter.drawStaticText(box[i].topLeft() + QPointF(kPad, kPad), shaped[i]);
  }
  int paintIn(const QRectF& dirty, bool culled = true) {
    if (dirty.isEmpty()) return 0;
    QPainter painter(&frame);
    painter.setClipRect(dirty);
    painter.fillRect(dirty, Qt::white);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font);
    int painted = 0;
    for (std::size_t i = 0; i < box.size(); ++i) {
      if (culled && box[i].y() >= dirty.bottom()) break;
      if (culled && !dirty.intersects(box[i])) continue;
      paintOne(painter, i);
      ++painted;
    }
    return painted;
  }
  int paint(bool culled = true) { return paintIn(QRectF(frame.rect()), culled); }
  int hit(double x, double y) const {  // rows stand below each other
    const auto after = std::partition_point(box.begin(), box.end(), [&](const QRectF& b) {
      return b.bottom() <= y || (b.top() <= y && b.right() <= x);
    });
    if (after == box.end() || !after->contains(x, y)) return -1;
    return static_cast<int>(after - box.begin());
  }

  std::vector<std::string> text;
  std::vector<QSizeF> size;
  std::vector<QRectF> box;
  std::vector<QStaticText> shaped;
  QFont font = tagFont();
  QFontMetricsF metrics{font};
  int hover = -1;
  QImage frame{kViewW, kViewH, QImage::Format_RGB32};
};

void build(int n) {
  const auto strings = tags(n);
  const Scene scene(strings);
  std::vector<QRectF> places(scene.size.size());
  // The bare loop takes microseconds, so each repetition is many passes.
  const int passes = std::max(1, 2'000'000 / n);
  volatile double sink = 0;
  const auto loop = [&](int width) {
    return repeated([&, width](int) {
      const Timer timer;
      for (int k = 0; k < passes; ++k) sink = placeAll(scene.size, places, width);
      return timer.ms() / passes;
    });
  };
  report("W1", n, loop(kViewW), "rows only, sizes given");
  report("W2", n, loop(kNarrowW), "rows only, sizes given");
  check(sink > 0 && places.back().right() <= kNarrowW, "rows built");
  for (const bool shapes : {false, true}) {
    const Series series = repeated([&](int) {
      const Timer timer;
      Scene made(strings);
      for (std::size_t i = 0; shapes && i < made.text.size(); ++i) made.shape(i);
      made.layout(kViewW);
      return timer.ms();
    });
    report(shapes ? "W1-shaped" : "W1-measured", n, series,
           shapes ? "strings copied, measured and shaped" : "strings copied and measured");
  }
}

class Edits {
 public:
  explicit Edits(int n) : n_(n), scene_(tags(n)) {
    scene_.layout(kViewW);
    scene_.shapeVisible();
    scene_.paint();
  }
  Scene& scene() { return scene_; }

  void changes() {
    const std::string seventh = scene_.text[kChangeAt], first = scene_.text[0];
    edit(
        "W4", 0, [&] { scene_.setText(kChangeAt, longer(seventh)); },
        [&] { scene_.setText(kChangeAt, seventh); });
    edit(
        "W4-all", 0, [&] { scene_.setText(0, tooWide()); }, [&] { scene_.setText(0, first); });
    const auto last = static_cast<std::size_t>(n_);
    edit(
        "W5-append", 0, [&] { scene_.insert(last, tag(static_cast<std::uint32_t>(n_))); },
        [&] { scene_.remove(last); });
    edit(
        "W5-remove", 1, [&] { scene_.remove(0); }, [&] { scene_.insert(0, first); });
  }

 private:
  // Changes one thing, builds the rows, paints the rectangle in which tags moved. `shift` says
  // how far the places of the tags moved in the list.
  void edit(const char* item, std::size_t shift, const auto& change, const auto& back) {
    report(item, n_, repeated([&](int r) {
             const std::vector<QRectF> before = scene_.box;
             const Timer timer;
             change();
             scene_.layout(kViewW);
             const QRectF dirty = moved(before, shift);
             scene_.shapeVisible();
             scene_.paintIn(dirty & QRectF(scene_.frame.rect()));
             const double ms = timer.ms();
             if (r == 0) {
               const QImage partial = scene_.frame.copy();
               scene_.paint();
               check(partial == scene_.frame, item);
             }
             back();
             scene_.layout(kViewW);
             scene_.shapeVisible();
             scene_.paint();
             return ms;
           }));
  }
  QRectF moved(const std::vector<QRectF>& before, std::size_t shift) const {
    QRectF dirty;
    if (shift > 0) dirty |= before[0];
    for (std::size_t i = 0; i < scene_.box.size(); ++i) {
      const QRectF& now = scene_.box[i];
      if (i + shift >= before.size()) {
        dirty |= now;
        continue;
      }
      const QRectF& was = before[i + shift];
      if (was == now || std::min(was.y(), now.y()) >= kViewH) continue;
      dirty |= was | now;
    }
    return dirty;
  }

  int n_;
  Scene scene_;
};

void repaint(Scene& scene, int n) {
  int painted = 0;
  const auto full = [&](bool culled) {
    return repeated([&, culled](int) {
      const Timer timer;
      painted = scene.paint(culled);
      return timer.ms();
    });
  };
  const Series visible = full(true);
  report("W7", n, visible, std::to_string(painted) + " tags in the viewport painted");
  for (std::size_t i = 0; i < scene.text.size(); ++i) scene.shape(i);
  report("W7-unculled", n, full(false), "all tags sent to the painter");
}

void hover(Scene& scene, int n) {
  int changes = 0;
  const Series moves = repeated([&](int) {
    changes = 0;
    const Timer timer;
    for (int i = 0; i < kHoverMoves; ++i) {
      const Position at = hoverPosition(i);
      const int was = scene.hover, now = scene.hit(at.x, at.y);
      if (now == was) continue;
      scene.hover = now;
      ++changes;
      if (was >= 0) scene.paintIn(scene.box[static_cast<std::size_t>(was)]);
      if (now >= 0) scene.paintIn(scene.box[static_cast<std::size_t>(now)]);
    }
    return timer.ms() / kHoverMoves;
  });
  report("W8", n, moves, std::to_string(changes) + " of 200 moves changed the tag");
  const QImage partial = scene.frame.copy();
  scene.paint();
  check(partial == scene.frame, "W8 frame complete");
}

void items(const Arguments& arguments) {
  const int n = arguments.n();
  build(n);
  Edits edits(n);
  edits.changes();
  if (n == 1000) {
    repaint(edits.scene(), n);
    hover(edits.scene(), n);
  }
  if (!arguments.png().empty()) edits.scene().frame.save(QString::fromStdString(arguments.png()));
}

void firstFrame(const Program& program) {
  Scene scene(tags(program.n()));
  for (std::size_t i = 0; program.memory() && i < scene.text.size(); ++i) scene.shape(i);
  scene.layout(kViewW);
  scene.shapeVisible();
  scene.paint();
  program.reportFirstFrame();
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  const bench::Program program("floor", argc, argv);
  QGuiApplication application(argc, argv);
  return program.run(bench::items, bench::firstFrame, bench::pictures);
}
