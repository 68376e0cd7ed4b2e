// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/controls/zq_button.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// A symbol with an optional label, without a border: side by side, 3 points apart, or stacked,
// 10 apart. A click anywhere on it calls the action. At opacity 0.75, at 1 under the pointer;
// it fades back as the icon buttons do. A null action does nothing. Interface thread only.
//   ZQBorderlessButton("Export", {.icon = "link", .size = ZQButton::Size::small,
//                                 .orientation = ZQBorderlessButton::Orientation::vertical,
//                                 .action = exportAll})
class ZQBorderlessButton : public ViewModifiers<ZQBorderlessButton> {
 public:
  enum class Orientation : unsigned char { horizontal, vertical };

  struct Parameters {
    Required<std::string> icon;
    Required<ZQButton::Size> size;
    Required<Orientation> orientation;
    Required<std::function<void()>> action;
  };
  // The same under the symbol's other name.
  struct SystemImageParameters {
    Required<std::string> systemImage;
    Required<ZQButton::Size> size;
    Required<Orientation> orientation;
    Required<std::function<void()>> action;
  };
  ZQBorderlessButton(std::optional<std::string> label, Parameters parameters);
  ZQBorderlessButton(std::optional<std::string> label, const SystemImageParameters& p);

  View body(Context& context) const;

 private:
  std::optional<std::string> textLabel_;
  Parameters parameters_;
};

// The same with a picture of the application in the place of the symbol, in a square as high
// as a ZQButton of that size. A picture that is missing leaves its square empty.
class ZQBorderlessCustomImageButton : public ViewModifiers<ZQBorderlessCustomImageButton> {
 public:
  using Orientation = ZQBorderlessButton::Orientation;
  struct Parameters {
    Required<std::string> image;
    Required<ZQButton::Size> size;
    Required<Orientation> orientation;
    Required<std::function<void()>> action;
  };
  ZQBorderlessCustomImageButton(std::optional<std::string> label, Parameters parameters);

  View body(Context& context) const;

 private:
  std::optional<std::string> textLabel_;
  Parameters parameters_;
};

// A label in the caption font, with a symbol or a picture before it where one is named (the
// symbol, where both are).
class ZQBorderlessSmallButton : public ViewModifiers<ZQBorderlessSmallButton> {
 public:
  struct Parameters {
    std::optional<std::string> systemImage = std::nullopt;
    std::optional<std::string> image = std::nullopt;
    Required<std::function<void()>> action;
  };
  ZQBorderlessSmallButton(std::optional<std::string> label, Parameters parameters);

  View body(Context& context) const;

 private:
  std::optional<std::string> textLabel_;
  Parameters parameters_;
};

// A picture of the application alone, in a square as high as a ZQButton of that size, pressed
// like a button. The name that is spoken is the picture's, where no other one is given.
//   ZQImageButton("logo", {.size = ZQButton::Size::mini, .action = showAbout})
class ZQImageButton : public ViewModifiers<ZQImageButton> {
 public:
  struct Parameters {
    ZQButton::Size size = ZQButton::Size::normal;
    std::string accessibleName{};
    Required<std::function<void()>> action;
  };
  ZQImageButton(std::string image, Parameters parameters);

  View body(Context& context) const;

 private:
  std::string image_;
  Parameters parameters_;
};

}  // namespace zq
