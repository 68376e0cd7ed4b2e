// ZQSwiftUI, MIT licence; see LICENSE.
// The other process of the tests of notifications. Names come in hexadecimal, for they may be
// anything.
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QSocketNotifier>
#include <cstdio>
#include <iostream>
#include <string>
#include <tests/qt/bus_payload.hpp>
#include <vector>
#include <zqswiftui/platform/qt/bus_notifications.hpp>
#include <zqswiftui/platform/qt/main_queue.hpp>

namespace {

void say(const std::string& line) {
  std::cout << line << std::endl;  // the test waits for each line
}

// Hears itself and nobody else: "alone".
int alone(zq::DistributedNotifications& notifications) {
  say("started");
  std::cin.get();
  const auto heard = [](const std::string& payload) {
    say(payload);
    if (payload == "2") QCoreApplication::quit();
  };
  notifications.observe("n", heard);
  notifications.post("n", "1");
  notifications.post("n", "2");
  return QCoreApplication::exec();
}

// Posts payloads of a size, and ends at once: "post SIZE NAME...".
int post(zq::DistributedNotifications& notifications, const QStringList& arguments) {
  for (int i = 1; i < arguments.size(); ++i) {
    const QByteArray name = QByteArray::fromHex(arguments[i].toLatin1());
    notifications.post(name.toStdString(),
                       zq::qt::payloadOf(arguments[0].toULong(), static_cast<unsigned>(i)));
  }
  return 0;
}

// Posts what it hears under another name, until its input ends: "echo HEARD POSTED".
int echo(zq::DistributedNotifications& notifications, const QStringList& names) {
  const std::string to = QByteArray::fromHex(names[1].toLatin1()).toStdString();
  notifications.observe(
      QByteArray::fromHex(names[0].toLatin1()).toStdString(),
      [&notifications, to](const std::string& payload) { notifications.post(to, payload); });
  QSocketNotifier input(0, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, &input, [] { QCoreApplication::quit(); });
  say("ready");
  return QCoreApplication::exec();
}

QVariant file(int descriptor) {
  QDBusUnixFileDescriptor file;
  file.giveFileDescriptor(descriptor);
  return QVariant::fromValue(file);
}

int memory(int size, int seals) {
  const int descriptor = ::memfd_create("hostile", MFD_ALLOW_SEALING | MFD_CLOEXEC);
  if (::ftruncate(descriptor, size) != 0 || ::fcntl(descriptor, F_ADD_SEALS, seals) != 0) return -1;
  return descriptor;
}

std::vector<QVariantList> badArguments(const QString& key, const QByteArray& name) {
  int pipe[2];
  int sockets[2];
  if (::pipe(pipe) != 0 || ::socketpair(AF_UNIX, SOCK_STREAM, 0, sockets) != 0) return {};
  constexpr int kAll = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE | F_SEAL_SEAL;
  constexpr int kTooBig = (32 << 20) + 1;
  const QByteArray bytes("bad");
  const QVariant size = 100000ULL;
  return {
      {},
      {key},
      {key, name},
      {key, QString::fromUtf8(name), bytes},
      {key, name, QStringLiteral("bad")},
      {key, name, QStringList{QStringLiteral("bad")}},
      {key, name, QVariantMap{{QStringLiteral("a"), QVariantMap{}}}},
      {key, name, bytes, bytes},
      {key, name, 5, size},
      {key, QByteArray("other"), bytes},
      {key, name + '.', bytes},
      {key, QByteArray(1 << 20, 'n'), bytes},
      {key, name, QByteArray(kTooBig, 'p')},
      {key, name, file(pipe[0]), size},
      {key, name, file(pipe[1]), size},
      {key, name, file(sockets[0]), size},
      {key, name, file(::open("/", O_RDONLY | O_CLOEXEC)), size},
      {key, name, file(::open("/dev/zero", O_RDONLY | O_CLOEXEC)), size},
      {key, name, file(::open("/proc/self/exe", O_RDONLY | O_CLOEXEC)), size},
      {key, name, file(memory(100000, 0)), size},
      {key, name, file(memory(100000, F_SEAL_SHRINK)), size},
      {key, name, file(memory(100000, F_SEAL_SHRINK | F_SEAL_GROW)), size},
      {key, name, file(memory(99999, kAll)), size},
      {key, name, file(memory(100001, kAll)), size},
      {key, name, file(memory(0, kAll)), ~0ULL},
      {key, name, file(memory(kTooBig, kAll)), QVariant(static_cast<qulonglong>(kTooBig))},
      {key, name, file(memory(100000, kAll)), 100000},
  };
}

// Says what nobody should believe, and at last something true: "hostile NAME", plain letters.
int hostile(const QStringList& arguments) {
  QDBusConnection bus = QDBusConnection::sessionBus();
  const auto send = [&bus](const QVariantList& contents, const QString& path) {
    QDBusMessage message =
        QDBusMessage::createSignal(path, QStringLiteral("org.zq.Notify"), QStringLiteral("Posted"));
    message.setArguments(contents);
    if (!bus.send(message)) std::abort();
  };
  const QString path = QStringLiteral("/org/zq/notify");
  const QByteArray name = QByteArray::fromHex(arguments[0].toLatin1());
  const QString key = QString::fromLatin1(name);
  const auto bad = badArguments(key, name);
  for (const QVariantList& contents : bad) send(contents, path);
  send({key, name, QByteArray("bad")}, QStringLiteral("/elsewhere"));
  send({key, name, QByteArray("good")}, path);
  const QDBusMessage answer = bus.call(QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")));
  return !bad.empty() && answer.type() == QDBusMessage::ReplyMessage ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  QStringList arguments = QCoreApplication::arguments().mid(1);
  if (arguments.isEmpty()) return 2;
  const QString mode = arguments.takeFirst();
  if (mode == QStringLiteral("hostile")) return hostile(arguments);
  zq::qt::MainQueue queue;
  zq::qt::BusNotifications notifications(queue);
  if (mode == QStringLiteral("alone")) return alone(notifications);
  if (mode == QStringLiteral("post")) return post(notifications, arguments);
  if (mode == QStringLiteral("echo")) return echo(notifications, arguments);
  return 2;
}
