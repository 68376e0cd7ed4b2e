// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/platform/base/saves.hpp>
#include <zqswiftui/platform/base/work.hpp>

namespace zq {

namespace {

// Never destroyed: static objects may save as they end.
SerialQueue& queue() {
  static auto* const saves = new SerialQueue("vendel.zqsaves");
  return *saves;
}

}  // namespace

void Saves::post(std::function<void()> write) {
  queue().post(std::move(write));
}

void Saves::finish() {
  queue().sync([] {});
}

}  // namespace zq
