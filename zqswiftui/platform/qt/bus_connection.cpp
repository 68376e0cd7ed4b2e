// ZQSwiftUI, MIT licence; see LICENSE.
#include <dbus/dbus.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <utility>
#include <zqswiftui/platform/qt/bus_connection.hpp>

namespace zq::qt {
namespace {

using SteadyClock = std::chrono::steady_clock;
constexpr std::chrono::seconds kCallPatience{10};
constexpr std::chrono::seconds kPatienceAtTheEnd{2};
constexpr int kLookAgainMilliseconds = 100;

// While a notification waits to be sent it may keep a file open, of which a process has few.
constexpr int kMostUnconfirmed = 64;

class BusError {
 public:
  BusError() { dbus_error_init(&error_); }
  ~BusError() { dbus_error_free(&error_); }
  BusError(const BusError&) = delete;
  BusError& operator=(const BusError&) = delete;
  DBusError* get() { return &error_; }
  std::string text() const { return error_.message != nullptr ? error_.message : "no answer"; }

 private:
  DBusError error_;
};

// Each time anew: libdbus itself looks once and remembers. UTF-8 without NULs.
std::string sessionAddress() {
  const QByteArray told = qgetenv("DBUS_SESSION_BUS_ADDRESS");
  if (!told.isEmpty()) return QString::fromLocal8Bit(told).toStdString();
  const QByteArray socket = qgetenv("XDG_RUNTIME_DIR") + "/bus";
  struct stat status {};
  if (::stat(socket.constData(), &status) == 0 && S_ISSOCK(status.st_mode) &&
      status.st_uid == ::geteuid()) {
    char* path = dbus_address_escape_value(socket.constData());
    std::string address = std::string("unix:path=") + path;
    dbus_free(path);
    return address;
  }
  return "autolaunch:";
}

}  // namespace

std::unique_ptr<BusConnection> BusConnection::open(Heard heard, const std::atomic<bool>& ending,
                                                   std::string& reason) {
  // A broken pipe of the program's own must go on doing what the program wants.
  dbus_connection_set_change_sigpipe(FALSE);
  BusError error;
  DBusConnection* bus = dbus_connection_open_private(sessionAddress().c_str(), error.get());
  if (bus == nullptr) {
    reason = error.text();
    return nullptr;
  }
  std::unique_ptr<BusConnection> connection(new BusConnection(bus, std::move(heard), ending));
  return connection->greet(reason) ? std::move(connection) : nullptr;
}

BusConnection::BusConnection(DBusConnection* bus, Heard heard, const std::atomic<bool>& ending)
    : bus_(bus), heard_(std::move(heard)), ending_(ending) {
  dbus_connection_set_exit_on_disconnect(bus_, FALSE);
  const auto filter = [](DBusConnection*, DBusMessage* message, void* self) {
    if (!isNotification(*message)) return DBUS_HANDLER_RESULT_NOT_YET_HANDLED;
    static_cast<BusConnection*>(self)->take(*message);
    return DBUS_HANDLER_RESULT_HANDLED;
  };
  dbus_connection_add_filter(bus_, filter, this, nullptr);
}

BusConnection::~BusConnection() {
  dbus_connection_close(bus_);
  dbus_connection_unref(bus_);
}

bool BusConnection::greet(std::string& reason) {
  const BusMessage answer = call(busCall("Hello"));
  BusError error;
  const char* name = nullptr;
  if (!answer || dbus_set_error_from_message(error.get(), answer.get()) ||
      !dbus_message_get_args(answer.get(), error.get(), DBUS_TYPE_STRING, &name,
                             DBUS_TYPE_INVALID)) {
    reason = error.text();
    return false;
  }
  ownName_ = name;
  return true;
}

bool BusConnection::alive() const {
  return !silent_ && dbus_connection_get_is_connected(bus_);
}

void BusConnection::send(const Notification& notification) {
  const bool withFiles = dbus_connection_can_send_type(bus_, DBUS_TYPE_UNIX_FD);
  dbus_connection_send(bus_, notificationMessage(notification, withFiles).get(), nullptr);
  if (++unconfirmed_ >= kMostUnconfirmed) flush();
}

void BusConnection::listen(const std::string& name) {
  const BusMessage answer = call(busCall("AddMatch", notificationRule(name).c_str()));
  BusError error;
  if (answer && dbus_set_error_from_message(error.get(), answer.get())) {
    std::fprintf(stderr, "zqswiftui: notifications of other processes are not heard: %s\n",
                 error.text().c_str());
  }
}

void BusConnection::unlisten(const std::string& name) {
  call(busCall("RemoveMatch", notificationRule(name).c_str()));
}

void BusConnection::flush() {
  if (unconfirmed_ > 0) call(busCall("GetId"));
}

// The answer, an error perhaps; none where the bus does not give one.
BusMessage BusConnection::call(const BusMessage& request) {
  DBusPendingCall* pending = nullptr;
  if (!alive() ||
      !dbus_connection_send_with_reply(bus_, request.get(), &pending, DBUS_TIMEOUT_INFINITE) ||
      pending == nullptr) {
    return nullptr;
  }
  auto deadline = SteadyClock::now() + kCallPatience;
  bool hurried = false, open = true;
  while (open && !dbus_pending_call_get_completed(pending) && SteadyClock::now() < deadline) {
    if (ending_ && !std::exchange(hurried, true)) {
      deadline = std::min(deadline, SteadyClock::now() + kPatienceAtTheEnd);
    }
    open = dbus_connection_read_write(bus_, kLookAgainMilliseconds);
    dispatch();
  }
  BusMessage answer;
  if (dbus_pending_call_get_completed(pending)) {
    answer.reset(dbus_pending_call_steal_reply(pending));
  } else {
    dbus_pending_call_cancel(pending);
  }
  dbus_pending_call_unref(pending);
  silent_ = !answer;
  if (answer) unconfirmed_ = 0;
  return answer;
}

void BusConnection::wait(int otherFile, int milliseconds) {
  dispatch();
  int file = -1;
  dbus_connection_get_unix_fd(bus_, &file);
  short events = POLLIN;
  if (dbus_connection_has_messages_to_send(bus_)) events |= POLLOUT;
  pollfd files[] = {{file, events, 0}, {otherFile, POLLIN, 0}};
  if (::poll(files, 2, milliseconds) <= 0 || files[0].revents == 0) return;
  dbus_connection_read_write(bus_, 0);
  dispatch();
}

// What arrived is taken off at once: a connection in which too much waits is not read.
void BusConnection::dispatch() {
  while (dbus_connection_dispatch(bus_) == DBUS_DISPATCH_DATA_REMAINS) {
  }
}

void BusConnection::take(DBusMessage& message) {
  // The own ones were told to the observers when they were posted.
  if (dbus_message_has_sender(&message, ownName_.c_str())) return;
  if (auto notification = readNotification(message)) heard_(std::move(*notification));
}

}  // namespace zq::qt
