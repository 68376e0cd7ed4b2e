// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/platform/toolkit/font.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A text on a capsule. The text is white or black, whichever stands out more from the
// background as it looks over the window in the current light or dark scheme. Padding is the
// distance in points above and below the text; the round ends add some on the sides. Negative
// and non-finite paddings count as none.
//   ZQCapsuledText({.text = "alpha", .font = Font::caption(), .backgroundColor = Color::teal()})
class ZQCapsuledText : public ViewModifiers<ZQCapsuledText> {
 public:
  struct Parameters {
    Required<std::string> text;
    Font font = Font::body();
    TextAlignment alignment = TextAlignment::center;
    double padding = 4;
    Color backgroundColor = Color::black().opacity(0.8);
    bool operator==(const Parameters&) const = default;
  };
  explicit ZQCapsuledText(Parameters parameters);

  View body(Context& context) const;
  bool operator==(const ZQCapsuledText&) const = default;

 private:
  Parameters parameters_;
};

// White or black: the one with the higher contrast on that background over the window. As WCAG 2.2
// measures it (success criterion 1.4.3), that is 4.5:1 or more on every colour.
Color readableTextColor(Color background, ColorScheme scheme);

}  // namespace zq
