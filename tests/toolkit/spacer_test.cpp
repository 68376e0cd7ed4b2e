// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

// A layout that takes all that it is offered, as one that wraps its children does.
struct Taking : Layout {
  Size sizeThatFits(const ProposedSize& p, const Subviews&) const override {
    return p.replacingUnspecified({10, 10});
  }
  void placeSubviews(const Rect& b, const ProposedSize&, const Subviews& children) const override {
    children[0].place(b.origin(), UnitPoint::topLeading(), ProposedSize::exactly(b.size()));
  }
};

TEST(Spacer, takesOnlyWhatTheOthersLeave) {
  struct Row {
    const char* what;
    View spacer;
    double taken;
  };
  const View spacer = Spacer();
  const Row rows[] = {
      {"bare", spacer, 0},
      {"of a least length", Spacer(30), 30},
      {"padded", spacer.padding(5), 10},
      {"as high as a line", spacer.frame({.height = 16}), 0},
      {"with a background", spacer.background(Color::gray()), 0},
      {"tapped", spacer.onTap([] {}).opacity(0.5), 0},
      {"in a list", ForEach(std::vector<int>{1}, [](int) { return Spacer(); }), 0},
      {"raised", spacer.layoutPriority(0), 50},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    const View taking = LayoutView(Taking{}, {Rectangle()});
    const auto filled = [&](const View& stack) {
      Harness h(stack, {100, 100});
      for (const DrawnCommand& c : h.drawn()) {
        if (std::get<FillRect>(c.command).paint == Paint(Color::primary())) return c.bounds.size();
      }
      return Size{};
    };
    EXPECT_EQ(filled(HStack({.spacing = 0}, {row.spacer, taking})).width, 100 - row.taken);
    if (std::string_view(row.what) == "as high as a line") continue;
    EXPECT_EQ(filled(VStack({.spacing = 0}, {row.spacer, taking})).height, 100 - row.taken);
  }
}

}  // namespace
}  // namespace zq
