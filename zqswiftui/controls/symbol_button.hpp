// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/controls/zq_button.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// What an icon button shows and does. Opacity rests at 0.75 and is 1 under the pointer.
struct SymbolLook {
  std::string systemName;
  std::optional<std::string> label = std::nullopt;  // at the right of the symbol
  std::optional<Color> color = std::nullopt;        // of the symbol; none: the foreground's
  ZQButton::Size size = ZQButton::Size::normal;
  std::function<void()> action = nullptr;
  std::string accessibleName{};  // spoken where there is no label; empty: made from the symbol
};

View symbolButtonBody(const SymbolLook& look, Context& context);

// The icon buttons' common half: a component that is nothing but a look.
//   class MyButton : public SymbolButton<MyButton> {
//    public: explicit MyButton(std::function<void()> f)
//        : SymbolButton({.systemName = "bolt", .action = std::move(f)}) {}
//   };
template <class Self>
class SymbolButton : public ViewModifiers<Self> {
 public:
  View body(Context& context) const { return symbolButtonBody(look_, context); }

 protected:
  explicit SymbolButton(SymbolLook look) : look_(std::move(look)) {}

 private:
  SymbolLook look_;
};

}  // namespace zq
