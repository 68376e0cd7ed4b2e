// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <zqswiftui/platform/toolkit/symbols/symbol_forms.hpp>
#include <zqswiftui/platform/toolkit/symbols/symbol_text.hpp>

namespace zq {
namespace {

std::string_view outline(SymbolEnclosure enclosure, bool filled) {
  switch (enclosure) {
    case SymbolEnclosure::circle:
      return filled ? "b O 50 50 39" : "s O 50 50 39";
    case SymbolEnclosure::square:
      return filled ? "b R 13.5 13.5 73 73 14" : "s R 13.5 13.5 73 73 14";
    case SymbolEnclosure::rectangle:
      return filled ? "b R 10 20 80 60 12" : "s R 10 20 80 60 12";
  }
  return {};
}

// Of a line wider than the common weight only what exceeds it shrinks with the drawing.
double innerWidth(double width, SymbolInner inner) {
  const double line = std::min(width, kSymbolWeight);
  return line * inner.weight + (width - line) * inner.scale;
}

}  // namespace

SymbolDrawing enclosedSymbol(const SymbolDrawing& drawing, SymbolInner inner,
                             SymbolEnclosure enclosure, bool filled) {
  SymbolDrawing result = readSymbol(outline(enclosure, filled));
  const double shift = 0.5 - 0.5 * inner.scale;
  for (const SymbolPart& part : drawing.parts) {
    result.parts.push_back({part.path.transformed(inner.scale, inner.scale, {shift, shift}),
                            innerWidth(part.lineWidth, inner), part.erase != filled});
  }
  return result;
}

std::optional<SymbolDrawing> filledSymbol(const SymbolDrawing& outlined) {
  if (outlined.parts.empty()) return std::nullopt;
  const SymbolPart& body = outlined.parts.front();
  if (body.path.empty() || body.path.elements().back().verb != Path::Verb::close) {
    return std::nullopt;
  }
  SymbolDrawing result;
  result.parts.push_back({body.path, 0, false});
  if (body.lineWidth > 0) result.parts.push_back(body);
  for (std::size_t i = 1; i < outlined.parts.size(); ++i) {
    result.parts.push_back(outlined.parts[i]);
    result.parts.back().erase = !outlined.parts[i].erase;
  }
  return result;
}

SymbolDrawing slashedSymbol(SymbolDrawing drawing) {
  const SymbolDrawing bar = readSymbol("g M 15 13 85 87; s M 15 13 85 87");
  drawing.parts.insert(drawing.parts.end(), bar.parts.begin(), bar.parts.end());
  return drawing;
}

}  // namespace zq
