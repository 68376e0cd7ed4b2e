// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <zqswiftui/platform/toolkit/symbols/symbol_rows.hpp>
#include <zqswiftui/platform/toolkit/symbols/symbols.hpp>

namespace zq {

// The rules that form one drawing from another. Inside an enclosure lines keep their weight
// however small the drawing becomes, but for the part that the drawing itself gives away.

enum class SymbolEnclosure { circle, square, rectangle };

// The drawing scaled into a ring, or erased from a filled shape.
SymbolDrawing enclosedSymbol(const SymbolDrawing& drawing, SymbolInner inner,
                             SymbolEnclosure enclosure, bool filled);

// The first part filled in, and what lies over it erased; nothing where the first part is
// an open line, which has no inside.
std::optional<SymbolDrawing> filledSymbol(const SymbolDrawing& outlined);

// A bar across from the top leading to the bottom trailing corner.
SymbolDrawing slashedSymbol(SymbolDrawing drawing);

}  // namespace zq
