// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

// Lists that are changed at random, short and longer than what is kept as views, must look like
// a list that is built anew, also to the pointer, and each state must stay with its key.

namespace zq {
namespace {

struct Item {
  int key = 0;
  int look = 0;
  bool operator==(const Item&) const = default;
};
using Items = std::vector<Item>;

struct Labelled {
  int key = 0;
  std::string text;
  bool operator==(const Labelled&) const = default;
};

std::string label(const Item& item) {
  return std::string(static_cast<std::size_t>(item.look), '+') + std::to_string(item.key);
}

// What the rows' states must be, and a handle of each.
struct Board {
  std::map<int, int> expected;
  std::map<int, State<int>> handles;
};
using BoardPtr = std::shared_ptr<Board>;

View row(const std::string& text) {
  return Text(text).help(text);
}

std::string shown(const Item& item, const BoardPtr& board) {
  return board ? label(item) + '#' + std::to_string(board->expected[item.key]) : label(item);
}

struct StatefulRow {
  Item item;
  BoardPtr board;
  View body(Context& context) const {
    auto count = context.state(0);
    board->handles.insert_or_assign(item.key, count);
    return row(label(item) + '#' + std::to_string(*count));
  }
  bool operator==(const StatefulRow&) const = default;
};

class Flow : public Layout {
 public:
  Size sizeThatFits(const ProposedSize& p, const Subviews& children) const override {
    const auto points = place(p.width.value_or(100), children);
    return {p.width.value_or(100), points.back().y + 16};
  }
  void placeSubviews(const Rect& b, const ProposedSize&, const Subviews& children) const override {
    const std::vector<Point> points = place(b.width, children);
    children.placeIdeal(std::span(points).first(children.size()));
  }
  bool equals(const Layout&) const override { return true; }

 private:
  static std::vector<Point> place(double width, const Subviews& children) {
    std::vector<Point> points;
    Point at;
    for (const Size& s : children.idealSizes()) {
      if (at.x > 0 && at.x + s.width > width) at = {0, at.y + 16};
      points.push_back(at);
      at.x += s.width;
    }
    points.push_back(at);
    return points;
  }
};

enum class Around { stack, layout, nothing };

View screen(Around around, const View& list) {
  const View top = Text("top").id("top");
  if (around == Around::layout) return ScrollView(VStack({top, LayoutView(Flow(), {list})}));
  // A list in a frame stands by itself, without a container that gathers its children.
  if (around == Around::nothing) return ScrollView(VStack({top, list.padding(0)}));
  return ScrollView(VStack({.spacing = 1}, {top, list, Text("end")}));
}

struct Screen {
  Around around;
  std::shared_ptr<std::optional<State<Items>>> items;
  Items first;
  BoardPtr board;  // none: rows without states
  View body(Context& context) const {
    auto now = context.state(first);
    *items = now;
    if (!board) {
      return screen(around, ForEach(*now, &Item::key, [](const Item& i) { return row(label(i)); }));
    }
    return screen(around, ForEach(*now, &Item::key, [b = board](const Item& i) {
                    return StatefulRow{i, b};
                  }));
  }
};

struct Case {
  Around around;
  bool states;
  int length;
};

class RandomLists : public testing::TestWithParam<Case> {
 protected:
  int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }
  Item made() { return {next_++, below(4)}; }
  std::size_t anywhere(const Items& items) {
    return static_cast<std::size_t>(below(static_cast<int>(items.size())));
  }

  void edit(Items& items) {
    const auto at =
        items.begin() + static_cast<std::ptrdiff_t>(items.empty() ? 0 : anywhere(items));
    const int what = items.empty() ? 0 : below(9);
    if (what <= 1) {
      items.insert(at, made());
    } else if (what <= 3) {
      items.erase(at);
    } else if (what <= 5) {
      at->look = below(4);
    } else if (what == 6) {
      std::swap(*at, items[anywhere(items)]);
    } else if (what == 7) {
      std::rotate(items.begin(), at, items.end());
    } else if (!GetParam().states) {
      items.insert(at, *at);  // a twin
    }
    if (below(40) == 0) items.resize(items.size() / 2);
    if (below(40) == 0) std::shuffle(items.begin(), items.end(), random_);
  }

  // What is painted, and what the pointer finds there.
  static std::string look(Harness& h, Point pointer) {
    h.moveTo(pointer);
    return h.displayList() + "under the pointer: " + h.help();
  }

  // The same list built anew, scrolled to the same place.
  std::string anew(const Items& items, const BoardPtr& board, double offset, Point pointer) {
    std::vector<Labelled> rows;
    for (const Item& i : items) rows.push_back({i.key, shown(i, board)});
    const auto rowOf = [](const Labelled& r) { return row(r.text); };
    Harness fresh(screen(GetParam().around, ForEach(rows, &Labelled::key, rowOf)), {120, 90});
    fresh.wheel({50, 50}, 0, offset);
    return look(fresh, pointer);
  }

  std::mt19937 random_{7};
  int next_ = 0;
};

INSTANTIATE_TEST_SUITE_P(
    Kinds, RandomLists,
    testing::Values(Case{Around::stack, false, 6}, Case{Around::stack, true, 6},
                    Case{Around::layout, true, 9}, Case{Around::nothing, false, 7},
                    Case{Around::stack, false, 400}, Case{Around::layout, false, 700},
                    Case{Around::layout, true, 300}, Case{Around::nothing, false, 300}));

TEST_P(RandomLists, lookLikeListsThatAreBuiltAnew) {
  const Case c = GetParam();
  const auto board = c.states ? std::make_shared<Board>() : nullptr;
  Items items;
  for (int i = 0; i < c.length; ++i) items.push_back(made());
  const auto handle = std::make_shared<std::optional<State<Items>>>();
  Harness h(Screen{c.around, handle, items, board}, {120, 90});
  for (int step = 0; step < 60; ++step) {
    SCOPED_TRACE(step);
    for (int edits = 1 + below(3); edits > 0; --edits) edit(items);
    (*handle)->set(items);
    h.settle();
    if (board && !items.empty()) {
      const int key = items[anywhere(items)].key;
      const State<int> count = board->handles.at(key);
      count.set(*count + 1);
      ++board->expected[key];
      h.settle();
    }
    if (below(3) == 0) h.wheel({50, 50}, 0, 40.0 * below(20) - 200);
    const Point pointer{static_cast<double>(below(120)), static_cast<double>(below(90))};
    ASSERT_EQ(look(h, pointer), anew(items, board, -h.findId("top").bounds.y, pointer));
  }
  // A screen reader keeps all rows from now on, and sees every one of them in its order.
  h.accessibility();
  items.erase(items.begin(), items.begin() + static_cast<std::ptrdiff_t>(items.size() / 3));
  (*handle)->set(items);
  h.settle();
  std::vector<std::string> read, expected{"top"};
  for (const Element& e : h.all(Role::text)) read.push_back(e.name);
  for (const Item& i : items) expected.push_back(shown(i, board));
  if (c.around == Around::stack) expected.push_back("end");
  EXPECT_EQ(read, expected);
}

}  // namespace
}  // namespace zq
