// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zq {

// Something said of a place in a text.
struct TextFinding {
  std::size_t offset;
  std::string sentence;
};

// The values of a project's text that are of another kind than their key wants, so that they
// are read as if they were not there. In the order of the text, which has been decoded before;
// up to a number that is too big for a double.
std::vector<TextFinding> findWrongKinds(std::string_view json);

}  // namespace zq
