// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct DBusMessage;

namespace zq::qt {

// How notifications look on the session bus: the signal Posted of org.zq.Notify, sent from
// /org/zq/notify, with a key of the name, the name, and the payload as bytes or, where it is
// long, as a sealed memory file and its size.

struct Notification {
  std::string name;
  std::string payload;
};

constexpr std::size_t kLongestNotificationName = std::size_t{64} << 10;

struct ReleaseBusMessage {
  void operator()(DBusMessage* message) const;
};
using BusMessage = std::unique_ptr<DBusMessage, ReleaseBusMessage>;

// ASCII letters, digits and .-_% alone, at most 200 of them, and another one for each name:
// what else stands in a match rule can end it early, or end the process.
std::string notificationKey(std::string_view name);
// Has the bus send the notifications of that name.
std::string notificationRule(std::string_view name);

// A call to the bus itself, with a text or without.
BusMessage busCall(const char* method, const char* argument = nullptr);
// The name and payload must be within their limits. Files are for connections that carry them.
BusMessage notificationMessage(const Notification& notification, bool withFiles);
// Whether it claims to be a notification, whatever is in it.
bool isNotification(DBusMessage& message);
// Nothing unless every part is as above.
std::optional<Notification> readNotification(DBusMessage& message);

}  // namespace zq::qt
