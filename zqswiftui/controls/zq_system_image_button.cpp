// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/controls/zq_system_image_button.hpp>
#include <zqswiftui/platform/toolkit/button.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {

View ZQSystemImageButton::body(Context& context) const {
  const Parameters& p = parameters_;
  const Font font = fontFor(p.size);
  View content = Image::symbol(systemName_).font(font).foregroundColor(p.color);
  if (label_) {
    content = HStack({.alignment = VerticalAlignment::center, .spacing = 4},
                     {content, Text(*label_).font(font).foregroundColor(p.color)});
  }
  Accessibility info;
  if (!name_.empty() && !label_) info.label = name_;
  return hoverOpacity(context, 0.75, 1.0, [&](double opacity) {
    return Button(*p.action, content).opacity(opacity).accessibility(info);
  });
}

ZQSystemImageButton ZQSystemImageButton::label(std::optional<std::string> text) const {
  ZQSystemImageButton button = *this;
  button.label_ = std::move(text);
  return button;
}

ZQSystemImageButton ZQSystemImageButton::name(std::string text) const {
  ZQSystemImageButton button = *this;
  button.name_ = std::move(text);
  return button;
}

}  // namespace zq
