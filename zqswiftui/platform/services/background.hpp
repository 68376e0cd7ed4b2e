// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <utility>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// Runs work off the interface thread, several pieces at once, fast ones before the others
// and each kind in posting order. Any thread. Work that throws stops the program.
class Background {
 public:
  virtual ~Background() = default;
  virtual void post(std::function<void()> work, bool fast) = 0;
  // Work that keeps a processor busy for long, such as decoding. It may run on threads that give
  // way to all others of the program, so the interface thread must not wait for it; in posting
  // order among its kind. Here: as other work that is not fast.
  virtual void postHeavy(std::function<void()> work) { post(std::move(work), false); }
};

}  // namespace zq
