// ZQSwiftUI, MIT licence; see LICENSE.
#include <functional>
#include <string>
#include <utility>
#include <vector>
#include <zqswiftui/controls/list_line.hpp>
#include <zqswiftui/controls/picker.hpp>
#include <zqswiftui/platform/toolkit/button.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

// A line of the open list, lit under the pointer.
struct PickerLine {
  std::string choice;
  bool chosen;
  std::function<void()> choose;

  View body(Context& context) const {
    const auto hovered = context.state(false);
    return Button(choose, listLine({.title = choice, .checked = chosen, .lit = *hovered}))
        .onHover([hovered](bool inside) { hovered.set(inside); })
        .accessibility({.label = choice, .checked = chosen});
  }
};

}  // namespace

Picker::Picker(Parameters parameters) : parameters_(std::move(parameters)) {}

View Picker::list(const Binding<bool>& isOpen) const {
  const std::size_t selected = parameters_.selection->get();
  std::vector<View> rows;
  for (std::size_t i = 0; i < parameters_.choices.size(); ++i) {
    const auto choose = [selection = *parameters_.selection, isOpen, i] {
      isOpen.set(false);
      selection.set(i);
    };
    rows.emplace_back(PickerLine{parameters_.choices[i], i == selected, choose});
  }
  return listOfLines(std::move(rows));
}

View Picker::body(Context& context) const {
  const auto isOpen = context.state(false);
  const auto& choices = parameters_.choices;
  const std::size_t selected = parameters_.selection->get();
  const std::string shown = selected < choices.size() ? choices[selected] : "";

  // As wide as the widest choice, so that it stays where it is whatever is chosen.
  std::vector<View> widest;
  widest.reserve(choices.size() + 1);
  for (const std::string& choice : choices) widest.push_back(Text(choice).lineLimit(1).opacity(0));
  widest.push_back(Text(shown).lineLimit(1));
  const View face =
      HStack({ZStack(std::move(widest), Alignment::leading()).accessibility({.hidden = true}),
              Image::symbol("chevron.down").font(Font::caption())})
          .padding({.leading = kListLinePadding, .trailing = kListLinePadding})
          .frame({.height = kListLineHeight, .growsWithText = true})
          .background(RoundedRectangle(kControlRadius).fill(Color::gray().opacity(0.15)))
          .overlay(RoundedRectangle(kControlRadius).stroke(Color::separator()));

  const auto keyed = [selection = *parameters_.selection, isOpen,
                      count = choices.size()](const KeyEvent& event) {
    const std::size_t now = selection.get();
    if (event.key == Key::space || event.key == Key::enter) {
      isOpen.set(true);
    } else if (event.key == Key::down && now + 1 < count) {
      selection.set(now + 1);
    } else if (event.key == Key::up && now > 0 && now <= count) {
      selection.set(now - 1);
    } else {
      return event.key == Key::down || event.key == Key::up;
    }
    return true;
  };
  return face.onTap([isOpen] { isOpen.set(!*isOpen); })
      .onLeftoverKey(keyed)
      .accessibility({.role = Role::button, .label = *parameters_.label, .value = shown})
      .popover(isOpen.binding(), list(isOpen.binding()));
}

}  // namespace zq
