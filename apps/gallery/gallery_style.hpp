// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <vector>
#include <zqswiftui/controls/push_button.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq::gallery {

// What all pages are laid out with, so that they look alike. Distances are 8, 12 and 16.

// A titled panel as wide as the page.
View card(const std::string& title, View content);
// Cards one below the other: the content of a page.
View cards(std::vector<View> all);
// A view with a caption below it.
View sample(const std::string& caption, View view);
// Samples side by side, wrapped where the page is narrow.
View samples(std::vector<View> all);
// A line of explanation.
View note(const std::string& text);
// A name and a value, or a control, in columns that line up from row to row.
View row(const std::string& name, View value);

// The same view in light and in dark, side by side where there is room for both.
View lightAndDark(View view);
// The same view from left to right and from right to left, the same way.
View bothDirections(View view);
// A dark ground, for what is drawn in white.
View onDark(View view);

// A capsule with a text that is on or off.
struct Toggle : ViewModifiers<Toggle> {
  Toggle(std::string givenTitle, std::string givenSymbol, Binding<bool> givenIsOn)
      : title(std::move(givenTitle)), symbol(std::move(givenSymbol)), isOn(std::move(givenIsOn)) {}
  std::string title;
  std::string symbol;
  Binding<bool> isOn;
  View body(Context& context) const;
};

}  // namespace zq::gallery
