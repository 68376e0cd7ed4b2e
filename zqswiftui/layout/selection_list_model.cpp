// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <utility>
#include <zqswiftui/layout/selection_list_model.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/services/clock.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {
namespace {

constexpr double kMenuInset = 12;      // of a menu that a key opens, from the edge of the list
constexpr double kTyping = 1;          // seconds between letters of one beginning
constexpr double kScrollEdge = 16;     // this near to an end of what is seen, a drag scrolls
constexpr double kScrollStep = 12;     // points
constexpr double kScrollEvery = 0.03;  // seconds

}  // namespace

void SelectionListModel::follow(const SelectionList::Parameters& list, double rowHeight) {
  list_ = list;
  rowHeight_ = rowHeight;
}

// Where it was last, it is most often still.
std::optional<std::size_t> SelectionListModel::indexOf(const std::string& key) {
  if (last_ < count() && (*list_.key)(last_) == key) return last_;
  for (std::size_t i = 0; i < count(); ++i) {
    if ((*list_.key)(i) == key) return i;
  }
  return std::nullopt;
}

std::optional<std::size_t> SelectionListModel::selected() {
  const auto key = list_.selection->get();
  const auto index = key ? indexOf(*key) : std::nullopt;
  if (index) last_ = *index;
  return index;
}

template <class Change>
void SelectionListModel::mark(const Change& change) {
  Marks next = marks();
  change(next);
  if (!(next == marks())) marks_.set(next);
}

void SelectionListModel::reveal(const Rect& part) {
  mark([&](Marks& marks) {
    marks.reveal = part;
    ++marks.turn;
  });
}

void SelectionListModel::select(std::size_t row) {
  if (row >= count()) return;
  last_ = row;
  const auto selection = *list_.selection;  // its owner may replace this list
  selection.set((*list_.key)(row));
}

void SelectionListModel::go(std::size_t row) {
  reveal({0, top(row), 1, rowHeight_});
  select(row);
}

void SelectionListModel::pressed(std::size_t row, int clicks) {
  select(row);
  const auto activate = list_.onActivate;
  if (clicks == 2 && activate && row < count()) activate(row);
}

void SelectionListModel::hovered(std::size_t row, bool inside) {
  mark([&](Marks& marks) {
    if (inside) marks.hovered = row;
    if (!inside && marks.hovered == row) marks.hovered = std::nullopt;
  });
}

void SelectionListModel::focused(bool focused) {
  mark([&](Marks& marks) { marks.focused = focused; });
}

void SelectionListModel::openMenu(std::size_t row, Point inRow, const OpenedState& opened) {
  if (row >= count()) return;
  select(row);
  if (list_.menu(row).empty()) return;
  opened.set(detail::OpenedMenu{.at = {inRow.x, top(row) + inRow.y}});
}

// --- Keys ---

bool SelectionListModel::key(const KeyEvent& event, const OpenedState& opened) {
  if (moving_ && event.key == Key::escape) {
    refused_ = true;
    endMoving();
    return true;
  }
  if (count() == 0 || event.modifiers.control) return false;
  const auto to = target(event.key);
  if (!to) return act(event, opened) || typeAhead(event);
  if (!event.modifiers.alt) {
    go(*to);
    return true;
  }
  const auto from = selected();
  const bool byOne = event.key == Key::up || event.key == Key::down;
  if (!list_.onMove || !from || !byOne) return false;
  moveRow(*from, *to);
  return true;
}

// The row that a key goes to. Where the selected one is gone, its neighbours are still there.
std::optional<std::size_t> SelectionListModel::target(Key key) {
  const std::size_t last = count() - 1;
  const auto rows = static_cast<std::size_t>(std::max(1.0, seen_.height / rowHeight_ - 1));
  const auto now = selected();
  const bool never = !now && !list_.selection->get();
  const std::size_t at = std::min(now.value_or(last_), last);
  switch (key) {
    case Key::up:
      if (never) return last;
      return at - std::min<std::size_t>(at, 1);
    case Key::down:
      if (never) return std::size_t{0};
      return now ? std::min(at + 1, last) : at;
    case Key::pageUp:
      return at - std::min(at, rows);
    case Key::pageDown:
      return at + std::min(last - at, rows);
    case Key::home:
      return std::size_t{0};
    case Key::end:
      return last;
    default:
      return std::nullopt;
  }
}

