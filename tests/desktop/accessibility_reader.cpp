// ZQSwiftUI, MIT licence; see LICENSE.
// What a screen reader does, in a process of its own, over the accessibility bus: it prints the
// tree of an application, a line for each element with the middle of its place on the screen; acts
// on the first that has this role and name and is not disabled; or prints what can be worked with
// and has no name. Dialogs of the toolkit below are not ours to name.
//   accessibility_reader APPLICATION
//   accessibility_reader APPLICATION press|focus ROLE NAME
//   accessibility_reader APPLICATION fill ROLE NAME TEXT
//   accessibility_reader APPLICATION nameless
// Ends with 1 where there is no such element or it cannot do that, or something is without a name;
// with 3 where the application has not come yet.
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <algorithm>
#include <functional>
#include <iostream>
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
  // The number that a state has on the bus.
  enum State : unsigned { kEditable = 7, kFocusable = 11, kSensitive = 24 };
  bool is(const Element& e, State state) const {
    const auto answer = call(e, "org.a11y.atspi.Accessible", "GetState", {});
    if (answer.arguments().isEmpty()) return false;
    const auto words = qdbus_cast<QList<uint>>(answer.arguments().constFirst());
    return !words.isEmpty() && ((words.constFirst() >> state) & 1U) != 0;
  }
  QStringList actions(const Element& e) const {
    QStringList names;
    for (;;) {
      const auto answer = call(e, "org.a11y.atspi.Action", "GetName", {int(names.size())});
      const bool none = answer.type() == QDBusMessage::ErrorMessage || answer.arguments().isEmpty();
      const QString name = none ? QString() : answer.arguments().constFirst().toString();
      if (name.isEmpty()) return names;
      names.push_back(name);
    }
  }
  bool act(const Element& e, const QStringList& any) const {
    const QStringList all = actions(e);
    for (int i = 0; i < all.size(); ++i) {
      if (any.contains(all[i])) return isTrue(call(e, "org.a11y.atspi.Action", "DoAction", {i}));
    }
    return false;
  }
  bool fill(const Element& e, const QString& text) const {
    return isTrue(call(e, "org.a11y.atspi.EditableText", "SetTextContents", {text}));
  }

 private:
  static QDBusConnection connect() {
    const QDBusInterface bus("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus",
                             QDBusConnection::sessionBus());
    const QDBusReply<QString> address =
        const_cast<QDBusInterface&>(bus).call(QStringLiteral("GetAddress"));
    return QDBusConnection::connectToBus(address.value(), QStringLiteral("a11y"));
  }
  static bool isTrue(const QDBusMessage& answer) {
    return answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty() &&
           answer.arguments().constFirst().toBool();
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

void print(const Bus& bus, const Element& e, int depth) {
  std::cout << std::string(static_cast<std::size_t>(depth) * 2, ' ') << bus.role(e).toStdString()
            << " '" << bus.name(e).toStdString() << "' " << bus.description(e).toStdString() << ' '
            << bus.place(e) << '\n';
  for (const Element& child : bus.children(e)) print(bus, child, depth + 1);
}

using Deed = std::function<bool(const Element& e)>;

// Whether one was found that did it.
bool doFirst(const Bus& bus, const Element& e, const QString& role, const QString& name,
             const Deed& deed) {
  if (bus.role(e) == role && bus.name(e) == name && bus.is(e, Bus::kSensitive) && deed(e)) {
    return true;
  }
  const auto children = bus.children(e);
  return std::any_of(children.begin(), children.end(),
                     [&](const Element& child) { return doFirst(bus, child, role, name, deed); });
}

// Whether everything has one.
bool hasNames(const Bus& bus, const Element& e) {
  const QString role = bus.role(e);
  if (role == QStringLiteral("dialog")) return true;
  bool all = true;
  if (bus.name(e).isEmpty()) {
    all = bus.actions(e).isEmpty() && !bus.is(e, Bus::kFocusable) && !bus.is(e, Bus::kEditable);
    if (!all) std::cout << role.toStdString() << ' ' << bus.place(e) << '\n';
  }
  for (const Element& child : bus.children(e)) all = hasNames(bus, child) && all;
  return all;
}

bool run(const Bus& bus, const Element& application, const QStringList& words) {
  const QString order = words.value(2);
  if (order == QStringLiteral("nameless")) return hasNames(bus, application);
  const auto first = [&](const Deed& deed) {
    return doFirst(bus, application, words.value(3), words.value(4), deed);
  };
  const auto action = [&](const QStringList& any) {
    return first([&](const Element& e) { return bus.act(e, any); });
  };
  if (order == QStringLiteral("press")) return action({"Press", "Toggle"});
  if (order == QStringLiteral("focus")) return action({"SetFocus"});
  if (order == QStringLiteral("fill")) {
    return first([&](const Element& e) { return bus.fill(e, words.value(5)); });
  }
  print(bus, application, 0);
  return order.isEmpty();
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  const QStringList words = QCoreApplication::arguments();
  if (words.size() < 2) return 2;
  const Bus bus;
  const Element registry{"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"};
  for (const Element& application : bus.children(registry)) {
    if (bus.name(application) == words[1]) return run(bus, application, words) ? 0 : 1;
  }
  return 3;
}
