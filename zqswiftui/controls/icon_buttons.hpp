// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/controls/zq_system_image_button.hpp>

namespace zq {

// The family of icon buttons: each is a ZQSystemImageButton with a symbol of its own. Optional
// labels stand right of the symbol; actions that are not given do nothing.

struct ZQOkButtonParameters {
  ZQButton::Size size = ZQButton::Size::normal;
  std::optional<Color> color = std::nullopt;
  Required<Action> action;
};
//   ZQOkButton("Save", {.action = save})      ZQOkButton({.action = save})
class ZQOkButton : public ViewModifiers<ZQOkButton> {
 public:
  using Parameters = ZQOkButtonParameters;
  explicit ZQOkButton(Parameters p) : ZQOkButton(std::nullopt, std::move(p)) {}
  ZQOkButton(std::optional<std::string> label, Parameters p)
      : label_(std::move(label)), parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  std::optional<std::string> label_;
  Parameters parameters_;
};

// Of the cancel and the continue button.
struct ZQStepButtonParameters {
  std::optional<Color> color = std::nullopt;
  ZQButton::Size size = ZQButton::Size::normal;
  Action action = nullptr;
};
class ZQCancelButton : public ViewModifiers<ZQCancelButton> {
 public:
  using Parameters = ZQStepButtonParameters;
  explicit ZQCancelButton(Parameters p) : ZQCancelButton(std::nullopt, std::move(p)) {}
  ZQCancelButton(std::optional<std::string> label, Parameters p)
      : label_(std::move(label)), parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  std::optional<std::string> label_;
  Parameters parameters_;
};

class ZQContinueButton : public ViewModifiers<ZQContinueButton> {
 public:
  using Parameters = ZQStepButtonParameters;
  explicit ZQContinueButton(Parameters p) : ZQContinueButton(std::nullopt, std::move(p)) {}
  ZQContinueButton(std::optional<std::string> label, Parameters p)
      : label_(std::move(label)), parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  std::optional<std::string> label_;
  Parameters parameters_;
};

struct ZQDeleteButtonParameters {
  std::optional<Color> color = std::nullopt;
  bool fill = false;
  ZQButton::Size size = ZQButton::Size::normal;
  Required<Action> action;
};
class ZQDeleteButton : public ViewModifiers<ZQDeleteButton> {
 public:
  using Parameters = ZQDeleteButtonParameters;
  explicit ZQDeleteButton(Parameters p) : parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  Parameters parameters_;
};

struct ZQCopyButtonParameters {
  std::optional<Color> color = std::nullopt;
  Action action = nullptr;
};
class ZQCopyButton : public ViewModifiers<ZQCopyButton> {
 public:
  using Parameters = ZQCopyButtonParameters;
  explicit ZQCopyButton(Parameters p) : parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  Parameters parameters_;
};

// Of the download and the link button.
struct ZQPlainIconButtonParameters {
  Required<Action> action;
  std::optional<Color> color = std::nullopt;
};
class ZQDownloadButton : public ViewModifiers<ZQDownloadButton> {
 public:
  using Parameters = ZQPlainIconButtonParameters;
  explicit ZQDownloadButton(Parameters p) : parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  Parameters parameters_;
};

class ZQLinkButton : public ViewModifiers<ZQLinkButton> {
 public:
  using Parameters = ZQPlainIconButtonParameters;
  explicit ZQLinkButton(Parameters p) : parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  Parameters parameters_;
};

struct ZQSettingsButtonParameters {
  std::optional<Color> color = std::nullopt;
  Action action = nullptr;
};
class ZQSettingsButton : public ViewModifiers<ZQSettingsButton> {
 public:
  using Parameters = ZQSettingsButtonParameters;
  explicit ZQSettingsButton(Parameters p) : ZQSettingsButton(std::nullopt, std::move(p)) {}
  ZQSettingsButton(std::optional<std::string> label, Parameters p)
      : label_(std::move(label)), parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  std::optional<std::string> label_;
  Parameters parameters_;
};

enum class ZQPlusMinusButtonStyle : unsigned char { flat, circle, circleFill };

struct ZQPlusButtonParameters {
  std::optional<std::string> label = std::nullopt;
  ZQPlusMinusButtonStyle style = ZQPlusMinusButtonStyle::flat;
  std::optional<Color> color = std::nullopt;
  Required<Action> action;
};
class ZQPlusButton : public ViewModifiers<ZQPlusButton> {
 public:
  using Parameters = ZQPlusButtonParameters;
  explicit ZQPlusButton(Parameters p) : parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  Parameters parameters_;
};

struct ZQMinusButtonParameters {
  ZQPlusMinusButtonStyle style = ZQPlusMinusButtonStyle::flat;
  std::optional<Color> color = std::nullopt;
  Required<Action> action;
};
class ZQMinusButton : public ViewModifiers<ZQMinusButton> {
 public:
  using Parameters = ZQMinusButtonParameters;
  explicit ZQMinusButton(Parameters p) : parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  Parameters parameters_;
};

struct ZQFavoriteButtonParameters {
  Required<Binding<bool>> isFavorite;
  Color color = Color::yellow();
  std::function<void(bool)> callback = nullptr;
};
// A star, filled while the binding is true. A press turns the binding, then tells the new state.
class ZQFavoriteButton : public ViewModifiers<ZQFavoriteButton> {
 public:
  using Parameters = ZQFavoriteButtonParameters;
  explicit ZQFavoriteButton(Parameters p) : parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  Parameters parameters_;
};

struct ZQTooltipQuestionMarkParameters {
  std::optional<Color> color = std::nullopt;
  Required<std::string> text;
};
// A question mark that reveals its text in a bubble on click, and as a help text when the
// pointer rests on it.
class ZQTooltipQuestionMark : public ViewModifiers<ZQTooltipQuestionMark> {
 public:
  using Parameters = ZQTooltipQuestionMarkParameters;
  explicit ZQTooltipQuestionMark(Parameters p) : parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  Parameters parameters_;
};

struct ZQPlayPauseButtonParameters {
  Required<Binding<bool>> isPlaying;
  std::optional<Color> color = std::nullopt;
  ZQButton::Size size = ZQButton::Size::normal;
  std::function<void(bool)> callback = nullptr;
};
// Play while the binding is false, pause while it is true.
class ZQPlayPauseButton : public ViewModifiers<ZQPlayPauseButton> {
 public:
  using Parameters = ZQPlayPauseButtonParameters;
  explicit ZQPlayPauseButton(Parameters p) : parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  Parameters parameters_;
};

struct ZQHamburgerButtonParameters {
  std::optional<Color> color = std::nullopt;
  ZQButton::Size size = ZQButton::Size::normal;
  Required<Action> action;
};
// Three lines: opens a menu.
class ZQHamburgerButton : public ViewModifiers<ZQHamburgerButton> {
 public:
  using Parameters = ZQHamburgerButtonParameters;
  explicit ZQHamburgerButton(Parameters p) : parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  Parameters parameters_;
};

// The name of a plus or minus symbol in a style.
std::string styledSymbol(const std::string& base, ZQPlusMinusButtonStyle style);

}  // namespace zq
