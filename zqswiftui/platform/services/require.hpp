// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string_view>

namespace zq {

// Prints one line (what was broken, by which component, where) to standard error and
// aborts, in release builds too. Any thread.
[[noreturn]] void stopProgram(std::string_view condition, std::string_view sentence,
                              const char* file, int line);

}  // namespace zq

// A contract that must hold: ZQ_REQUIRE(!list.empty(), "ZQTokensView: separators is empty");
#define ZQ_REQUIRE(condition, sentence)                                              \
  do {                                                                               \
    if (!(condition)) ::zq::stopProgram(#condition, (sentence), __FILE__, __LINE__); \
  } while (false)
