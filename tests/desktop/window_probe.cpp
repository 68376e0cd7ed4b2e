// ZQSwiftUI, MIT licence; see LICENSE.
// A small window for the tests on a virtual display: says on standard output what its views
// hear, and on request where they stand.
#include <QApplication>
#include <QScreen>
#include <QSocketNotifier>
#include <QTimer>
#include <cstdio>
#include <iostream>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/platform.hpp>
#include <zqswiftui/zqswiftui.hpp>

namespace {

using namespace zq;

void say(const std::string& line) {
  std::cout << line << std::endl;  // the script waits for each line
}

std::function<void()> saying(const std::string& line) {
  return [line] { say(line); };
}

struct Probe {
  View body(Context& context) const {
    const auto tokens = context.state(std::vector<std::string>{"a", "b"});
    std::vector<std::string> tags;
    for (int i = 0; i < 400; ++i) tags.push_back("tag" + std::to_string(i));
    const Binding<std::vector<std::string>> heard([tokens] { return *tokens; },
                                                  [tokens](const std::vector<std::string>& now) {
                                                    tokens.set(now);
                                                    std::string line = "tokens";
                                                    for (const std::string& t : now)
                                                      line += " [" + t + "]";
                                                    say(line);
                                                  });
    const auto hover = [](bool inside) { say(inside ? "hover in" : "hover out"); };
    return VStack({.alignment = HorizontalAlignment::leading, .spacing = 8},
                  {ZQButton("Save", {.size = ZQButton::Size::mini,
                                     .backgroundColor = Color::blue(),
                                     .action = saying("pressed Save")})
                       .onHover(hover),
                   ZQSettingsButton("Settings", {.action = saying("pressed Settings")}),
                   ZQOkButton({.size = ZQButton::Size::normal, .action = saying("pressed OK")}),
                   ZQTokensView(heard),
                   ScrollView(ZQTagsView(std::move(tags), Color::teal()))
                       .flexFrame({.maxWidth = kInfinity, .maxHeight = kInfinity})})
        .padding(16);
  }
};

void sayPlaces(const AccessibilityNode& node) {
  if (!node.name.empty() || node.role == Role::textField || node.role == Role::scrollArea) {
    const std::string name = node.role == Role::textField    ? "field"
                             : node.role == Role::scrollArea ? "scroll"
                                                             : node.name;
    say("at " + name + " " + std::to_string(static_cast<int>(node.bounds.midX())) + " " +
        std::to_string(static_cast<int>(node.bounds.midY())));
  }
  for (const AccessibilityNode& child : node.children) sayPlaces(child);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("window_probe");
  zq::qt::Platform platform(app);
  zq::qt::HostWidget window{View(Probe{})};
  window.setWindowTitle("PROBE");
  window.resize(420, 360);
  window.show();
  // Commands come on standard input: "places", "grab FILE", "size", "quit".
  QSocketNotifier input(0, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, &app, [&] {
    std::string line;
    if (!std::getline(std::cin, line) || line == "quit") return QApplication::quit();
    if (line == "places") sayPlaces(window.host().accessibilityTree());
    if (line == "size") say("size " + std::to_string(window.width()));
    if (line.starts_with("grab ")) {
      const QPixmap shown =
          window.screen()->grabWindow(window.winId(), 0, 0, window.width(), window.height());
      say(shown.save(QString::fromStdString(line.substr(5))) ? "grabbed" : "not grabbed");
    }
  });
  QTimer::singleShot(0, [] { say("ready"); });
  return QApplication::exec();
}
