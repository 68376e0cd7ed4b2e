// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <cmath>
#include <zqswiftui/controls/number_field.hpp>
#include <zqswiftui/controls/number_label.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

struct Width {
  NumberRange range;
  View body(Context& context) const {
    const auto value = context.state(0.1);
    return VStack({NumberField({.label = "Width", .value = value.binding(), .range = range}),
                   Text("is " + std::to_string(*value))});
  }
};

double valueOf(Harness& h) {
  for (const Element& e : h.texts()) {
    if (e.text.starts_with("is ")) return std::stod(e.text.substr(3));
  }
  return -1;
}

TEST(NumberRange, stepsStayOnTheirDecimalsAndWithinTheBounds) {
  const double inf = std::numeric_limits<double>::infinity();
  struct Case {
    NumberRange range;
    double from, steps, to;
  };
  for (const Case& c :
       {Case{{.step = 0.1}, 0.2, 1, 0.3}, Case{{.step = 0.1}, 0.7, 1, 0.8},
        Case{{.decimals = 0}, 2.4, 1, 3}, Case{{.least = 0, .most = 5}, 4.5, 1, 5},
        Case{{.least = 0, .most = 5}, 0, -10, 0}, Case{{.least = 0, .most = 5}, std::nan(""), 1, 1},
        Case{{.least = 5, .most = 0}, 7, 1, 8}, Case{{.step = -3}, 7, 1, 8},
        Case{{.step = 1}, 1e300, 1, 1e300}, Case{{}, inf, -1, inf}}) {
    EXPECT_EQ(c.range.stepped(c.from, c.steps), c.to) << c.from;
  }
}

TEST(NumberField, takesWhatReadsAsANumberAndAtTheEndTheNearestBound) {
  Harness h(Width{{.least = 0, .most = 500}});
  h.click(h.find(Role::textField));
  const auto retype = [&](const char* text) {
    for (int i = 0; i < 12; ++i) h.key(Key::backspace);
    h.type(text);
    return valueOf(h);
  };
  EXPECT_EQ(retype("250"), 250);
  EXPECT_EQ(retype(" 12.5 "), 12.5);
  EXPECT_EQ(retype("12x"), 12);
  EXPECT_EQ(h.find(Role::textField).value, "12x") << "left alone while it is typed";
  h.key(Key::enter);
  EXPECT_EQ(h.find(Role::textField).value, "12");
  EXPECT_EQ(retype("9999"), 99) << "beyond the bound, and not the end yet";
  h.tab();
  EXPECT_EQ(valueOf(h), 500);
  EXPECT_EQ(h.find(Role::textField).value, "500");
}

TEST(NumberField, isSteppedByKeysInTheFieldAndOnTheStepper) {
  Harness h(Width{{.least = 0, .most = 20}});
  h.click(h.find(Role::textField));
  h.type("5");  // 0.15
  h.key(Key::up);
  EXPECT_EQ(valueOf(h), 1.15);
  EXPECT_EQ(h.find(Role::textField).value, "1.15");
  h.key(Key::up, {.shift = true});
  EXPECT_EQ(valueOf(h), 11.15);
  ASSERT_TRUE(h.tab());
  EXPECT_EQ(h.focused().name, "Width, steps");
  h.key(Key::end);
  EXPECT_EQ(valueOf(h), 20);
  h.key(Key::down);
  EXPECT_EQ(valueOf(h), 19);
}

TEST(NumberLabel, isDraggedToTheSideThatNumbersGrowTo) {
  for (const LayoutDirection direction :
       {LayoutDirection::leftToRight, LayoutDirection::rightToLeft}) {
    double width = 10;
    const Binding<double> value([&] { return width; }, [&](const double& to) { width = to; });
    Harness h(View(NumberLabel("Width", {.value = value, .range = {.most = 14, .step = 0.5}}))
                  .environment<LayoutDirectionKey>(direction),
              {200, 40});
    const Point at = h.findText("Width").center();
    h.hover(h.findText("Width"));
    EXPECT_EQ(h.cursor(), Cursor::resizeHorizontal);
    const double sign = direction == LayoutDirection::leftToRight ? 1 : -1;
    h.drag(at, {at.x + sign * 13, at.y});
    EXPECT_EQ(width, 11.5) << "three whole steps from where it began";
    h.drag(at, {at.x - sign * 8, at.y});
    EXPECT_EQ(width, 10.5);
    h.drag(at, {at.x + sign * 90, at.y});
    EXPECT_EQ(width, 14);
  }
}

TEST(Stepper, aHeldArrowGoesOnUntilItIsLetGo) {
  Harness h(Width{{.decimals = 0}});
  const Rect stepper = h.find(Role::slider).bounds;
  h.press(Point{stepper.maxX() - 12, stepper.midY()});
  EXPECT_EQ(valueOf(h), 1);
  h.advance(0.39);
  EXPECT_EQ(valueOf(h), 1);
  h.advance(0.2);
  const double held = valueOf(h);
  EXPECT_GT(held, 2);
  h.release();
  h.advance(5);
  EXPECT_EQ(valueOf(h), held);
}

}  // namespace
}  // namespace zq
