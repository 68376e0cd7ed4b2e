// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/base/pressure_task.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>

namespace zq {

HeadlessPlatform::HeadlessPlatform(BackgroundMode mode) : time_(mode) {
  install();
}

HeadlessPlatform::~HeadlessPlatform() {
  ZQPressureTask::dropAll();
  // What is dropped may still ask for services as it goes.
  time_.dropAll();
  uninstall();
}

void HeadlessPlatform::quit() {
  runUntilIdle();
  ZQPressureTask::flushAll();
  runUntilIdle();
}

}  // namespace zq