bool SelectionListModel::act(const KeyEvent& event, const OpenedState& opened) {
  const auto row = selected();
  if (!row) return false;
  const bool deletes = event.key == Key::deleteForward || event.key == Key::backspace;
  if (event.key == Key::menu && list_.menu) {
    reveal({0, top(*row), 1, rowHeight_});
    openMenu(*row, {kMenuInset, rowHeight_}, opened);
    return true;
  }
  const auto action = event.key == Key::enter ? list_.onActivate
                      : deletes               ? list_.onDelete
                                              : nullptr;
  if (action) action(*row);  // a copy: it may replace this list
  return action != nullptr;
}

bool SelectionListModel::typeAhead(const KeyEvent& event) {
  const bool letter = event.key == Key::character || event.key == Key::space;
  if (!list_.label || !letter || event.text.empty() || event.modifiers.alt) return false;
  const double now = Platform::current().clock().now();
  if (now - typedAt_ > kTyping) typed_.clear();
  if (typed_.empty() && event.key == Key::space) return false;
  typedAt_ = now;
  // The first letter goes on to the next row that begins so, the others stay where they fit.
  const auto at = selected();
  const std::size_t start = at ? *at + (typed_.empty() ? 1 : 0) : 0;
  typed_ += lowercased(event.text);
  for (std::size_t i = 0; i < count(); ++i) {
    const std::size_t row = (start + i) % count();
    if (!lowercased(list_.label(row)).starts_with(typed_)) continue;
    go(row);
    break;
  }
  return true;
}

// --- Moving ---

void SelectionListModel::moveRow(std::size_t from, std::size_t to) {
  if (from == to) return;
  last_ = to;
  reveal({0, top(to), 1, rowHeight_});
  const auto move = list_.onMove;  // it may replace this list
  move(from, to);
}

void SelectionListModel::dragged(const DragValue& drag) {
  if (refused_) return;
  if (!moving_) {
    const double row = std::floor(drag.startLocation.y / rowHeight_);
    refused_ = !(row >= 0 && row < static_cast<double>(count()));
    if (refused_) return;
    moving_ = Moving{(*list_.key)(static_cast<std::size_t>(row))};
  }
  moving_->fromTop = drag.location.y - seen_.y;
  showGap();
  scrollAtEnds();
}

void SelectionListModel::showGap() {
  const double row = std::round((seen_.y + moving_->fromTop) / rowHeight_);
  const double most = static_cast<double>(count());
  mark([&](Marks& marks) { marks.gap = static_cast<std::size_t>(std::clamp(row, 0.0, most)); });
}

void SelectionListModel::partSeen(const Rect& part) {
  seen_ = part;
  if (moving_) showGap();
}

void SelectionListModel::scrollAtEnds() {
  const bool atEnd =
      moving_->fromTop < kScrollEdge || moving_->fromTop > seen_.height - kScrollEdge;
  if (!atEnd) return scrolling_.stop();
  if (scrolling_.isActive()) return;
  scrolling_.loop("drag scrolling", kScrollEvery, std::nullopt, false, [this] {
    if (!scrollStep()) scrolling_.stop();
  });
}

// Whether there was more to be seen.
bool SelectionListModel::scrollStep() {
  const bool up = moving_->fromTop < kScrollEdge;
  if (up ? seen_.y <= 0 : seen_.maxY() >= top(count())) return false;
  const double y = up ? std::max(0.0, seen_.y - kScrollStep)
                      : std::min(seen_.maxY() + kScrollStep, top(count()));
  reveal({0, y, 1, 0});
  return true;
}

void SelectionListModel::endMoving() {
  moving_.reset();
  scrolling_.stop();
  mark([](Marks& marks) { marks.gap = std::nullopt; });
}

void SelectionListModel::cancelDrag() {
  refused_ = false;
  endMoving();
}

// The rows may be others by now, or fewer, than when the drag began.
void SelectionListModel::dropped() {
  const auto from = moving_ ? indexOf(moving_->key) : std::nullopt;
  const auto gap = marks().gap;
  cancelDrag();
  if (!from || !gap || !list_.onMove) return;
  const std::size_t before = std::min(*gap, count());
  moveRow(*from, before > *from ? before - 1 : before);
}

}  // namespace zq
