// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <zqswiftui/platform/qt/bus_messages.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

struct DBusConnection;

namespace zq::qt {

// One connection to the session bus, of one thread: everything here is called on that thread,
// and what arrives is handled on it while it waits. libdbus is used bare, for QtDBus ends the
// process where a bus does not answer its greeting, never sees another address than the first,
// and stops reading for good once much waits for a busy receiver.
class BusConnection {
 public:
  using Heard = std::function<void(Notification)>;

  // Null and the reason where no bus is reached. A bus that does not answer is waited for ten
  // seconds; once the process is ending, two.
  static std::unique_ptr<BusConnection> open(Heard heard, const std::atomic<bool>& ending,
                                             std::string& reason);
  ~BusConnection();
  BusConnection(const BusConnection&) = delete;
  BusConnection& operator=(const BusConnection&) = delete;

  // False once the bus is gone, or did not answer.
  bool alive() const;

  void send(const Notification& notification);
  void listen(const std::string& name);
  void unlisten(const std::string& name);
  // Returns once the bus has all that was sent.
  void flush();
  // Waits for the bus, the other file or the time, which -1 makes endless; handles what came.
  void wait(int otherFile, int milliseconds);

 private:
  explicit BusConnection(DBusConnection* bus, Heard heard, const std::atomic<bool>& ending);
  bool greet(std::string& reason);
  BusMessage call(const BusMessage& request);
  void dispatch();
  void take(DBusMessage& message);

  DBusConnection* bus_;
  Heard heard_;
  const std::atomic<bool>& ending_;
  std::string ownName_;
  int unconfirmed_ = 0;  // sent since the bus last answered
  bool silent_ = false;
};

}  // namespace zq::qt
