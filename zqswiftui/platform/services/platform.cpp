// ZQSwiftUI, MIT licence; see LICENSE.
#include <atomic>
#include <mutex>
#include <shared_mutex>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/services/require.hpp>

namespace zq {

namespace {

std::atomic<Platform*> installedPlatform{nullptr};
std::shared_mutex inUse;  // shared by those who use it, alone for its end

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

bool Platform::use(const std::function<void(Platform&)>& work) {
  const std::shared_lock lock(inUse);
  Platform* platform = installedPlatform.load(std::memory_order_acquire);
  if (platform) work(*platform);
  return platform != nullptr;
}

void Platform::install() {
  Platform* expected = nullptr;
  const bool first = installedPlatform.compare_exchange_strong(expected, this);
  ZQ_REQUIRE(first, "Platform: another one is installed; a program has one at a time");
}

void Platform::uninstall() {
  const std::lock_guard lock(inUse);
  Platform* expected = this;
  installedPlatform.compare_exchange_strong(expected, nullptr);
}

}  // namespace zq
