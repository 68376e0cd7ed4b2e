// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QApplication>
#include <QScreen>
#include <QSocketNotifier>
#include <QTimer>
#include <iostream>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/platform.hpp>

// What the windows for the scripts on a virtual display share: they say on standard output what
// their views hear, and on request where these stand.
namespace zq::probe {

inline void say(const std::string& line) {
  std::cout << line << std::endl;  // the script waits for each line
}

inline void sayPlaces(const AccessibilityNode& node) {
  if (!node.name.empty() || node.role == Role::textField || node.role == Role::scrollArea) {
    const std::string name = node.role == Role::textField    ? "field"
                             : node.role == Role::scrollArea ? "scroll"
                                                             : node.name;
    say("at " + name + " " + std::to_string(static_cast<int>(node.bounds.midX())) + " " +
        std::to_string(static_cast<int>(node.bounds.midY())));
  }
  for (const AccessibilityNode& child : node.children) sayPlaces(child);
}

inline void act(const std::string& line, qt::HostWidget& window) {
  if (line == "places") sayPlaces(window.host().accessibilityTree());
  if (line == "size") say("size " + std::to_string(window.width()));
  if (line == "cursor") say("cursor " + std::to_string(window.cursor().shape()));
  if (line.starts_with("grab ")) {
    const QPixmap shown =
        window.screen()->grabWindow(window.winId(), 0, 0, window.width(), window.height());
    say(shown.save(QString::fromStdString(line.substr(5))) ? "grabbed" : "not grabbed");
  }
}

// Commands of one probe alone.
using Further = std::function<void(const std::string& line)>;

// Shows a window until "quit" comes; further commands are "places", "size", "cursor", "grab FILE",
// and those that `fill`, which gives the window its view, answers.
inline int show(int argc, char** argv, const char* title, QSize size, QPoint at,
                const std::function<Further(qt::HostWidget&)>& fill) {
  QApplication app(argc, argv);
  const qt::Platform platform(app);
  qt::HostWidget window{View()};
  const Further further = fill(window);
  window.setWindowTitle(QString::fromLatin1(title));
  window.setGeometry({at, size});
  window.show();
  QSocketNotifier input(0, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, &app, [&] {
    std::string line;
    if (!std::getline(std::cin, line) || line == "quit") return QApplication::quit();
    act(line, window);
    if (further) further(line);
  });
  QTimer::singleShot(0, [] { say("ready"); });
  return QApplication::exec();
}

inline int show(int argc, char** argv, View root, QSize size) {
  return show(argc, argv, "PROBE", size, {}, [&root](qt::HostWidget& window) {
    window.setRoot(std::move(root));
    return Further();
  });
}

}  // namespace zq::probe
