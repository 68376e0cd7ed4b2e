// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

namespace zq {

// Whether a letter beyond ASCII may stand in an identifier of C++ and of Swift, also as its
// first. Any thread.
bool isIdentifierLetter(char32_t c);

}  // namespace zq
