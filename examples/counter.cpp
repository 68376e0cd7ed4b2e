// ZQSwiftUI, MIT licence; see LICENSE.
// State: a value that stays with the view's place, and a part that writes it through a binding.
#include <QApplication>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/platform.hpp>
#include <zqswiftui/zqswiftui.hpp>

using namespace zq;

// Owns nothing: it shows and changes a number that lives elsewhere.
struct Counted {
  Binding<int> value;

  View body(Context&) const {
    constexpr auto circle = ZQPlusMinusButtonStyle::circle;
    const auto add = [v = value](int by) { return [v, by] { v.set(v.get() + by); }; };
    return HStack({.spacing = 12}, {ZQMinusButton({.style = circle, .action = add(-1)}),
                                    Text(std::to_string(value.get())).font(Font::title()),
                                    ZQPlusButton({.style = circle, .action = add(1)})});
  }
};

struct Counter {
  View body(Context& context) const {
    auto count = context.state(0);
    auto favorite = context.state(false);
    return VStack({.spacing = 16},
                  {Counted{count.binding()}, ZQFavoriteButton({.isFavorite = favorite.binding()}),
                   ProgressView(*count / 10.0).frame({.width = 160})})
        .padding(24);
  }
};

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  const qt::Platform platform(app);
  qt::HostWidget window(Counter{});
  window.setWindowTitle("Counter");
  window.resize(280, 180);
  window.show();
  return QApplication::exec();
}
