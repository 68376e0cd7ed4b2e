// ZQSwiftUI, MIT licence; see LICENSE.
#include <QApplication>
#include <map>
#include <zqswiftui/platform/qt/platform.hpp>

#include "media_jobs.hpp"
#include "pictures.hpp"
#include "recent_job.hpp"
#include "scene.hpp"

// This library on the work that the other programs of the comparison do.
namespace bench {
namespace {

// Every tag as it was placed, in order; what cannot be seen is asked for by this alone.
std::vector<zq::AccessibilityNode> placedTags(Window& window) {
  std::vector<zq::AccessibilityNode> found;
  const std::function<void(const zq::AccessibilityNode&)> walk =
      [&](const zq::AccessibilityNode& node) {
        if (node.role == zq::Role::text) found.push_back(node);
        for (const auto& child : node.children) walk(child);
      };
  walk(window.host().accessibilityTree());
  return found;
}

double checkRows(Window& window, const Model& model, int width, const char* what) {
  const auto found = placedTags(window);
  const auto texts = model.tags.snapshot();
  check(found.size() == texts->size(), what);
  Rows rows(width);
  for (std::size_t i = 0; i < found.size(); ++i) {
    const zq::Rect& r = found[i].bounds;
    const auto spot = rows.next(r.width + 2 * kPad, r.height + 2 * kPad);
    check(found[i].name == (*texts)[i], what);
    check(r.x == spot.x + kPad && r.y == spot.y + kPad && r.width > 8, what);
  }
  return rows.height();
}

class Items {
 public:
  explicit Items(int n) : n_(n), strings_(tags(n)), model_(std::make_shared<Model>(strings_)) {}

  void build();
  void width();
  void change(const char* item, std::size_t at, const std::string& to);
  void append();
  void removeFirst();
  void repaint();
  void hover();
  void save(const std::string& file) {
    if (!file.empty()) shown_->image().save(QString::fromStdString(file));
  }

 private:
  using List = std::vector<std::string>;
  void edit(const std::function<void(List&)>& how) { model_->tags.edit(how); }
  // From an edit to the pixels; then the edit is taken back.
  Series edited(const char* what, const std::function<void(List&)>& how,
                const std::function<void(List&)>& back);

  // The window as it is now. Whoever asks for the places of tags out of sight keeps their nodes,
  // as a screen reader does, so a new window follows.
  void verify(int width, const char* what);

  int n_;
  List strings_;
  std::shared_ptr<Model> model_;
  std::unique_ptr<Window> shown_;
};

void Items::build() {
  Series frames, drops;
  double height = 0;
  const Series built = repeated([&](int r) {
    const Timer timer;
    const auto model = std::make_shared<Model>(strings_);
    auto window = std::make_unique<Window>(Tags<Tag>{model});
    window->evaluateAndPlace();
    const double placed = timer.ms();
    const Timer rest;
    window->frame();
    const double frame = placed + rest.ms();
    check(window->painted() > 0, "W1 tags painted");
    if (r == -kWarmups) {
      window->checkComplete("W1 frame complete");
      height = checkRows(*window, *model, kViewW, "W1 all tags placed");
    }
    const Timer drop;
    window.reset();
    if (r >= 0) frames.add(frame), drops.add(drop.ms());
    return placed;
  });
  reportBuilt(n_, built, frames, drops, height);

  shown_ = std::make_unique<Window>(Tags<Tag>{model_});
  shown_->frame();
}

void Items::width() {
  Series frames;
  const Series placed = repeated([&](int r) {
    const Timer timer;
    shown_->resize(kNarrowW);
    shown_->evaluateAndPlace();
    const double ms = timer.ms();
    const Timer rest;
    shown_->frame();
    if (r >= 0) frames.add(ms + rest.ms());
    shown_->resize(kViewW);
    shown_->frame();
    return ms;
  });
  shown_->resize(kNarrowW);
  verify(kNarrowW, "W2 all tags placed, frame complete");
  report("W2", n_, placed);
  report("W2-frame", n_, frames);
}

Series Items::edited(const char* what, const std::function<void(List&)>& how,
                     const std::function<void(List&)>& back) {
  const Series series = repeated([&](int) {
    const auto bodies = shown_->host().counts().bodies;
    const Timer timer;
    edit(how);
    shown_->frame();
    const double ms = timer.ms();
    check(shown_->host().counts().bodies > bodies, what);
    edit(back);
    shown_->frame();
    return ms;
  });
  edit(how);
  verify(kViewW, what);
  edit(back);
  return series;
}

void Items::verify(int width, const char* what) {
  shown_->checkComplete(what);
  checkRows(*shown_, *model_, width, what);
  shown_ = std::make_unique<Window>(Tags<Tag>{model_});
  shown_->frame();
}

void Items::change(const char* item, std::size_t at, const std::string& to) {
  report(
      item, n_,
      edited(
          item, [&](List& list) { list[at] = to; }, [&](List& list) { list[at] = strings_[at]; }));
}

void Items::append() {
  report("W5-append", n_,
         edited(
             "W5-append", [&](List& l) { l.push_back(tag(static_cast<std::uint32_t>(n_))); },
             [](List& l) { l.pop_back(); }));
}

void Items::removeFirst() {
  report("W5-remove", n_,
         edited(
             "W5-remove", [](List& l) { l.erase(l.begin()); },
             [&](List& l) { l.insert(l.begin(), strings_.front()); }));
}

void Items::repaint() {
  const Series all = repeated([&](int) {
    const Timer timer;
    shown_->repaintAll();
    return timer.ms();
  });
  report("W7", n_, all, "all of the viewport painted again");
  reportIdle(n_, [&] { shown_->frame(); });
}

void Items::hover() {
  shown_ = std::make_unique<Window>(Tags<HoverTag>{model_});
  shown_->frame();
  long changes = 0;
  const Series moves = repeated([&](int) {
    const long before = shown_->painted();
    const Timer timer;
    for (int i = 0; i < kHoverMoves; ++i) {
      const Position at = hoverPosition(i);
      shown_->host().pointerMove({static_cast<double>(at.x), static_cast<double>(at.y)});
      shown_->frame();
    }
    const double ms = timer.ms() / kHoverMoves;
    changes = shown_->painted() - before;
    return ms;
  });
  const Position end = hoverPosition(kHoverMoves - 1);
  check(changes > 100 && (shown_->image().pixel(end.x, end.y) & 0xffffff) == kLit,
        "W8 tags hovered");
  report("W8", n_, moves, std::to_string(changes) + " of 200 moves repainted");
  shown_->checkComplete("W8 frame complete");
}

void items(const Arguments& arguments) {
  const int n = arguments.n();
  Items all(n);
  all.build();
  all.width();
  all.change("W4", kChangeAt, longer(tag(kChangeAt)));
  all.change("W4-all", 0, tooWide());
  all.append();
  all.removeFirst();
  if (n == 1000) all.repaint();
  all.save(arguments.png());
  if (n == 1000) all.hover();
}

void firstFrame(const Program& program) {
  const auto model = std::make_shared<Model>(tags(program.n()));
  Window window(Tags<Tag>{model});
  window.frame();
  if (program.reportFirstFrame()) window.checkComplete("W3 frame complete");
  checkRows(window, *model, kViewW, "all tags placed");
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  const bench::Program program("ours", argc, argv);
  QApplication application(argc, argv);
  const zq::qt::Platform platform(application, bench::openedList().toStdString());
  return program.run(bench::items, bench::firstFrame, [](const bench::Arguments& arguments) {
    return bench::pictures(arguments) || bench::media(arguments);
  });
}
