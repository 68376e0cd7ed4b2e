// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <vector>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

// A content as long as wished, which notes the parts that it was asked for.
struct Reader {
  std::shared_ptr<std::vector<Rect>> parts = std::make_shared<std::vector<Rect>>();
  View operator()() const {
    return GeometryReader([asked = parts](Size, const Rect& part) {
      asked->push_back(part);
      return Text(std::to_string(asked->size()));
    });
  }
};

TEST(GeometryReader, asksForThePartInSightAndAgainWhenMoreIsSeen) {
  const Reader reader;
  Harness h(ScrollView(reader().frame(80, 100000)), {80, 100});
  EXPECT_EQ(reader.parts->size(), 1u);
  EXPECT_EQ(reader.parts->back(), (Rect{-40, -50, 160, 200}));
  EXPECT_TRUE(h.findText("1"));
  h.wheel({40, 50}, 0, 50);
  EXPECT_EQ(reader.parts->size(), 1u) << "what is made reaches so far";
  h.wheel({40, 50}, 0, 1);
  EXPECT_EQ(reader.parts->size(), 2u);
  EXPECT_EQ(reader.parts->back(), (Rect{-40, 1, 160, 200}));
  h.wheel({40, 50}, 0, 1e9);
  EXPECT_EQ(reader.parts->back(), (Rect{-40, 99850, 160, 200}));
  EXPECT_EQ(reader.parts->size(), 3u);
  const auto asked = h.framesAsked();
  h.advance(1);
  EXPECT_EQ(h.framesAsked(), asked);

  // A shorter content is seen at another place in the same frame.
  h.setRoot(ScrollView(reader().frame(80, 1000)));
  EXPECT_EQ(reader.parts->back(), (Rect{-40, 850, 160, 200}));
}

TEST(GeometryReader, isToldThatItIsOutOfSight) {
  const Reader reader;
  const View far = VStack({.spacing = 0},
                          {Color::clear().operator View().frame(80, 300), reader().frame(80, 300)});
  Harness h(ScrollView(far), {80, 100});
  EXPECT_LT(reader.parts->back().maxY(), 0);
  h.wheel({40, 50}, 0, 250);
  EXPECT_EQ(reader.parts->back(), (Rect{-40, -100, 160, 200}));
}

TEST(GeometryReader, aChangeInsideMeasuresNobodyAround) {
  struct Inner {
    View body(Context& context) const {
      const auto more = context.state(0);
      return Button([more] { more.set(*more + 1); }, Text(std::to_string(*more)));
    }
  };
  int measured = 0;
  struct Counting : Layout {
    explicit Counting(int& n) : count(n) {}
    Size sizeThatFits(const ProposedSize& p, const Subviews& s) const override {
      ++count;
      return s[0].sizeThatFits(p);
    }
    void placeSubviews(const Rect& b, const ProposedSize&, const Subviews& s) const override {
      s[0].place(b.origin(), UnitPoint::topLeading(), ProposedSize::exactly(b.size()));
    }
    int& count;
  };
  Harness h(LayoutView(Counting(measured), {GeometryReader([](Size) { return Inner{}; })}));
  const int before = measured;
  h.click(h.button("0"));
  EXPECT_TRUE(h.button("1"));
  EXPECT_EQ(measured, before);
}

}  // namespace
}  // namespace zq
