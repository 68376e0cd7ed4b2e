// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/toolkit/path.hpp>

namespace zq {

// The small pictures that buttons and placeholders show, drawn by ourselves. A drawing lies
// in a unit square with y down; its parts make one mask in their order, and whoever plays it
// tints the mask as a whole, so parts that overlap are not seen twice. Lengths are fractions
// of the square's side. Any thread.
//
//   if (const SymbolDrawing* star = findSymbol("star.fill")) play(*star);

struct SymbolPart {
  Path path;
  double lineWidth = 0;  // 0: filled; otherwise stroked with round caps and joins
  bool erase = false;    // takes away from what the parts before it drew
  bool operator==(const SymbolPart&) const = default;
};

struct SymbolDrawing {
  std::vector<SymbolPart> parts;
  bool operator==(const SymbolDrawing&) const = default;
};

// The drawing of a base name ("star", "arrow.right", "d") or of a name formed from one:
//   base [.slash] [.circle | .square | .rectangle] [.fill]
// nullptr where there is none; the first miss of a name says so on standard error. Pointers
// stay valid for the program's life.
const SymbolDrawing* findSymbol(std::string_view name);

// A drawing of the host's own, for later look-ups of this name and of the names formed from
// it. It hides ours of the same name; drawings handed out before stay as they are.
void addSymbol(std::string name, SymbolDrawing drawing);

// All base names, and the formed ones that were asked for, sorted.
std::vector<std::string> symbolNames();

}  // namespace zq
