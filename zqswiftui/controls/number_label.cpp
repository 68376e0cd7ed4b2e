// ZQSwiftUI, MIT licence; see LICENSE.
#include <cmath>
#include <optional>
#include <utility>
#include <zqswiftui/controls/number_label.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr double kPointsPerStep = 4;

}  // namespace

NumberLabel::NumberLabel(std::string caption, Parameters parameters)
    : caption_(std::move(caption)), parameters_(std::move(parameters)) {}

View NumberLabel::body(Context& context) const {
  const auto start = context.state(std::optional<double>());
  const bool leftToRight =
      context.environment<LayoutDirectionKey>() == LayoutDirection::leftToRight;
  const auto change = [start, leftToRight, p = parameters_](const DragValue& drag) {
    if (!*start) start.set(p.value->get());
    const double points = drag.translation().width * (leftToRight ? 1 : -1);
    p.value->set(p.range.stepped(**start, std::trunc(points / kPointsPerStep)));
  };
  return Text(caption_)
      .lineLimit(1)
      .cursor(Cursor::resizeHorizontal)
      .gesture({.minimumDistance = kPointsPerStep,
                .onChanged = change,
                .onEnded = [start](const DragValue&) { start.set(std::nullopt); },
                .onCancelled = [start] { start.set(std::nullopt); }})
      .help("Drag to change");
}

}  // namespace zq
