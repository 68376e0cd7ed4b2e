// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <zqswiftui/controls/push_button.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

TEST(PushButton, isPressedByPointerAndKeysUnlessDisabledAndGrowsWithItsText) {
  int presses = 0;
  const View button = PushButton("Copy", {.symbol = "doc.on.doc", .action = [&] { ++presses; }});
  Harness h(button, {200, 100});
  EXPECT_EQ(h.button("Copy").bounds.height, 28);
  h.click(h.button("Copy"));
  h.key(Key::space);
  EXPECT_EQ(presses, 2);
  h.setRoot(button.environment<TextScaleKey>(2));
  EXPECT_EQ(h.button("Copy").bounds.height, 56);
  h.setRoot(button.disabled());
  h.click(Point{100, 50});
  EXPECT_EQ(presses, 2);
  h.setRoot(PushButton("Later", [&] { presses = 9; }).keyboardShortcut(Key::enter));
  h.key(Key::enter);
  EXPECT_EQ(presses, 9);
}

}  // namespace
}  // namespace zq
