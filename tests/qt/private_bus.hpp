// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <csignal>
#include <string>
#include <vector>

namespace zq::qt {

// A session bus of the test's own, which this process and those that it starts find.
class PrivateBus {
 public:
  ~PrivateBus() {
    stop();
    if (before_.isNull()) {
      qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    } else {
      qputenv("DBUS_SESSION_BUS_ADDRESS", before_);
    }
  }
  static bool possible() {
    return !QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty();
  }
  // Always at the same address, unless there is a name for another one.
  bool start(const QString& name = QStringLiteral("bus")) {
    const QString address = QStringLiteral("unix:path=") + folder_.filePath(name);
    daemon_.setStandardErrorFile(QProcess::nullDevice());
    daemon_.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--session"), QStringLiteral("--nofork"),
                   QStringLiteral("--print-address"), QStringLiteral("--address=") + address});
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.toLatin1());
    return daemon_.waitForReadyRead();
  }
  void stop() {
    daemon_.kill();
    daemon_.waitForFinished();
  }
  // How many rules of all connections hold the text.
  static qsizetype rulesWith(const QByteArray& text) {
    QProcess asking;
    asking.start(
        QStringLiteral("dbus-send"),
        {QStringLiteral("--session"), QStringLiteral("--print-reply"),
         QStringLiteral("--dest=org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
         QStringLiteral("org.freedesktop.DBus.Debug.Stats.GetAllMatchRules")});
    asking.waitForFinished();
    return asking.readAllStandardOutput().count(text);
  }
  // Lets it live and not answer.
  void hold() { ::kill(static_cast<pid_t>(daemon_.processId()), SIGSTOP); }

 private:
  const QByteArray before_ = qgetenv("DBUS_SESSION_BUS_ADDRESS");
  const QTemporaryDir folder_;
  QProcess daemon_;
};

inline QString inHex(const std::string& name) {
  return QString::fromLatin1(QByteArray::fromStdString(name).toHex());
}

// Another process, which ends with this.
class BusPeer {
 public:
  explicit BusPeer(const QStringList& arguments) {
    process_.start(QStringLiteral(ZQ_BIN_DIR "/bus_peer"), arguments);
    process_.waitForStarted();
  }
  ~BusPeer() {
    process_.closeWriteChannel();
    if (!process_.waitForFinished()) process_.kill();
    process_.waitForFinished();
  }
  // Without running the event loop.
  bool waitForLine() { return process_.canReadLine() || process_.waitForReadyRead(); }
  bool waitForEnd() {
    return process_.waitForFinished() && process_.exitStatus() == QProcess::NormalExit &&
           process_.exitCode() == 0;
  }
  void write(const char* text) { process_.write(text); }
  std::string output() { return process_.readAllStandardOutput().toStdString(); }
  std::string errors() { return errors_ += process_.readAllStandardError().toStdString(); }

 private:
  QProcess process_;
  std::string errors_;
};

// Posts payloads of a size from another process, which ends at once.
inline std::string postElsewhere(std::size_t size, const std::vector<std::string>& names) {
  QStringList arguments{QStringLiteral("post"), QString::number(size)};
  for (const std::string& name : names) arguments.append(inHex(name));
  BusPeer peer(arguments);
  return peer.waitForEnd() ? peer.errors() : "the peer failed: " + peer.errors();
}

}  // namespace zq::qt
