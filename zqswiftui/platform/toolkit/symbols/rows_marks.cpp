// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/toolkit/symbols/symbol_rows.hpp>

namespace zq {
namespace {

constexpr SymbolRow kMarkRows[] = {
    {"app", "s R 12.5 12.5 75 75 24"},
    {"checkmark", "s M 15 54 38 78 85 23"},
    {"circle", "s O 50 50 39"},
    {"ellipsis", "f O 17 50 7.5 O 50 50 7.5 O 83 50 7.5", {}, {0.56, 1}},
    {"exclamationmark", "s M 50 14 50 61; s D 50 84"},
    {"exclamationmark.triangle",
     "s P 7 50 11 93 85 7 85; s M 50 38 50 58; s D 50 71",
     {},
     kFineInner},
    {"info", "s D 51 16; s M 39 42 51 42 51 83 M 37 83 65 83"},
    {"minus", "s M 14 50 86 50"},
    {"plus", "s M 50 14 50 86 M 14 50 86 50"},
    {"questionmark",
     "s M 30 33 C 30 22 38 14 50 14 C 62 14 70 22 70 33 C 70 47 50 48 50 63; s D 50 84"},
    {"rectangle", "s R 10 20 80 60 11"},
    {"square", "s R 13.5 13.5 73 73 12"},
    {"triangle", "s P 7 50 12 92 84 8 84"},
    {"xmark", "s M 21 21 79 79 M 79 21 21 79", {}, {0.46, 1}},
};

}  // namespace

std::span<const SymbolRow> markRows() {
  return kMarkRows;
}

}  // namespace zq
