// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <tests/toolkit/block.hpp>
#include <vector>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>
#include <zqswiftui/platform/toolkit/tree/popovers.hpp>

namespace zq {
namespace {

View filling() {
  return Color::blue();
}

std::string placed(Harness& h) {
  std::string all;
  for (const DrawnCommand& d : h.drawn()) {
    all += (all.empty() ? "" : " | ") + describe(d.bounds);
  }
  return all;
}

struct Row {
  const char* what;
  View view;
  const char* expected;
};

// Every view stands in a window of 100 by 60, in the middle where it is smaller.
void expectPlaced(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    Harness h(row.view, {100, 60});
    EXPECT_EQ(placed(h), row.expected) << row.what;
  }
}

TEST(Stacks, placeTheirChildren) {
  expectPlaced({
      {"neighbours are 8 apart", HStack({block(20, 10), block(30, 20)}),
       "21,25 20x10 | 49,20 30x20"},
      {"alignment and spacing",
       HStack({.alignment = VerticalAlignment::top, .spacing = 0}, {block(20, 10), block(30, 20)}),
       "25,20 20x10 | 45,20 30x20"},
      {"negative spacing overlaps", HStack({.spacing = -10}, {block(20, 10), block(30, 20)}),
       "30,25 20x10 | 40,20 30x20"},
      {"one that fills takes what is left", HStack({block(20, 10), filling()}),
       "0,25 20x10 | 28,0 72x60"},
      {"two that fill share alike", HStack({.spacing = 0}, {filling(), block(20, 10), filling()}),
       "0,0 40x60 | 40,25 20x10 | 60,0 40x60"},
      {"a spacer pushes apart", HStack({block(20, 10), Spacer(), block(30, 20)}),
       "0,25 20x10 | 70,20 30x20"},
      {"nothing takes no spacing", HStack({block(20, 10), EmptyView(), View(), block(20, 10)}),
       "26,25 20x10 | 54,25 20x10"},
      {"an empty list takes no spacing",
       HStack({block(20, 10), ForEach(std::vector<int>{}, [](int) { return Text("x"); }),
               block(20, 10)}),
       "26,25 20x10 | 54,25 20x10"},
      {"higher priority first",
       HStack({.spacing = 0},
              {View(filling()).flexFrame({.minWidth = 10}), filling().layoutPriority(1)}),
       "0,0 10x60 | 10,0 90x60"},
      {"too much sticks out at the end", HStack({.spacing = 0}, {block(70, 10), block(70, 10)}),
       "0,25 70x10 | 70,25 70x10"},
      {"a column",
       VStack({.alignment = HorizontalAlignment::trailing}, {block(20, 10), block(40, 20)}),
       "50,11 20x10 | 30,29 40x20"},
      {"a list is the stack's own",
       VStack({ForEach(std::vector{1, 2}, [](int n) { return block(10.0 * n, 10); })}),
       "45,16 10x10 | 40,34 20x10"},
      {"one on the other", ZStack({block(20, 10), block(40, 30)}, Alignment::bottomTrailing()),
       "50,35 20x10 | 30,15 40x30"},
  });
}

TEST(Frames, giveRoomAndBounds) {
  expectPlaced({
      {"a fixed frame holds its child",
       block(20, 10).frame({.width = 60, .height = 40, .alignment = Alignment::topLeading()}),
       "20,10 20x10"},
      {"one side only", filling().frame({.width = 60}), "20,0 60x60"},
      {"padding", filling().padding({1, 2, 3, 4}), "2,1 94x56"},
      {"more padding than room", filling().padding(80), ""},
      {"a maximum of infinity takes all",
       block(20, 10).flexFrame({.maxWidth = kInfinity, .alignment = Alignment::trailing()}),
       "80,25 20x10"},
      {"a minimum",
       block(20, 10).flexFrame(
           {.minWidth = 50, .minHeight = 40, .alignment = Alignment::topLeading()}),
       "25,10 20x10"},
      {"a maximum", filling().flexFrame({.maxWidth = 50, .maxHeight = 40}), "25,10 50x40"},
      {"the ideal size", filling().fixedSize(), "45,25 10x10"},
      {"an offset is drawn only",
       HStack({.spacing = 0}, {block(20, 10).offset(5, 7), block(20, 10)}),
       "35,32 20x10 | 50,25 20x10"},
      {"a scale as well", HStack({.spacing = 0}, {block(20, 10).scale(2), block(20, 10)}),
       "20,20 40x20 | 50,25 20x10"},
      {"background and overlay take its size",
       block(40, 20).background(filling()).overlay(block(10, 10), Alignment::topTrailing()),
       "30,20 40x20 | 30,20 40x20 | 60,20 10x10"},
  });
}

TEST(RightToLeft, mirrorsWhatIsLeading) {
  const std::vector<Row> rows = {
      {"a row", HStack({.spacing = 0}, {block(20, 10), block(30, 20)}),
       "55,25 20x10 | 25,20 30x20"},
      {"leading in a column",
       VStack({.alignment = HorizontalAlignment::leading, .spacing = 0},
              {block(20, 10), block(40, 10)}),
       "50,20 20x10 | 30,30 40x10"},
      {"insets", block(20, 10).padding({0, 10, 0, 0}), "35,25 20x10"},
      {"a frame's alignment", block(20, 10).frame({.width = 60, .alignment = Alignment::leading()}),
       "60,25 20x10"},
      {"the reader's content", GeometryReader([](Size) { return block(20, 10); }), "80,0 20x10"},
  };
  for (const Row& row : rows) {
    Harness h(row.view, {100, 60});
    h.setAppearance({.layoutDirection = LayoutDirection::rightToLeft});
    EXPECT_EQ(placed(h), row.expected) << row.what;
  }
}

TEST(GeometryReader, makesItsContentForTheSizeThatItGot) {
  Harness h(GeometryReader([](Size s) { return Text(s.width > 90 ? "wide" : "narrow"); }),
            {100, 60});
  EXPECT_EQ(h.findText("wide").bounds.origin(), (Point{0, 0}));
  h.resize({80, 60});
  EXPECT_TRUE(h.findText("narrow"));
  EXPECT_FALSE(h.findText("wide"));
}

TEST(Texts, wrapShortenAndKeepToTheirLines) {
  struct Case {
    View view;
    Size size;
  };
  const std::string words = "one two three";
  // A character is 0.6 em wide and a line 1.2 em high, at 13 points.
  const Case cases[] = {
      {Text(words), {102, 16}},
      {Text(words).frame({.width = 70}), {70, 32}},
      {Text(words).lineLimit(1).frame({.width = 70}), {70, 16}},
      {Text(words).truncationInTheMiddle().frame({.width = 70}), {70, 16}},
      {Text(words).font(Font::system(10)), {78, 12}},
      {Text("one\ntwo"), {24, 32}},
      {Text(""), {0, 16}},
  };
  for (const Case& c : cases) {
    Harness h(c.view);
    const Size size = h.host().sizeThatFits({});
    EXPECT_EQ(size, c.size) << size.width << 'x' << size.height;
  }
}

TEST(ShareLength, givesTheLeastFlexibleFirstAndNeverLessThanNothing) {
  const auto share = [](double available, const std::vector<StackItem>& items) {
    return shareLength(available, items, [&](std::size_t i, double offer) {
      return std::clamp(offer, items[i].least, items[i].most);
    });
  };
  using Lengths = std::vector<double>;
  EXPECT_EQ(share(100, {{0, 100, 0}, {20, 20, 0}}), (Lengths{80, 20}));
  EXPECT_EQ(share(100, {{0, 30, 0}, {0, kInfinity, 0}}), (Lengths{30, 70}));
  EXPECT_EQ(share(100, {{30, 100, 0}, {0, 100, 1}}), (Lengths{30, 70}));
  EXPECT_EQ(share(10, {{30, 30, 0}, {0, 100, 0}}), (Lengths{30, 0}));
  EXPECT_EQ(share(260, {{20, 100, 0}, {120, 160, 0}}), (Lengths{100, 160})) << "enough for both";
  EXPECT_EQ(share(260, {{20, 100, 0}, {120, 160, 0}, {0, kInfinity, -1}}), (Lengths{100, 160, 0}));
  EXPECT_EQ(share(0, {}), Lengths{});
}

TEST(Popovers, standBelowElseAboveAndInsideTheWindow) {
  const Size window{200, 100}, bubble{60, 30};
  EXPECT_EQ(popoverFrame({80, 10, 40, 10}, bubble, window), (Rect{70, 24, 60, 30}));
  EXPECT_EQ(popoverFrame({80, 80, 40, 10}, bubble, window), (Rect{70, 46, 60, 30}));
  EXPECT_EQ(popoverFrame({0, 10, 10, 10}, bubble, window).x, 4);
  EXPECT_EQ(popoverFrame({190, 10, 10, 10}, bubble, window).maxX(), 196);
  EXPECT_EQ(popoverFrame({0, 0, 10, 10}, {500, 500}, window).origin(), (Point{4, 4}));
}

TEST(BadInput, isTakenForNothingAndNeverCrashes) {
  const double bad[] = {0, -5, std::nan(""), kInfinity, -kInfinity, 1e300};
  for (const double v : bad) {
    SCOPED_TRACE(v);
    const View views[] = {View(Text("x")).frame(v, v),
                          View(Text("x")).flexFrame({.minWidth = v, .maxWidth = v}),
                          View(Text("x")).padding(v),
                          View(Text("x")).offset(v, v),
                          View(Text("x")).scale(v),
                          View(Text("x")).opacity(v),
                          View(Text("x")).layoutPriority(v),
                          HStack({.spacing = v}, {Text("x"), Text("y")}),
                          VStack({Text("x"), Spacer(v)}),
                          ProgressView(v),
                          RoundedRectangle(v),
                          Rectangle().stroke(Color::red(), {.lineWidth = v}),
                          Text("x").font(Font::system(v)),
                          View(Color::rgb(v, v, v, v)),
                          View(Text("x")).overlay(Circle()).clipShape(RoundedRectangle(v)),
                          ScrollView(block(v, v))};
    for (const View& view : views) {
      Harness h(view, {v, 40});
      h.resize({40, v});
      h.resize({40, 40});
      EXPECT_EQ(h.displayList().find("nan"), std::string::npos) << h.displayList();
      for (const ProposedSize& p : {ProposedSize{}, ProposedSize{v, v}, ProposedSize{0, 0}}) {
        const Size s = h.host().sizeThatFits(p);
        EXPECT_TRUE(s.width >= 0 && s.height >= 0);
      }
    }
  }
}

TEST(BadInput, namesTextsAndCallbacks) {
  View deep = Text("deep");
  for (int i = 0; i < 100; ++i) deep = i % 2 ? View(VStack({deep})) : View(HStack({deep}));
  struct Case {
    const char* what;
    View view;
    const char* text;  // what must be readable
  };
  const std::string long1MB(1 << 20, 'w');
  const Case cases[] = {
      {"an unknown symbol", HStack({Image::symbol("no.such.symbol"), Text("after")}), "after"},
      {"invalid UTF-8", HStack({Text("\xff\xfe\x80"), Text("after")}), "after"},
      {"a megabyte", VStack({Text(long1MB), Text("after")}), nullptr},
      {"a hundred stacks", deep, "deep"},
      {"null callbacks",
       View(Button(nullptr, Text("after")))
           .onTap(nullptr)
           .onHover(nullptr)
           .gesture({})
           .onDrop({})
           .onAppear(nullptr)
           .onDisappear(nullptr)
           .onChange<int>(1, nullptr)
           .help("")
           .keyboardShortcut(Key::enter),
       "after"},
      {"a null reader", ZStack({GeometryReader(nullptr), Text("after")}), "after"},
      {"an empty binding", VStack({TextField("after", {}), View(Text("x")).popover({}, Text("y"))}),
       "after"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Harness h(c.view, {300, 200});
    if (c.text) {
      h.click(h.findText(c.text));
    }
    h.tab();
    h.key(Key::space);
    h.type("a\xff");
    h.key(Key::enter);
    h.dragOver({150, 100}, {.types = {"public.url"}});
    h.drop({150, 100}, {.types = {"public.url"}});
    h.wheel({150, 100}, 1e300, -1e300);
    h.setRoot({});
    EXPECT_EQ(h.displayList(), "");
  }
}

TEST(Pictures, ofAScreenAsText) {
  Harness h(VStack({.alignment = HorizontalAlignment::leading},
                   {Text("Title \"1\"").font(Font::title2()),
                    HStack({Image::symbol("star.fill").foregroundColor(Color::yellow()),
                            Text("dim").opacity(0.5)}),
                    Capsule().fill(Color::teal().opacity(0.2)).frame(40, 10),
                    View(HStack({Text("a"), Text("b")})).opacity(0.25).disabled()})
                .padding(4)
                .frame({.width = 120, .height = 110, .alignment = Alignment::topLeading()})
                .clipped(),
            {120, 110});
  EXPECT_EQ(h.displayList(), R"(clip 0,0 120x110 {
  text 4,4 92x21 "Title \"1\"" system 17 primary
  symbol 4,33 17x17 star.fill yellow
  text 29,33.5 24x16 "dim" system 13 primary opacity 0.5
  rounded 4,58 40x10 radius 5 teal 0.2
  opacity 0.25 {
    text 4,76 8x16 "a" system 13 primary 0.4
    text 20,76 8x16 "b" system 13 primary 0.4
  }
}
)");
}

}  // namespace
}  // namespace zq
