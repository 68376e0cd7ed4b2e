// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/toolkit/symbols/symbol_rows.hpp>

namespace zq {
namespace {

constexpr SymbolRow kThingRows[] = {
    {"bell",
     "s M 13 73 C 22 65 24 57 24 42 C 24 24 34 12 50 12 C 66 12 76 24 76 42 C 76 57 78 65 87 73 Z; "
     "s M 40 86 C 43 90 57 90 60 86",
     "b M 13 73 C 22 65 24 57 24 42 C 24 24 34 12 50 12 C 66 12 76 24 76 42 C 76 57 78 65 87 73 Z; "
     "s M 40 88 60 88",
     kFineInner},
    {"bolt", "s P 4 60 8 15 56 46 56 40 92 85 44 54 44", {}, kFineInner},
    {"clock", "s O 50 50 39; s M 50 26 50 51 66 60", {}, kFineInner},
    {"display", "s R 10 15 80 56 10; s M 50 72 50 87 M 31 87 69 87",
     "b R 10 15 80 56 10; s M 50 72 50 87 M 31 87 69 87", kFineInner},
    {"flag",
     "s M 20 16 C 32 9 44 12 54 18 C 63 23 72 22 82 18 L 82 56 C 72 61 63 61 54 56 "
     "C 44 50 32 48 20 55 Z; s M 20 13 20 89",
     "b M 20 16 C 32 9 44 12 54 18 C 63 23 72 22 82 18 L 82 56 C 72 61 63 61 54 56 "
     "C 44 50 32 48 20 55 Z; s M 20 13 20 89",
     kFineInner},
    {"globe", "s O 50 50 39; s O 50 50 17 39 M 11 50 89 50", {}, kFineInner},
    {"heart",
     "s M 50 87 C 36 78 11 60 11 37 C 11 23 20 14 31 14 C 40 14 46 19 50 26 "
     "C 54 19 60 14 69 14 C 80 14 89 23 89 37 C 89 60 64 78 50 87 Z"},
    {"house",
     "s M 9 50 50 13 91 50; s M 20 41 L 20 78 C 20 84 23 87 29 87 L 71 87 C 77 87 80 84 80 78 "
     "L 80 41; s M 41 85 41 60 59 60 59 85",
     "s M 9 50 50 13 91 50; b M 20 41 L 20 78 C 20 84 23 87 29 87 L 71 87 C 77 87 80 84 80 78 "
     "L 80 41 L 50 14 Z; e R 41 60 18 40 3",
     kFineInner},
    {"link",
     "s A 44 56 16 -65 45 L 43 79 A 32 68 16 45 225 L 31 47; "
     "s A 56 44 16 115 225 A 68 32 16 225 405 L 69 53",
     {},
     kFineInner},
    {"lock", "s R 19 44 62 45 9; s M 32 43 L 32 30 C 32 18 39 11 50 11 C 61 11 68 18 68 30 L 68 43",
     "b R 19 44 62 45 9; s M 32 43 L 32 30 C 32 18 39 11 50 11 C 61 11 68 18 68 30 L 68 43",
     kFineInner},
    {"moon", "s A 49 51 38 4.7 265.3 A 67 33 29 223.3 46.7 Z"},
    {"person", "s O 50 29 17; s M 14 87 C 14 70 29 62 50 62 C 71 62 86 70 86 87 Z",
     "b O 50 29 17; b M 14 87 C 14 70 29 62 50 62 C 71 62 86 70 86 87 Z", kFineInner},
    {"star", "s S 50 54 43.5 19.5 5 4"},
    {"sun.max", "s O 50 50 16; s Y 50 50 33 40 8", "b O 50 50 16; s Y 50 50 33 40 8", kFineInner},
};

}  // namespace

std::span<const SymbolRow> thingRows() {
  return kThingRows;
}

}  // namespace zq
