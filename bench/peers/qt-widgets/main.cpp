// ZQSwiftUI, MIT licence; see LICENSE.
#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QWindow>
#include <map>
#include <memory>

#include "bench.hpp"
#include "flow_layout.hpp"

// Qt Widgets: a label a tag, a wrapping layout, a scroll area. A frame is what the event loop
// itself paints into the window's pixels, which is only what is dirty.
namespace bench {

bool drop(const Arguments& arguments);    // in drop.cpp
bool recent(const Arguments& arguments);  // in recent.cpp

namespace {

long paints = 0;

QString toQString(const std::string& text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

class TagLabel final : public QLabel {
 public:
  TagLabel(const std::string& text, QWidget* parent) : QLabel(toQString(text), parent) {
    setTextFormat(Qt::PlainText);
    setContentsMargins(kPad, kPad, kPad, kPad);
    setAttribute(Qt::WA_Hover);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    ++paints;
    {
      QPainter painter(this);
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setPen(Qt::NoPen);
      painter.setBrush(QColor(underMouse() ? kLit : kPlain));
      painter.drawRoundedRect(rect(), kRadius, kRadius);
    }
    QLabel::paintEvent(event);
  }
};

// Everything posted, delivered: layout requests first, then the one repaint.
void frame() {
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents();
}

struct Window {
  Window() {
    area.setFrameShape(QFrame::NoFrame);
    area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.setWidgetResizable(true);
    area.resize(kViewW, kViewH);
  }
  // Fills the window before it shows: one that shows already is filled far more slowly, since
  // each tag asks for a repaint.
  void build(const std::vector<std::string>& texts) {
    content = new QWidget;
    flow = new FlowLayout(content, kGap);
    for (const auto& text : texts) add(text);
    area.setWidget(content);
    area.show();
    content->layout()->activate();
  }
  void add(const std::string& text) { flow->addWidget(new TagLabel(text, content)); }
  void remove(int i) {
    const std::unique_ptr<QLayoutItem> item(flow->takeAt(i));
    delete item->widget();
  }
  QLabel* label(int i) const { return static_cast<QLabel*>(flow->itemAt(i)->widget()); }
  QImage shown() {
    return area.screen()
        ->grabWindow(area.winId(), 0, 0, area.width(), area.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
  }
  void checkComplete(const char* what) {
    frame();
    const QImage is = shown();
    const QImage whole = area.grab().toImage().convertToFormat(QImage::Format_RGB32);
    check(!is.isNull() && is == whole, what);
  }
  int checkRows(int width, const char* what) {
    Rows rows(width);
    for (int i = 0; i < flow->count(); ++i) {
      const QSize size = flow->itemAt(i)->sizeHint();
      const auto spot = rows.next(size.width(), size.height());
      const QPoint place(static_cast<int>(spot.x), static_cast<int>(spot.y));
      check(label(i)->geometry() == QRect(place, size), what);
    }
    check(content->width() == width && content->height() >= rows.height(), what);
    return static_cast<int>(rows.height());
  }

  QScrollArea area;
  QWidget* content = nullptr;
  FlowLayout* flow = nullptr;
};

void build(const std::vector<std::string>& strings) {
  const int n = static_cast<int>(strings.size());
  Series frames, drops;
  int height = 0;
  const Series built = repeated([&](int r) {
    Window window;
    const Timer timer;
    window.build(strings);
    const double placed = timer.ms();
    height = window.checkRows(kViewW, "W1 all tags placed");
    const long before = paints;
    const Timer rest;
    frame();
    const double whole = placed + rest.ms();
    check(paints > before, "W1 tags painted");
    if (r == -kWarmups) window.checkComplete("W1 frame complete");
    const Timer drop;
    delete window.area.takeWidget();
    if (r >= 0) frames.add(whole), drops.add(drop.ms());
    return placed;
  });
  reportBuilt(n, built, frames, drops, height);
}

void width(Window& window) {
  Series frames;
  const Series placed = repeated([&](int r) {
    const Timer timer;
    window.area.resize(kNarrowW, kViewH);
    window.content->layout()->activate();
    const double ms = timer.ms();
    window.checkRows(kNarrowW, "W2 all tags placed");
    const Timer rest;
    frame();
    if (r >= 0) frames.add(ms + rest.ms());
    if (r == 0) window.checkComplete("W2 frame complete");
    window.area.resize(kViewW, kViewH);
    frame();
    return ms;
  });
  report("W2", window.flow->count(), placed);
  report("W2-frame", window.flow->count(), frames);
}

// From a change to the pixels; then it is taken back.
void edit(Window& window, const char* item, const auto& change, const auto& back) {
  const int n = window.flow->count();
  report(item, n, repeated([&](int r) {
           const long before = paints;
           const Timer timer;
           change();
           frame();
           const double ms = timer.ms();
           if (r == 0) {
             window.checkRows(kViewW, item);
             check(paints > before || window.flow->count() > n, item);
             window.checkComplete(item);
           }
           back();
           frame();
           return ms;
         }));
}

void edits(Window& window) {
  const int n = window.flow->count();
  const auto last = static_cast<std::uint32_t>(n);
  const auto setText = [&](int i, const std::string& text) {
    return [&window, i, text] { window.label(i)->setText(toQString(text)); };
  };
  edit(window, "W4", setText(kChangeAt, longer(tag(kChangeAt))),
       setText(kChangeAt, tag(kChangeAt)));
  edit(window, "W4-all", setText(0, tooWide()), setText(0, tag(0)));
  edit(
      window, "W5-append", [&] { window.add(tag(last)); }, [&] { window.remove(n); });
  edit(
      window, "W5-remove", [&] { window.remove(0); },
      [&] { window.flow->insertWidget(0, new TagLabel(tag(0), window.content)); });
}

void repaint(Window& window) {
  long painted = 0;
  const Series all = repeated([&](int) {
    const long before = paints;
    const Timer timer;
    window.content->repaint();  // the opaque one: its tags are repainted with it
    painted = paints - before;
    return timer.ms();
  });
  check(painted > 600, "W7 every visible tag painted");
  report("W7", window.flow->count(), all,
         std::to_string(painted) + " tags painted into the window's pixels");
}

void hover(Window& window) {
  int changes = 0;
  const Series moves = repeated([&](int) {
    changes = 0;
    const Timer timer;
    for (int i = 0; i < kHoverMoves; ++i) {
      const Position to = hoverPosition(i);
      const QPointF at(to.x, to.y);
      const long before = paints;
      QMouseEvent move(QEvent::MouseMove, at, at, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
      QCoreApplication::sendEvent(window.area.windowHandle(), &move);
      frame();
      if (paints != before) ++changes;
    }
    return timer.ms() / kHoverMoves;
  });
  const Position end = hoverPosition(kHoverMoves - 1);
  const QWidget* under = window.area.childAt(end.x, end.y);
  check(changes > 100 && under && under->underMouse(), "W8 tags hovered");
  report("W8", window.flow->count(), moves, std::to_string(changes) + " of 200 moves repainted");
  window.checkComplete("W8 frame complete");
}

void items(const Arguments& arguments) {
  const auto strings = tags(arguments.n());
  build(strings);
  Window window;
  window.build(strings);
  frame();
  window.checkComplete("first frame complete");
  width(window);
  edits(window);
  if (arguments.n() == 1000) repaint(window);
  if (!arguments.png().empty()) window.shown().save(QString::fromStdString(arguments.png()));
  if (arguments.n() == 1000) hover(window);
}

void firstFrame(const Program& program) {
  Window window;
  window.build(tags(program.n()));
  while (!paints) frame();
  if (program.reportFirstFrame()) window.checkComplete("W3 frame complete");
  window.checkRows(kViewW, "all tags placed");
}

void dress() {
  QFont font(QString::fromLatin1(kFontFamily));
  font.setPixelSize(kFontPx);
  QApplication::setFont(font);
  QPalette palette = QApplication::palette();
  palette.setColor(QPalette::Window, Qt::white);
  palette.setColor(QPalette::WindowText, QColor(kInk));
  QApplication::setPalette(palette);
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  const bench::Program program("qt-widgets", argc, argv);
  QApplication application(argc, argv);
  bench::dress();
  return program.run(bench::items, bench::firstFrame, [](const bench::Arguments& arguments) {
    return bench::drop(arguments) || bench::recent(arguments);
  });
}
