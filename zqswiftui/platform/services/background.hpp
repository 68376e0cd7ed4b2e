// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <functional>

namespace zq {

// Runs work off the interface thread, several pieces at once, fast ones before the others
// and each kind in posting order. Any thread. Work that throws stops the program.
class Background {
 public:
  virtual ~Background() = default;
  virtual void post(std::function<void()> work, bool fast) = 0;
};

}  // namespace zq
