// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/toolkit/symbols/symbol_rows.hpp>

namespace zq {
namespace {

constexpr SymbolRow kArrowRows[] = {
    {"arrow.clockwise", "s A 49 53 34 28 328; s M 79 13 79 35 57 35"},
    {"arrow.counterclockwise", "s A 51 53 34 152 -148; s M 21 13 21 35 43 35"},
    {"arrow.down", "s M 50 13 50 87 M 21 58 50 87 79 58"},
    {"arrow.left", "s M 87 50 13 50 M 42 21 13 50 42 79"},
    {"arrow.right", "s M 13 50 87 50 M 58 21 87 50 58 79"},
    {"arrow.up", "s M 50 87 50 13 M 21 42 50 13 79 42"},
    {"chevron.compact.down", "s M 14 42 50 58 86 42"},
    {"chevron.compact.left", "s M 58 14 42 50 58 86"},
    {"chevron.compact.right", "s M 42 14 58 50 42 86"},
    {"chevron.compact.up", "s M 14 58 50 42 86 58"},
    {"chevron.down", "s M 17 34 50 67 83 34"},
    {"chevron.left", "s M 66 17 33 50 66 83"},
    {"chevron.right", "s M 34 17 67 50 34 83"},
    {"chevron.up", "s M 17 66 50 33 83 66"},
};

}  // namespace

std::span<const SymbolRow> arrowRows() {
  return kArrowRows;
}

}  // namespace zq
