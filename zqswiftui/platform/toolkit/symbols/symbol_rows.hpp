// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <span>
#include <string_view>

namespace zq {

// One base drawing of the table, in the notation of symbol_text.hpp.
struct SymbolRow {
  std::string_view name;
  std::string_view drawing;
  std::string_view fill = {};  // where the rule for ".fill" cannot give a good one
  double inner = 0.5;          // how much of its size is left inside a circle or square
};

std::span<const SymbolRow> arrowRows();
std::span<const SymbolRow> markRows();
std::span<const SymbolRow> controlRows();
std::span<const SymbolRow> documentRows();
std::span<const SymbolRow> thingRows();
std::span<const SymbolRow> letterRows();

}  // namespace zq
