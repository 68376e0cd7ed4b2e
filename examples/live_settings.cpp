// ZQSwiftUI, MIT licence; see LICENSE.
// A drawing that is governed by settings. While it runs, change one in another terminal:
//   zqc set live_settings.zquic Dots diameter 40 --broadcast
// or edit the file by hand, and the window shows it at once.
#include <QApplication>
#include <cmath>
#include <example_settings.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/platform.hpp>
#include <zqswiftui/zqswiftui.hpp>

using namespace zq;

struct Drawing {
  std::shared_ptr<ZQConfig> config;

  View body(Context& context) const {
    const ExampleSettings settings(context.observe(config));
    const Color paper =
        Color::rgb(settings.Paper_red(), settings.Paper_green(), settings.Paper_blue());
    const auto [x, y] = settings.Title_place();
    View drawing = dots(settings).flexFrame({.maxWidth = kInfinity, .maxHeight = kInfinity});
    if (settings.Title_visible()) {
      drawing = std::move(drawing).overlay(Text(std::string(settings.Title_text()))
                                               .font(Font::system(settings.Title_size()))
                                               .offset(x, y));
    }
    return std::move(drawing).background(Rectangle().fill(paper));
  }
  bool operator==(const Drawing&) const = default;

 private:
  static View dots(const ExampleSettings& settings) {
    std::vector<View> rows;
    for (std::int64_t row = 0; row < settings.Dots_rows(); ++row) {
      std::vector<View> dots;
      for (std::int64_t column = 0; column < settings.Dots_columns(); ++column) {
        const double wave = std::sin(settings.Wave_length() * static_cast<double>(row + column));
        const double size = settings.Dots_diameter() * (1 + settings.Wave_height() * wave) / 2;
        dots.push_back(Circle()
                           .fill(Color::accent().opacity(settings.Dots_opacity()))
                           .frame(size, size)
                           .frame(settings.Dots_diameter(), settings.Dots_diameter()));
      }
      rows.push_back(HStack({.spacing = settings.Dots_gap()}, std::move(dots)));
    }
    return VStack({.spacing = settings.Dots_gap()}, std::move(rows));
  }
};

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QCoreApplication::setOrganizationDomain("zqswiftui.example");
  QCoreApplication::setApplicationName("live_settings");
  const qt::Platform platform(app);
  qt::HostWidget window(Drawing{std::make_shared<ZQConfig>("live_settings")});
  window.setWindowTitle("Live settings");
  window.resize(420, 420);
  window.show();
  return QApplication::exec();
}
