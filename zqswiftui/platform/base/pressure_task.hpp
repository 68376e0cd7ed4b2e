// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// Folds a burst of requests into one: keeps one pending action, replaced by each newer
// request, and runs it on the interface thread once its delay has passed without another
// request. Destroying the task drops the action; one that must run whoever goes first holds
// the task itself. Any thread.
//   task->perform(0.25, [project, task] { save(project); });
class ZQPressureTask {
 public:
  ZQPressureTask();
  static std::shared_ptr<ZQPressureTask> make();
  ~ZQPressureTask();
  ZQPressureTask(const ZQPressureTask&) = delete;
  ZQPressureTask& operator=(const ZQPressureTask&) = delete;

  // Seconds; a negative or non-finite delay is none, and still runs later.
  void perform(double afterSeconds, std::function<void()> action);
  // Runs the pending action now, if there is one. Interface thread only.
  void flush();
  // Forgets it.
  void drop();
  bool isPending() const;

  // Of all tasks of the process, for a platform that ends. Interface thread only.
  static void flushAll();
  static void dropAll();

 private:
  struct State;
  Shared<State> state_;
};

}  // namespace zq
