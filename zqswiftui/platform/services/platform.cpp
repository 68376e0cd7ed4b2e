// ZQSwiftUI, MIT licence; see LICENSE.
#include <atomic>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/services/require.hpp>

namespace zq {

namespace {

std::atomic<Platform*> installedPlatform{nullptr};

}  // namespace

Platform& Platform::current() {
  Platform* platform = installedPlatform.load(std::memory_order_acquire);
  ZQ_REQUIRE(platform != nullptr,
             "Platform: none is installed; create one before the first component");
  return *platform;
}

bool Platform::installed() {
  return installedPlatform.load(std::memory_order_acquire) != nullptr;
}

void Platform::install() {
  Platform* expected = nullptr;
  const bool first = installedPlatform.compare_exchange_strong(expected, this);
  ZQ_REQUIRE(first, "Platform: another one is installed; a program has one at a time");
}

void Platform::uninstall() {
  Platform* expected = this;
  installedPlatform.compare_exchange_strong(expected, nullptr);
}

}  // namespace zq
