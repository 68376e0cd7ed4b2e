// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>

namespace zq {

struct TC {
  // Seconds as HH:MM:SS.FF, where FF are hundredths, rounded; with a comma in place of the
  // point where asked. A minus sign stands before a negative time; what is not finite counts
  // as 0, and nothing goes beyond 99:59:59.99. Any thread.
  static std::string getFloatTimecode(double seconds, bool withComma);
};

}  // namespace zq
