// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zq {

// Texts as C++ source. Any thread.

// Some compilers warn of a longer literal.
inline constexpr std::size_t longestLiteral = 65535;

// What initialises a string_view with just these bytes, whatever they are: a literal, or in
// braces a literal and its size. Lines of a long text stand below one another, and `column` is
// where the first one begins.
std::string cppText(std::string_view text, std::size_t column);

// In double quotes, for a comment: printable, and cut where it is long.
std::string cppComment(std::string_view text);

}  // namespace zq
