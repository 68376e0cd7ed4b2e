// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <vector>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// What controls have in common, so that all of them look alike, and the lines of the lists that
// open below them.

// A line with a title: a mark before it where it is checked, and perhaps something at its end.
struct ListLine {
  std::string title;
  bool checked = false;
  View behind = {};
  bool lit = false;  // the one that the next press means
};

View listLine(const ListLine& line);
// Such lines one below the other.
View listOfLines(std::vector<View> lines);

// The ground of a line that is chosen, lit or hovered over. Texts on it, in the primary or the
// secondary colour, keep a contrast of 4.5:1 up to that of what is chosen.
enum class LineGround : unsigned char { none, hovered, chosenElsewhere, lit, chosen };
View lineGround(LineGround ground);

// The ground of what is prominent, and written on in white: the accent colour of light windows in
// dark ones too, for white can be read on no lighter one.
Color prominentGround(bool hovered = false);

// What cannot be used now is drawn fainter.
inline constexpr double kDisabledOpacity = 0.4;
inline constexpr double kControlRadius = 5;    // of the corners of small controls, in points
inline constexpr double kListLineHeight = 24;  // in points, at the usual size of texts
inline constexpr double kListLinePadding = 8;

}  // namespace zq
