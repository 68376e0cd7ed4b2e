// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string_view>
#include <zqswiftui/platform/toolkit/symbols/symbols.hpp>

namespace zq {

// The weight of every line, so that all symbols look like one family; and the clear seam
// kept where one shape passes before another.
inline constexpr double kSymbolWeight = 0.085;
inline constexpr double kSymbolSeam = 0.055;

// Reads a drawing written on a square of 100 by 100. Parts are separated by ';' and begin
// with what is done with their outline:
//   s  stroke            b  body: fill and stroke      f  fill
//   x  erase the stroke  e  erase the fill             g  erase the stroke and a seam around
//   k  erase the body and a seam around it
// Outlines are commands, each followed by all of its numbers:
//   M x y ...        begin, then lines to the further points
//   L x y ...        lines             C x y x y x y ...  curves           Z  close
//   A cx cy r a b    arc from a to b degrees, clockwise from the right
//   O cx cy rx [ry]  ellipse           R x y w h r        rounded rectangle
//   P r x y ...      polygon with corners of radius r
//   S cx cy R r n q  star of n points, corners of radius q
//   G cx cy R r n    gear of n teeth   Y cx cy r R n      n rays           D cx cy  dot
// The texts are our own: one that cannot be read stops the program.
SymbolDrawing readSymbol(std::string_view text);

}  // namespace zq
