// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>
#include <zqswiftui/controls/list_line.hpp>
#include <zqswiftui/controls/number_field.hpp>
#include <zqswiftui/platform/base/number_text.hpp>
#include <zqswiftui/platform/base/timer.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text_field.hpp>

namespace zq {
namespace {

constexpr double kSide = 24;
constexpr double kManySteps = 10;      // of an arrow with Shift
constexpr double kBeforeRepeat = 0.4;  // seconds
constexpr double kRepeat = 0.08;
constexpr int kMostDecimals = 15;

bool bounded(const NumberRange& range) {
  return range.least <= range.most;
}

std::string textOf(double value, const NumberRange& range) {
  return spokenNumber(value, std::clamp(range.decimals, 0, kMostDecimals));
}

std::optional<double> typedNumber(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return std::nullopt;
  return finiteNumber(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

// Whether the key was one that changes a number.
bool stepByKey(const KeyEvent& event, const Binding<double>& value, const NumberRange& range) {
  const double steps = event.modifiers.shift ? kManySteps : 1;
  switch (event.key) {
    case Key::up:
      value.set(range.stepped(value.get(), steps));
      return true;
    case Key::down:
      value.set(range.stepped(value.get(), -steps));
      return true;
    default:
      return false;
  }
}

bool goToBound(const KeyEvent& event, const Binding<double>& value, const NumberRange& range) {
  const double bound = event.key == Key::home ? range.least : range.most;
  if (event.key != Key::home && event.key != Key::end) return false;
  if (bounded(range) && std::isfinite(bound)) value.set(bound);
  return true;
}

// What is stepped while an arrow is held.
struct Held {
  ZQTimer timer;
  Binding<double> value;
  NumberRange range;
  bool down = false;

  void begin(double steps) {
    if (std::exchange(down, true)) return;
    step(steps);
    timer.fireOnce(kBeforeRepeat, false, [this, steps] {
      timer.loop("stepper", kRepeat, std::nullopt, true, [this, steps] { step(steps); });
    });
  }
  void end() {
    down = false;
    timer.stop();
  }
  void step(double steps) {
    const Binding<double> owner = value;  // its answer may replace this view
    owner.set(range.stepped(owner.get(), steps));
  }
};

View arrow(const char* symbol, bool enabled, const std::shared_ptr<Held>& held, double steps) {
  const auto end = [held] { held->end(); };
  return Image::symbol(symbol)
      .font(Font::caption())
      .opacity(enabled ? 1 : kDisabledOpacity)
      .frame({.width = kSide, .height = kSide, .growsWithText = true})
      .background(View(Color::gray()).opacity(0.001))
      .gesture({.minimumDistance = 0,
                .onChanged = [held, steps](const DragValue&) { held->begin(steps); },
                .onEnded = [end](const DragValue&) { end(); },
                .onCancelled = end});
}

}  // namespace

double NumberRange::clamped(double value) const {
  if (std::isnan(value)) value = 0;
  return bounded(*this) ? std::clamp(value, least, most) : value;
}

double NumberRange::stepped(double value, double steps) const {
  const double by = step > 0 && std::isfinite(step) ? step : 1;
  const double scale = std::pow(10.0, std::clamp(decimals, 0, kMostDecimals));
  const double sum = clamped(value) + by * steps;
  const double rounded = std::round(sum * scale) / scale;
  return clamped(std::isfinite(rounded) ? rounded : sum);
}

Stepper::Stepper(Parameters parameters) : parameters_(std::move(parameters)) {}

View Stepper::body(Context& context) const {
  const auto held = *context.stateOf([] { return std::make_shared<Held>(); });
  held->value = *parameters_.value;
  held->range = parameters_.range;
  const NumberRange& range = parameters_.range;
  const double now = parameters_.value->get();
  const bool enabled = context.environment<EnabledKey>();
  const auto can = [&](double steps) { return enabled && range.stepped(now, steps) != now; };

  const AccessibleNumber number{range.clamped(now), bounded(range) ? range.least : -HUGE_VAL,
                                bounded(range) ? range.most : HUGE_VAL, range.step};
  const auto keyed = [value = *parameters_.value, range](const KeyEvent& event) {
    return stepByKey(event, value, range) || goToBound(event, value, range);
  };
  const View line = View(Rectangle().fill(Color::separator()))
                        .frame({.width = 1})
                        .padding({.top = 4, .bottom = 4})
                        .frame({.height = kSide, .growsWithText = true});
  return HStack({.spacing = 0},
                {arrow("minus", can(-1), held, -1), line, arrow("plus", can(1), held, 1)})
      .background(RoundedRectangle(kControlRadius).fill(Color::gray().opacity(0.15)))
      .onKey(keyed)
      .accessibility({.role = Role::slider,
                      .label = *parameters_.label,
                      .value = textOf(now, range),
                      .number = number,
                      .setNumber = NumberSetter([value = *parameters_.value, range](double to) {
                        value.set(range.stepped(to, 0));
                      })})
      .onDisappear([held] { held->end(); });
}

NumberField::NumberField(Parameters parameters) : parameters_(std::move(parameters)) {}

View NumberField::body(Context& context) const {
  const auto typed = context.state(std::optional<std::string>());
  const Binding<double> value = *parameters_.value;
  const NumberRange range = parameters_.range;
  const Binding<std::string> text(
      [typed, value, range] { return typed->value_or(textOf(value.get(), range)); },
      [typed, value, range](const std::string& next) {
        typed.set(next);
        const auto number = typedNumber(next);
        if (number && range.clamped(*number) == *number) value.set(range.stepped(*number, 0));
      });
  const auto ended = [typed, value, range] {
    if (!*typed) return;
    const auto number = typedNumber(**typed);
    typed.set(std::nullopt);
    if (number) value.set(range.stepped(*number, 0));
  };
  const auto leftover = [value, range, ended](const KeyEvent& event) {
    if (event.key == Key::up || event.key == Key::down) ended();
    return stepByKey(event, value, range);
  };
  const View field = TextField("", text).onSubmit(ended).onEditingEnded(ended);
  return HStack(
      {.spacing = 4},
      {field.onLeftoverKey(leftover)
           .accessibilityLabel(*parameters_.label)
           .multilineTextAlignment(TextAlignment::trailing),
       Stepper({.label = *parameters_.label + ", steps", .value = value, .range = range})});
}

}  // namespace zq
