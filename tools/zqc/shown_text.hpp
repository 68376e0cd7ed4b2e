// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zq::zqc {

// Texts of a project as a terminal may show them.

// In one line, and without anything that a terminal obeys: \n, \t, and \u{1b} for the rest.
std::string shownText(std::string_view text);

// In columns: wide characters take two, accents none.
std::size_t displayWidth(std::string_view text);

// The text where it fits that many columns, else its begin and an ellipsis.
std::string shortened(std::string_view text, std::size_t columns);

}  // namespace zq::zqc
