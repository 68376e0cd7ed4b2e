// ZQSwiftUI, MIT licence; see LICENSE.
// A window that follows the pasteboard's picture, for the tests on a virtual display. It says
// what it shows and since when, and how long its interface thread was ever kept from its work.
#include <QApplication>
#include <QImage>
#include <QSocketNotifier>
#include <chrono>
#include <iostream>
#include <sstream>
#include <tests/desktop/heart.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/zq_pasteboard.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/platform.hpp>
#include <zqswiftui/zqswiftui.hpp>

namespace {

using namespace zq;
using probe::Heart;

void say(const std::string& line) {
  std::cout << line << std::endl;  // the script waits for each line
}

// The same for all processes of the machine.
std::string milliseconds() {
  using namespace std::chrono;
  return std::to_string(
      duration_cast<std::chrono::milliseconds>(system_clock::now().time_since_epoch()).count());
}

void press(qt::HostWidget& window) {
  for (const AccessibilityNode& node : window.host().accessibilityTree().children) {
    window.host().accessibilityPress(node.id);
  }
}

std::string sizeText(const std::optional<ZQImage>& image) {
  if (!image) return "nothing";
  return std::to_string(image->width()) + "x" + std::to_string(image->height());
}

void act(const std::string& line, qt::HostWidget& window, Heart& heart) {
  std::istringstream words(line);
  std::string verb, path;
  int width = 0, height = 0;
  words >> verb;
  if (verb == "hide") window.hide();
  if (verb == "show") window.show();
  if (verb == "press") press(window);
  if (verb == "copy" && words >> path) {
    const Result<Bytes> file = readFile(path);
    say("copied at " + milliseconds());
    if (file.ok()) Platform::current().pasteboard().setImage(file.value());
  }
  if (verb == "text") {
    ZQPasteboard::getString([](const auto& text) { say("text " + text.value_or("none")); });
  }
  if (verb == "longest") say("longest " + std::to_string(heart.takeLongest()));
  if (verb == "picture" && words >> path >> width >> height) {
    QImage image(width, height, QImage::Format_RGBA8888);
    // Noise, which no format makes small.
    quint32 seed = 1;
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        seed = seed * 1664525U + 1013904223U;
        image.setPixelColor(x, y, QColor::fromRgb(seed >> 8));
      }
    }
    say(image.save(QString::fromStdString(path)) ? "written" : "not written");
  }
  say("done " + verb);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  const qt::Platform platform(app);
  bool asking = false;
  std::string shown;
  // Asked at each beat, it says a picture when it is a new one.
  const auto tapped = [&](const ZQImage& image) {
    const std::string size = sizeText(image);
    if (asking && size == shown) return;
    if (size != shown) say("shows " + size + " at " + milliseconds());
    shown = size;
    if (!asking) say("holds " + size);
  };
  qt::HostWidget window(ZQPasteboardImage({.maxSize = Size{64, 64}, .tappedCallback = tapped}));
  window.resize(100, 100);
  window.show();
  Heart heart([&] {
    asking = true;
    press(window);
    asking = false;
  });
  QSocketNotifier input(0, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, &app, [&] {
    std::string line;
    if (!std::getline(std::cin, line)) return app.quit();
    act(line, window, heart);
  });
  say("ready");
  return QApplication::exec();
}
