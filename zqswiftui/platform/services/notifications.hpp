// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// Notifications between the processes of one user on one machine. A name is any text and is
// compared exactly; a payload is bytes, up to maxPayloadSize. Any thread.
class DistributedNotifications {
 public:
  static constexpr std::size_t maxPayloadSize = std::size_t{32} << 20;

  virtual ~DistributedNotifications() = default;

  // Tells every observer of the name, those of this process too. A payload that is too big
  // is not sent, and one line on standard error says so.
  virtual void post(std::string_view name, std::string_view payload) = 0;

  // Calls back on the interface thread with each payload; 0 is never returned.
  virtual std::uint64_t observe(std::string_view name,
                                std::function<void(const std::string& payload)> callback) = 0;
  // Called on the interface thread, the callback does not start any more.
  virtual void stopObserving(std::uint64_t id) = 0;
};

}  // namespace zq
