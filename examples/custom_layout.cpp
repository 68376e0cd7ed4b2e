// ZQSwiftUI, MIT licence; see LICENSE.
// A layout of one's own: children around a circle, at their ideal sizes.
#include <QApplication>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/platform.hpp>
#include <zqswiftui/zqswiftui.hpp>

using namespace zq;

class Ring final : public Layout {
 public:
  explicit Ring(double radius) : radius_(radius) {}

  Size sizeThatFits(const ProposedSize&, const Subviews& subviews) const override {
    double side = 0;
    for (const Size& size : subviews.idealSizes()) side = std::max({side, size.width, size.height});
    return {2 * radius_ + side, 2 * radius_ + side};
  }

  void placeSubviews(const Rect& bounds, const ProposedSize&,
                     const Subviews& subviews) const override {
    const double step = 2 * std::numbers::pi / static_cast<double>(subviews.size());
    for (std::size_t i = 0; i < subviews.size(); ++i) {
      const double angle = step * static_cast<double>(i) - std::numbers::pi / 2;
      subviews[i].place(
          {bounds.midX() + radius_ * std::cos(angle), bounds.midY() + radius_ * std::sin(angle)},
          UnitPoint::center(), ProposedSize::unspecified());
    }
  }

 private:
  double radius_;
};

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  const qt::Platform platform(app);
  std::vector<View> hours;
  for (int hour = 0; hour < 12; ++hour) {
    hours.push_back(ZQCapsuledText(
        {.text = std::to_string(hour == 0 ? 12 : hour), .backgroundColor = Color::indigo()}));
  }
  qt::HostWidget window(LayoutView(Ring(100), hours).padding(24));
  window.setWindowTitle("Custom layout");
  window.resize(320, 320);
  window.show();
  return QApplication::exec();
}
