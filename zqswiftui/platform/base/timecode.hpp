// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>

namespace zq {

struct TC {
  // Seconds as HH:MM:SS.FF, where FF are hundredths, rounded; with a comma in place of the
  // point where asked. A minus sign stands before a negative time; what is not finite counts
  // as 0. From a hundred hours on there are as many digits as they need; what is more than 10^12
  // seconds counts as that. Any thread.
  static std::string getFloatTimecode(double seconds, bool withComma);
};

}  // namespace zq
