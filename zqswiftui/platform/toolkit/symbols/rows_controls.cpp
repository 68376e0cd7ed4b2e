// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/toolkit/symbols/symbol_rows.hpp>

namespace zq {
namespace {

constexpr SymbolRow kControlRows[] = {
    {"backward", "s P 5 50 22 50 78 12 50 P 5 90 22 90 78 52 50", {}, kFineInner},
    {"delete.left",
     "s P 7 10 50 35 20 90 20 90 80 35 80; s M 49 38 73 62 M 73 38 49 62",
     {},
     kFineInner},
    {"eye",
     "s M 10 50 C 22 29 35 20 50 20 C 65 20 78 29 90 50 C 78 71 65 80 50 80 "
     "C 35 80 22 71 10 50 Z; s O 50 50 11.5",
     {},
     kFineInner},
    {"forward", "s P 5 10 22 48 50 10 78 P 5 50 22 88 50 50 78", {}, kFineInner},
    {"gear", "s G 50 50 38.5 29.5 8; s O 50 50 12", "b G 50 50 38.5 29.5 8; e O 50 50 14",
     kFineInner},
    {"line.3.horizontal", "s M 13 25 87 25 M 13 50 87 50 M 13 75 87 75"},
    {"list.bullet",
     "s M 37 25 87 25 M 37 50 87 50 M 37 75 87 75; f O 15 25 6.5 O 15 50 6.5 O 15 75 6.5",
     {},
     kFineInner},
    {"magnifyingglass", "s O 42 42 29.5 M 63.5 63.5 87 87"},
    {"pause", "s R 19 14 19 72 6 R 62 14 19 72 6", {}, kFineInner},
    {"pencil", "s P 5 13 87 18 65 67 16 84 33 35 82; s M 56 27 73 44", {}, kFineInner},
    {"play", "s P 7 22 11 90 50 22 89"},
    {"sidebar.left", "s R 10 17 80 66 11; s M 38 17 38 83", {}, kFineInner},
    {"slider.horizontal.3",
     "s M 11 24 54 24 O 63 24 9 M 72 24 89 24 M 11 50 26 50 O 35 50 9 "
     "M 44 50 89 50 M 11 76 54 76 O 63 76 9 M 72 76 89 76",
     {},
     kFineInner},
    {"speaker.wave.2",
     "s P 5 9 37 24 37 45 19 45 81 24 63 9 63; s A 45 50 20 -45 45; s A 45 50 40 -45 45",
     "b P 5 9 37 24 37 45 19 45 81 24 63 9 63; s A 45 50 20 -45 45; s A 45 50 40 -45 45",
     kFineInner},
    {"square.grid.2x2",
     "s R 13 13 28 28 6 R 59 13 28 28 6 R 13 59 28 28 6 R 59 59 28 28 6",
     {},
     kFineInner},
    {"stop", "s R 17 17 66 66 10"},
    {"textformat",
     "s M 9 78 31 22 53 78 M 17 60 45 60; s O 74 62 16 M 90 46 90 78",
     {},
     kFineInner},
};

}  // namespace

std::span<const SymbolRow> controlRows() {
  return kControlRows;
}

}  // namespace zq
