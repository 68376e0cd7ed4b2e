// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

View panel(int lines) {
  std::vector<View> rows;
  for (int i = 0; i < lines; ++i) rows.push_back(Text("line"));
  rows.push_back(Spacer());
  return VStack({.spacing = 0}, std::move(rows));
}

TEST(FlexFrame, anAxisWithoutBoundsKeepsWhatTheParentOffered) {
  // Offered its own height, the stack would share it evenly between the two panels.
  const auto page = VStack({.spacing = 0}, {panel(5), panel(1), Text("after")});
  Harness screen(ScrollView(page.flexFrame({.maxWidth = kInfinity})), {200, 300});
  const double line = screen.findText("line").bounds.height;
  EXPECT_NEAR(screen.findText("after").bounds.y, 6 * line, 1);
}

TEST(ScrollView, fromRightToLeftAWideContentBeginsAtItsRightEnd) {
  const auto tiles =
      HStack({.spacing = 0}, {Text("first").frame(300, 20), Text("last").frame(300, 20)});
  const View scroller = ScrollView(tiles, ScrollAxes::horizontal);
  Harness screen(scroller.environment<LayoutDirectionKey>(LayoutDirection::rightToLeft), {200, 40});
  EXPECT_GT(screen.findText("first").visible.width, 0);
  screen.wheel({100, 20}, -1000, 0);
  EXPECT_GT(screen.findText("last").visible.width, 0);
}

}  // namespace
}  // namespace zq
