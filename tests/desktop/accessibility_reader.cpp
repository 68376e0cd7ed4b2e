// ZQSwiftUI, MIT licence; see LICENSE.
// What a screen reader does, in a process of its own: walks an application's tree over the
// accessibility bus, prints a line for each element, with the middle of its place on the screen,
// and presses the one that is named.
//   accessibility_reader APPLICATION [NAME]
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <iostream>
#include <optional>
#include <vector>

namespace {

struct Element {
  QString service;
  QString path;
};

class Bus {
 public:
  Bus() : connection_(connect()) {}

  std::vector<Element> children(const Element& e) const {
    std::vector<Element> found;
    const QDBusMessage answer = call(e, "org.a11y.atspi.Accessible", "GetChildren", {});
    if (answer.arguments().isEmpty()) return found;
    const auto list = answer.arguments().constFirst().value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
      Element child;
      QDBusObjectPath path;
      list.beginStructure();
      list >> child.service >> path;
      list.endStructure();
      child.path = path.path();
      found.push_back(child);
    }
    list.endArray();
    return found;
  }
  QString name(const Element& e) const { return property(e, QStringLiteral("Name")); }
  QString description(const Element& e) const { return property(e, QStringLiteral("Description")); }
  QString property(const Element& e, const QString& which) const {
    const auto answer = call(e, "org.freedesktop.DBus.Properties", "Get",
                             {QStringLiteral("org.a11y.atspi.Accessible"), which});
    return answer.arguments().isEmpty()
               ? QString()
               : answer.arguments().constFirst().value<QDBusVariant>().variant().toString();
  }
  QString role(const Element& e) const {
    const auto answer = call(e, "org.a11y.atspi.Accessible", "GetRoleName", {});
    return answer.arguments().isEmpty() ? QString() : answer.arguments().constFirst().toString();
  }
  // "@ x y"
  std::string place(const Element& e) const {
    const auto answer = call(e, "org.a11y.atspi.Component", "GetExtents", {0U});
    if (answer.type() == QDBusMessage::ErrorMessage || answer.arguments().isEmpty()) return "";
    const auto extents = answer.arguments().constFirst().value<QDBusArgument>();
    int x = 0, y = 0, width = 0, height = 0;
    extents.beginStructure();
    extents >> x >> y >> width >> height;
    extents.endStructure();
    return "@ " + std::to_string(x + width / 2) + " " + std::to_string(y + height / 2);
  }
  bool press(const Element& e) const {
    const auto answer = call(e, "org.a11y.atspi.Action", "DoAction", {0});
    return !answer.arguments().isEmpty() && answer.arguments().constFirst().toBool();
  }

 private:
  static QDBusConnection connect() {
    const QDBusInterface bus("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus",
                             QDBusConnection::sessionBus());
    const QDBusReply<QString> address =
        const_cast<QDBusInterface&>(bus).call(QStringLiteral("GetAddress"));
    return QDBusConnection::connectToBus(address.value(), QStringLiteral("a11y"));
  }
  QDBusMessage call(const Element& e, const char* interface, const char* method,
                    const QVariantList& arguments) const {
    auto message = QDBusMessage::createMethodCall(e.service, e.path, QString::fromLatin1(interface),
                                                  QString::fromLatin1(method));
    message.setArguments(arguments);
    return connection_.call(message, QDBus::Block, 5000);
  }
  QDBusConnection connection_;
};

// Whether the element to press was found and pressed.
bool walk(const Bus& bus, const Element& e, const QString& press, int depth) {
  const QString name = bus.name(e);
  const QString role = bus.role(e);
  std::cout << std::string(static_cast<std::size_t>(depth) * 2, ' ') << role.toStdString() << " '"
            << name.toStdString() << "' " << bus.description(e).toStdString() << ' ' << bus.place(e)
            << '\n';
  bool pressed = !press.isEmpty() && name == press && role.contains("button") && bus.press(e);
  for (const Element& child : bus.children(e)) {
    pressed = walk(bus, child, press, depth + 1) || pressed;
  }
  return pressed;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  if (argc < 2) return 2;
  const Bus bus;
  const Element registry{"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"};
  for (const Element& application : bus.children(registry)) {
    if (bus.name(application) != QString::fromLocal8Bit(argv[1])) continue;
    const QString press = argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString();
    return walk(bus, application, press, 0) || press.isEmpty() ? 0 : 1;
  }
  return 3;  // it has not come yet
}
