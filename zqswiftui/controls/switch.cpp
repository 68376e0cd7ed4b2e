// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/controls/list_line.hpp>
#include <zqswiftui/controls/switch.hpp>
#include <zqswiftui/platform/toolkit/animation.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr Size kTrack{38, 24};
constexpr double kKnob = 20;
constexpr double kSpacing = 8;
constexpr double kMoveSeconds = 0.15;

View track(bool on, LayoutDirection direction) {
  const double way = (kTrack.width - kTrack.height) / 2;
  const bool right = on == (direction == LayoutDirection::leftToRight);
  return ZStack({Capsule().fill(on ? Color::accent() : Color::gray()),
                 View(Circle().fill(Color::white()))
                     .frame(kKnob, kKnob)
                     .offset(right ? way : -way, 0)})
      .frame(kTrack.width, kTrack.height);
}

}  // namespace

Switch::Switch(std::string label, Binding<bool> isOn)
    : label_(std::move(label)), isOn_(std::move(isOn)) {}

View Switch::body(Context& context) const {
  const bool on = isOn_.get();
  const View shown = track(on, context.environment<LayoutDirectionKey>())
                         .opacity(context.environment<EnabledKey>() ? 1 : kDisabledOpacity);
  const View row = label_.empty() ? shown : HStack({.spacing = kSpacing}, {Text(label_), shown});
  return row
      .onTap([isOn = isOn_] {
        withAnimation(Animation::easeOut(kMoveSeconds), [&] { isOn.set(!isOn.get()); });
      })
      .accessibility(
          {.role = Role::toggle, .label = label_.empty() ? "Switch" : label_, .checked = on});
}

}  // namespace zq
