// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <span>
#include <string_view>

namespace zq {

// How a drawing changes inside a circle or square: the part of its size and of its line
// weight that is left.
struct SymbolInner {
  double scale = 0.5;
  double weight = 1;
};
// For drawings of many lines, which would run together at the common weight.
inline constexpr SymbolInner kFineInner{0.54, 0.68};

// One base drawing of the table, in the notation of symbol_text.hpp.
struct SymbolRow {
  std::string_view name;
  std::string_view drawing;
  std::string_view fill = {};  // where the rule for ".fill" cannot give a good one
  SymbolInner inner = {};
};

std::span<const SymbolRow> arrowRows();
std::span<const SymbolRow> markRows();
std::span<const SymbolRow> controlRows();
std::span<const SymbolRow> documentRows();
std::span<const SymbolRow> thingRows();
std::span<const SymbolRow> letterRows();

}  // namespace zq
