// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/controls/hover_opacity.hpp>
#include <zqswiftui/controls/symbol_button.hpp>
#include <zqswiftui/platform/toolkit/button.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {

View symbolButtonBody(const SymbolLook& look, Context& context) {
  const auto opacity = context.state(kRestingOpacity);
  // The label keeps the colour of texts: few tints can be read at three quarters of their opacity.
  View face = View(Image::symbol(look.systemName)).foregroundColor(look.color);
  if (look.label) face = HStack({.spacing = 4}, {face, Text(*look.label).lineLimit(1)});
  const View button = Button(look.action, face.font(fontOf(look.size)))
                          .opacity(*opacity)
                          .onHover(brightenUnderPointer(opacity));
  const bool named = !look.label && !look.accessibleName.empty();
  return named ? button.accessibilityLabel(look.accessibleName) : button;
}

}  // namespace zq
