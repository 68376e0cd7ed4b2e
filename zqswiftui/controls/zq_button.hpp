// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

using Action = std::function<void()>;  // a null one does nothing

enum class ZQButtonSize : unsigned char { normal, small, mini };

struct ZQButtonParameters {
  std::optional<std::string> icon = std::nullopt;   // a symbol before the title
  std::optional<std::string> image = std::nullopt;  // a named picture before the title
  std::optional<double> width = std::nullopt;       // points; none: as wide as the content
  ZQButtonSize size = ZQButtonSize::normal;
  std::optional<Color> backgroundColor = std::nullopt;
  std::optional<LinearGradient> backgroundGradient = std::nullopt;  // wins over the colour
  Required<Action> action;
};

// A titled capsule, 20, 18 or 30 points high by its size. The capsule rests at opacity 0.5,
// and at 0.1 where it has neither colour nor gradient; under the pointer it jumps to 0.75 or
// 0.3 and fades back when the pointer leaves. The title is white at 0.8: it wants a dark
// surround, or a colour.
//   ZQButton("Export", {.icon = "arrow.up", .backgroundColor = Color::blue(), .action = f})
class ZQButton : public ViewModifiers<ZQButton> {
 public:
  using Size = ZQButtonSize;
  using Parameters = ZQButtonParameters;
  ZQButton(std::string title, Parameters parameters)
      : title_(std::move(title)), parameters_(std::move(parameters)) {}
  View body(Context& context) const;

 private:
  std::string title_;
  Parameters parameters_;
};

// The font of a button's label or symbol: body, caption, and for mini the larger title 2.
Font fontFor(ZQButtonSize size);

// An opacity that jumps to the higher level when the pointer comes and fades back to the
// resting one when it leaves. `draw` answers the view at an opacity.
View hoverOpacity(Context& context, double resting, double hovered,
                  const std::function<View(double)>& draw);

}  // namespace zq
