// ZQSwiftUI, MIT licence; see LICENSE.
#include <dbus/dbus.h>

#include <QCryptographicHash>
#include <zqswiftui/platform/qt/bus_messages.hpp>
#include <zqswiftui/platform/qt/memory_file.hpp>
#include <zqswiftui/platform/services/notifications.hpp>

namespace zq::qt {
namespace {

constexpr const char* kPath = "/org/zq/notify";
constexpr const char* kInterface = "org.zq.Notify";
constexpr const char* kMember = "Posted";
constexpr const char* kWithBytes = "sayay";
constexpr const char* kWithFile = "sayht";

// Longer payloads go faster as a file, which the bus does not copy.
constexpr std::size_t kLongestInline = std::size_t{64} << 10;
// A match rule of more than 1,024 characters is refused.
constexpr std::size_t kLongestKey = 200;

void appendBytes(DBusMessageIter& arguments, std::string_view bytes) {
  DBusMessageIter array;
  const char* data = bytes.data();
  dbus_message_iter_open_container(&arguments, DBUS_TYPE_ARRAY, DBUS_TYPE_BYTE_AS_STRING, &array);
  dbus_message_iter_append_fixed_array(&array, DBUS_TYPE_BYTE, &data,
                                       static_cast<int>(bytes.size()));
  dbus_message_iter_close_container(&arguments, &array);
}

std::string_view readBytes(DBusMessageIter& arguments) {
  DBusMessageIter array;
  const char* data = nullptr;
  int size = 0;
  dbus_message_iter_recurse(&arguments, &array);
  dbus_message_iter_get_fixed_array(&array, &data, &size);
  return {data, static_cast<std::size_t>(size)};
}

std::optional<std::string> readFile(DBusMessageIter& arguments) {
  int descriptor = -1;
  dbus_message_iter_get_basic(&arguments, &descriptor);
  const OwnedFile file(descriptor);
  dbus_message_iter_next(&arguments);
  dbus_uint64_t size = 0;
  dbus_message_iter_get_basic(&arguments, &size);
  return readSealedMemoryFile(file.descriptor(), size, DistributedNotifications::maxPayloadSize);
}

}  // namespace

void ReleaseBusMessage::operator()(DBusMessage* message) const {
  dbus_message_unref(message);
}

std::string notificationKey(std::string_view name) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  if (name.empty()) return "%";
  std::string key;
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                       c == '.' || c == '_' || c == '-';
    if (plain) {
      key += c;
    } else {
      key += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    }
    if (key.size() > kLongestKey) {
      const QByteArrayView whole(name.data(), static_cast<qsizetype>(name.size()));
      return "%-" + QCryptographicHash::hash(whole.toByteArray(), QCryptographicHash::Sha256)
                        .toHex()
                        .toStdString();
    }
  }
  return key;
}

std::string notificationRule(std::string_view name) {
  std::string rule = "type='signal'";
  const auto narrow = [&](std::string_view by, std::string_view value) {
    rule.append(",").append(by).append("='").append(value).append("'");
  };
  narrow("path", kPath);
  narrow("interface", kInterface);
  narrow("member", kMember);
  narrow("arg0", notificationKey(name));
  return rule;
}

BusMessage busCall(const char* method, const char* argument) {
  BusMessage message(
      dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS, method));
  if (argument != nullptr) {
    dbus_message_append_args(message.get(), DBUS_TYPE_STRING, &argument, DBUS_TYPE_INVALID);
  }
  return message;
}

BusMessage notificationMessage(const Notification& notification, bool withFiles) {
  BusMessage message(dbus_message_new_signal(kPath, kInterface, kMember));
  const std::string key = notificationKey(notification.name);
  const char* keyText = key.c_str();
  DBusMessageIter arguments;
  dbus_message_iter_init_append(message.get(), &arguments);
  dbus_message_iter_append_basic(&arguments, DBUS_TYPE_STRING, &keyText);
  appendBytes(arguments, notification.name);
  OwnedFile file;
  if (withFiles && notification.payload.size() > kLongestInline) {
    file = sealedMemoryFile(notification.payload);
  }
  if (file) {
    const int descriptor = file.descriptor();
    const dbus_uint64_t size = notification.payload.size();
    // It is duplicated, which fails where the process has no more files left.
    if (!dbus_message_iter_append_basic(&arguments, DBUS_TYPE_UNIX_FD, &descriptor)) {
      return notificationMessage(notification, false);
    }
    dbus_message_iter_append_basic(&arguments, DBUS_TYPE_UINT64, &size);
  } else {
    appendBytes(arguments, notification.payload);
  }
  return message;
}

bool isNotification(DBusMessage& message) {
  return dbus_message_is_signal(&message, kInterface, kMember);
}

std::optional<Notification> readNotification(DBusMessage& message) {
  const bool withFile = dbus_message_has_signature(&message, kWithFile);
  if (!withFile && !dbus_message_has_signature(&message, kWithBytes)) return std::nullopt;
  if (!dbus_message_has_path(&message, kPath)) return std::nullopt;
  DBusMessageIter arguments;
  dbus_message_iter_init(&message, &arguments);
  const char* key = nullptr;
  dbus_message_iter_get_basic(&arguments, &key);
  dbus_message_iter_next(&arguments);
  const std::string_view name = readBytes(arguments);
  if (name.size() > kLongestNotificationName || notificationKey(name) != key) return std::nullopt;
  dbus_message_iter_next(&arguments);
  if (withFile) {
    auto payload = readFile(arguments);
    if (!payload) return std::nullopt;
    return Notification{std::string(name), std::move(*payload)};
  }
  const std::string_view payload = readBytes(arguments);
  if (payload.size() > DistributedNotifications::maxPayloadSize) return std::nullopt;
  return Notification{std::string(name), std::string(payload)};
}

}  // namespace zq::qt
