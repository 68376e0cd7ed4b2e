// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/controls/zq_button.hpp>

namespace zq {

enum class ZQBorderlessOrientation : unsigned char { horizontal, vertical };

struct ZQBorderlessButtonParameters {
  Required<std::string> systemImage;
  ZQButton::Size size = ZQButton::Size::normal;
  ZQBorderlessOrientation orientation = ZQBorderlessOrientation::horizontal;
  Required<Action> action;
};

// A symbol with an optional label, beside each other 3 apart or stacked 10 apart, at opacity
// 0.75 that rises to 1 under the pointer and fades back. Pressing it leaves the presentation
// around it alone: whoever shows a panel closes it in the action.
//   ZQBorderlessButton("Export", {.systemImage = "arrow.up", .action = f})
class ZQBorderlessButton : public ViewModifiers<ZQBorderlessButton> {
 public:
  using Orientation = ZQBorderlessOrientation;
  using Parameters = ZQBorderlessButtonParameters;
  explicit ZQBorderlessButton(Parameters p) : ZQBorderlessButton(std::nullopt, std::move(p)) {}
  ZQBorderlessButton(std::optional<std::string> label, Parameters p)
      : textLabel_(std::move(label)), parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  std::optional<std::string> textLabel_;
  Parameters parameters_;
};

struct ZQBorderlessCustomImageButtonParameters {
  Required<std::string> image;  // a named picture in place of the symbol
  ZQButton::Size size = ZQButton::Size::normal;
  ZQBorderlessOrientation orientation = ZQBorderlessOrientation::horizontal;
  Required<Action> action;
};
class ZQBorderlessCustomImageButton : public ViewModifiers<ZQBorderlessCustomImageButton> {
 public:
  using Parameters = ZQBorderlessCustomImageButtonParameters;
  ZQBorderlessCustomImageButton(std::optional<std::string> label, Parameters p)
      : textLabel_(std::move(label)), parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  std::optional<std::string> textLabel_;
  Parameters parameters_;
};

struct ZQBorderlessSmallButtonParameters {
  std::optional<std::string> systemImage = std::nullopt;
  std::optional<std::string> image = std::nullopt;  // shown where no symbol is given
  Required<Action> action;
};
// In the small size, with a symbol, a picture, or the label alone.
class ZQBorderlessSmallButton : public ViewModifiers<ZQBorderlessSmallButton> {
 public:
  using Parameters = ZQBorderlessSmallButtonParameters;
  ZQBorderlessSmallButton(std::optional<std::string> label, Parameters p)
      : textLabel_(std::move(label)), parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  std::optional<std::string> textLabel_;
  Parameters parameters_;
};

struct ZQImageButtonParameters {
  std::optional<double> side =
      std::nullopt;  // of the picture's square, in points; none: the picture's size
  Required<Action> action;
};
// A named picture that is pressed, with the same opacities. `name` is what a screen reader says.
class ZQImageButton : public ViewModifiers<ZQImageButton> {
 public:
  using Parameters = ZQImageButtonParameters;
  ZQImageButton(std::string image, std::string name, Parameters p)
      : image_(std::move(image)), name_(std::move(name)), parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  std::string image_;
  std::string name_;
  Parameters parameters_;
};

}  // namespace zq
