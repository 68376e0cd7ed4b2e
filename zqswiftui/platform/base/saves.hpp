// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// Writes of the user's data: off the interface thread, one after another in the order asked
// for, and none is lost at a normal exit.
struct Saves {
  static void post(std::function<void()> write);
  // Returns once all that were posted have run. Any thread but that of a write.
  static void finish();
};

}  // namespace zq
