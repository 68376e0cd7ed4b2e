// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/controls/icon_buttons.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

using ButtonSize = ZQButton::Size;

ZQSystemImageButton icon(std::string symbol, std::string name, std::optional<Color> color,
                         ButtonSize size, Action action) {
  return ZQSystemImageButton(std::move(symbol),
                             {.color = color, .size = size, .action = std::move(action)})
      .name(std::move(name));
}

// Turns the binding and tells what it is now.
Action toggling(Binding<bool> binding, std::function<void(bool)> callback) {
  return [binding = std::move(binding), callback = std::move(callback)] {
    const bool now = !binding.get();
    binding.set(now);
    if (callback) callback(now);
  };
}

View asToggle(const View& button, const std::string& name, bool on) {
  Accessibility info;
  info.role = Role::toggle;
  info.label = name;
  info.checked = on;
  return button.accessibility(info);
}

}  // namespace

std::string styledSymbol(const std::string& base, ZQPlusMinusButtonStyle style) {
  switch (style) {
    case ZQPlusMinusButtonStyle::circle:
      return base + ".circle";
    case ZQPlusMinusButtonStyle::circleFill:
      return base + ".circle." + "fill";
    case ZQPlusMinusButtonStyle::flat:
      break;
  }
  return base;
}

View ZQOkButton::body(Context&) const {
  const Parameters& p = parameters_;
  return icon("checkmark.circle", "OK", p.color, p.size, *p.action).label(label_);
}

View ZQCancelButton::body(Context&) const {
  const Parameters& p = parameters_;
  return icon("xmark.circle", "Cancel", p.color, p.size, p.action).label(label_);
}

View ZQContinueButton::body(Context&) const {
  const Parameters& p = parameters_;
  return icon("arrow.right.circle", "Continue", p.color, p.size, p.action).label(label_);
}

View ZQDeleteButton::body(Context&) const {
  const Parameters& p = parameters_;
  return icon(p.fill ? "delete.left.fill" : "delete.left", "Delete", p.color, p.size, *p.action);
}

View ZQCopyButton::body(Context&) const {
  return icon("doc.on.doc", "Copy", parameters_.color, ButtonSize::normal, parameters_.action);
}

View ZQDownloadButton::body(Context&) const {
  return icon("icloud.and.arrow.down", "Download", parameters_.color, ButtonSize::normal,
              *parameters_.action);
}

View ZQLinkButton::body(Context&) const {
  return icon("link", "Link", parameters_.color, ButtonSize::normal, *parameters_.action);
}

View ZQSettingsButton::body(Context&) const {
  return icon("gear", "Settings", parameters_.color, ButtonSize::normal, parameters_.action)
      .label(label_);
}

View ZQPlusButton::body(Context&) const {
  const Parameters& p = parameters_;
  return icon(styledSymbol("plus", p.style), "Add", p.color, ButtonSize::normal, *p.action)
      .label(p.label);
}

View ZQMinusButton::body(Context&) const {
  const Parameters& p = parameters_;
  return icon(styledSymbol("minus", p.style), "Remove", p.color, ButtonSize::normal, *p.action);
}

View ZQFavoriteButton::body(Context&) const {
  const Parameters& p = parameters_;
  const bool on = p.isFavorite->get();
  return asToggle(icon(on ? "star.fill" : "star", "Favourite", p.color, ButtonSize::normal,
                       toggling(*p.isFavorite, p.callback)),
                  "Favourite", on);
}

View ZQPlayPauseButton::body(Context&) const {
  const Parameters& p = parameters_;
  const bool playing = p.isPlaying->get();
  return icon(playing ? "pause.fill" : "play.fill", playing ? "Pause" : "Play", p.color, p.size,
              toggling(*p.isPlaying, p.callback));
}

View ZQHamburgerButton::body(Context&) const {
  const Parameters& p = parameters_;
  return icon("line.3.horizontal", "Menu", p.color, p.size, *p.action);
}

View ZQTooltipQuestionMark::body(Context& context) const {
  const auto showPop = context.state(false);
  return icon("questionmark.circle", "Help", parameters_.color, ButtonSize::normal,
              [showPop] { showPop.set(!*showPop); })
      .help(*parameters_.text)
      .popover(showPop.binding(), Text(*parameters_.text));
}

}  // namespace zq
