// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <zqswiftui/layout/split_view.hpp>
#include <zqswiftui/platform/base/number_text.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/geometry_reader.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {
namespace {

constexpr double kLine = 1;
constexpr double kGrip = 9;  // what takes the pointer, in front of both views
constexpr double kKeyStep = 8;
constexpr double kManyMoves = 10;  // with Shift

}  // namespace

SplitView::SplitView(Parameters parameters) : parameters_(std::move(parameters)) {}

double SplitView::widthOf(double wished, double all) const {
  const double least = sanitized(parameters_.leastLeading);
  const double most = std::max(least, all - kLine - sanitized(parameters_.leastTrailing));
  return std::isnan(wished) ? least : std::clamp(wished, least, most);
}

View SplitView::grip(double all, bool leftToRight,
                     const State<std::optional<double>>& start) const {
  const Binding<double> width = *parameters_.leadingWidth;
  const auto fit = [split = *this, all](double wished) { return split.widthOf(wished, all); };
  const double now = fit(width.get());
  const double sign = leftToRight ? 1 : -1;
  const DragGesture drag{.minimumDistance = 0,
                         .onChanged =
                             [=](const DragValue& d) {
                               if (!*start) start.set(fit(width.get()));
                               width.set(fit(**start + sign * d.translation().width));
                             },
                         .onEnded = [start](const DragValue&) { start.set(std::nullopt); },
                         .onCancelled = [start] { start.set(std::nullopt); }};
  const auto keyed = [=](const KeyEvent& event) {
    if (event.key != Key::left && event.key != Key::right) return false;
    const double by = kKeyStep * (event.modifiers.shift ? kManyMoves : 1);
    width.set(fit(fit(width.get()) + (event.key == Key::right ? sign : -sign) * by));
    return true;
  };
  return View(Color::gray())
      .opacity(0.001)
      .frame({.width = kGrip})
      .cursor(Cursor::resizeHorizontal)
      .gesture(drag)
      .onKey(keyed)
      .accessibility({.role = Role::slider,
                      .label = parameters_.label,
                      .value = spokenNumber(now, 0),
                      .number = AccessibleNumber{now, fit(0), fit(all), kKeyStep},
                      .setNumber = NumberSetter([=](double to) { width.set(fit(to)); })});
}

View SplitView::body(Context& context) const {
  const auto start = context.state(std::optional<double>());
  const bool leftToRight =
      context.environment<LayoutDirectionKey>() == LayoutDirection::leftToRight;
  return GeometryReader([split = *this, start, leftToRight](Size size) {
    const double width = split.widthOf(split.parameters_.leadingWidth->get(), size.width);
    const double rest = std::max(0.0, size.width - width - kLine);
    const View panes = HStack(
        {.spacing = 0}, {View(*split.parameters_.leading).frame(width, size.height).clipped(),
                         Rectangle().fill(Color::separator()).frame({.width = kLine}),
                         View(*split.parameters_.trailing).frame(rest, size.height).clipped()});
    const double before = std::max(0.0, width - (kGrip - kLine) / 2);
    return ZStack({panes, split.grip(size.width, leftToRight, start).padding({.leading = before})},
                  Alignment::topLeading());
  });
}

}  // namespace zq
