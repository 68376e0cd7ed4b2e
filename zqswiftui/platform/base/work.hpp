// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <string>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// The interface thread. Any thread may ask.
struct XMain {
  // At once when called there, else as soon as it is free.
  static void execute(std::function<void()> work);
  // The same, for threads that may outlive the platform: without one the work is dropped.
  static void executeWhileThere(std::function<void()> work);
  // Always later, after what was posted before.
  static void post(std::function<void()> work);
};

// Background work. Fast work goes first; two pieces may run at once.
struct Queue {
  static void execute(bool fast, std::function<void()> work);
  // Work that keeps a processor busy for long and that the interface thread never waits for: it
  // gives way to it.
  static void executeHeavy(std::function<void()> work);
};

// Background work that runs one piece after another, in posting order, on no thread of its
// own. What was posted runs even when the queue is gone. Any thread. A heavy queue is for work that
// keeps a processor busy for long, as Queue::executeHeavy has it; nobody should wait in its sync.
//   static SerialQueue queue("vendel.zqdeferredimagevm", SerialQueue::Kind::heavy);
class SerialQueue {
 public:
  enum class Kind : unsigned char { usual, heavy };
  explicit SerialQueue(std::string name, Kind kind = Kind::usual);

  const std::string& name() const;
  void post(std::function<void()> work);
  // Runs work before it returns, after all that was posted before, on this thread. Stops the
  // program when it is called from work of the same queue, which would wait for itself.
  void sync(const std::function<void()>& work);

 private:
  struct State;
  std::shared_ptr<State> state_;
};

}  // namespace zq
