// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <tests/toolkit/block.hpp>
#include <tests/toolkit/painted_host.hpp>
#include <vector>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

// What is painted again after a change must be all that the change altered: the picture that a
// window keeps is compared with one that is painted from nothing.

namespace zq {
namespace {

View cornered(const View& view, double width, double height) {
  return view.frame({.width = width, .height = height, .alignment = Alignment::topLeading()});
}
View pinned(const View& view) {
  return view.flexFrame(
      {.maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = Alignment::topLeading()});
}
View rows(int count, double width = 30) {
  std::vector<int> numbers(static_cast<std::size_t>(count));
  std::iota(numbers.begin(), numbers.end(), 0);
  return VStack(
      {.spacing = 0},
      {ForEach(numbers, [width](int i) { return Text(std::to_string(i)).frame(width, 10); })});
}

struct Change {
  const char* what;
  View before;
  View after;
};

void expectRepainted(const std::vector<Change>& changes) {
  for (const Change& change : changes) {
    for (const bool forth : {true, false}) {
      SCOPED_TRACE(std::string(change.what) + (forth ? "" : ", undone"));
      PaintedHost window(pinned(forth ? change.before : change.after), {100, 80});
      EXPECT_EQ(window.difference(), "");
      window.host().setRoot(pinned(forth ? change.after : change.before));
      window.run();
      EXPECT_EQ(window.difference(), "");
    }
  }
}

TEST(Repaint, whatChangesItsSizeOverAContentThatStands) {
  expectRepainted({
      {"a clip", cornered(block(60, 60), 20, 20).clipped(),
       cornered(block(60, 60), 50, 30).clipped()},
      {"an outline", cornered(block(60, 60), 20, 20).clipShape(RoundedRectangle(8)),
       cornered(block(60, 60), 50, 30).clipShape(RoundedRectangle(8))},
      {"a scaled view", cornered(block(10, 10), 20, 20).scale(1.5),
       cornered(block(10, 10), 40, 30).scale(1.5)},
      {"a content that gets longer below the edge", cornered(ScrollView(rows(12)), 40, 50),
       cornered(ScrollView(rows(40)), 40, 50)},
      {"a content that gets wider than its window",
       cornered(ScrollView(rows(3, 60), ScrollAxes::both), 50, 50),
       cornered(ScrollView(rows(3, 90), ScrollAxes::both), 50, 50)},
      {"a focusless button's label", Button([] {}, block(20, 20)), Button([] {}, block(40, 10))},
      {"a text that wraps", Text("one two three").frame({.width = 90}),
       Text("one two three").frame({.width = 40})},
      {"a centred line", Text("ab").multilineTextAlignment(TextAlignment::center).frame(80, 20),
       Text("ab").multilineTextAlignment(TextAlignment::trailing).frame(60, 20)},
  });
}

TEST(Repaint, whatLooksOtherwiseInTheSamePlace) {
  const View pair = HStack({block(20, 20), block(20, 20, Color::blue())});
  expectRepainted({
      {"an outline's corners", block(40, 40).clipShape(RoundedRectangle(4)),
       block(40, 40).clipShape(Circle())},
      {"opacity of a group", pair.opacity(0.5), pair.opacity(0.7)},
      {"opacity of nothing", pair.opacity(0), pair.opacity(1)},
      {"in front and behind", block(40, 40).overlay(block(20, 60, Color::blue())),
       block(40, 40).background(block(20, 60, Color::blue()))},
      {"a layer that comes", block(20, 20).overlay(View()),
       block(20, 20).overlay(block(40, 10, Color::blue()))},
      {"a layer's alignment", block(40, 40).overlay(block(8, 8, Color::blue())),
       block(40, 40).overlay(block(8, 8, Color::blue()), Alignment::topLeading())},
      {"another kind of view", VStack({block(20, 20), pair}), VStack({block(20, 20), Text("x")})},
      {"an order", ZStack({block(40, 40), block(20, 20, Color::blue())}),
       ZStack({block(20, 20, Color::blue()), block(40, 40)})},
      {"an offset", block(20, 20).offset(30, 10), block(20, 20).offset(5, 40)},
      {"a scale", block(20, 20).padding(20).scale(2), block(20, 20).padding(20).scale(0.5)},
      {"inherited colour", VStack({Text("a"), Rectangle().frame(10, 10)}),
       VStack({Text("a"), Rectangle().frame(10, 10)}).foregroundColor(Color::teal())},
      {"inherited font", VStack({Text("a"), Text("b")}),
       VStack({Text("a"), Text("b")}).font(Font::largeTitle())},
      {"disabled", VStack({Text("a"), Button([] {}, Text("b"))}),
       VStack({Text("a"), Button([] {}, Text("b"))}).disabled()},
      {"a scheme", VStack({Text("a")}).environment<ColorSchemeKey>(ColorScheme::light),
       VStack({Text("a")}).environment<ColorSchemeKey>(ColorScheme::dark)},
      {"a direction",
       HStack({block(20, 20), Text("b")})
           .environment<LayoutDirectionKey>(LayoutDirection::leftToRight),
       HStack({block(20, 20), Text("b")})
           .environment<LayoutDirectionKey>(LayoutDirection::rightToLeft)},
      {"a line's width", Rectangle().stroke(Color::red(), {.lineWidth = 2}).frame(30, 30),
       Rectangle().stroke(Color::red(), {.lineWidth = 9}).frame(30, 30)},
      {"an outline of one's own", PathShape(Path().addRect({0, 0, 60, 10})).frame(20, 20),
       PathShape(Path().addRect({10, 5, 10, 50})).frame(20, 20)},
  });
}

}  // namespace
}  // namespace zq
