// ZQSwiftUI, MIT licence; see LICENSE.
// A component is a plain value; what changes lives with its place in the window.
#include <QApplication>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/platform.hpp>
#include <zqswiftui/zqswiftui.hpp>

struct Canvas {
  std::vector<std::string> tags;

  zq::View body(zq::Context& context) const {
    auto faded = context.state(false);
    const auto fade = [faded] {
      zq::withAnimation(zq::Animation::standard(), [&] { faded.set(!*faded); });
    };
    return zq::VStack({.spacing = 16},
                      {zq::ZQTagsView(tags, zq::Color::teal()).opacity(*faded ? 0.3 : 1.0),
                       zq::ZQButton(*faded ? "Show" : "Fade", {.size = zq::ZQButton::Size::mini,
                                                               .backgroundColor = zq::Color::blue(),
                                                               .action = fade})})
        .padding(24);
  }
};

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  const zq::qt::Platform platform(app);
  zq::qt::HostWidget window(Canvas{{"alpha", "beta", "gamma", "delta"}});
  window.setWindowTitle("First window");
  window.resize(360, 160);
  window.show();
  return QApplication::exec();
}
