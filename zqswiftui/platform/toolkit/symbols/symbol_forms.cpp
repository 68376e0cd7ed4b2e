// ZQSwiftUI, MIT licence; see LICENSE.
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
double scaledWidth(double width, double scale) {
  return width <= kSymbolWeight ? width : kSymbolWeight + (width - kSymbolWeight) * scale;
}

}  // namespace

SymbolDrawing enclosedSymbol(const SymbolDrawing& inner, double scale, SymbolEnclosure enclosure,
                             bool filled) {
  SymbolDrawing result = readSymbol(outline(enclosure, filled));
  // The glyph is a mask of its own: what it erases of itself must not eat into the ring, so
  // nothing of it may reach there; every part is small enough by the scale.
  const double shift = 0.5 - 0.5 * scale;
  for (const SymbolPart& part : inner.parts) {
    result.parts.push_back({part.path.transformed(scale, scale, {shift, shift}),
                            scaledWidth(part.lineWidth, scale), part.erase != filled});
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
