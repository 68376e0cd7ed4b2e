// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <QImage>
#include <QKeyEvent>
#include <QLineEdit>
#include <tests/qt/support.hpp>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq::qt {
namespace {

void pressF12(QWidget& widget) {
  QKeyEvent press(QEvent::KeyPress, Qt::Key_F12, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &press);
  settle();
}

TEST(InspectorOverlay, liesOverTheViewsFromOneF12ToTheNextAndLeavesThemAlone) {
#ifdef NDEBUG
  GTEST_SKIP() << "no inspector in a release build";
#endif
  std::string typed;
  const Binding<std::string> text([&] { return typed; }, [&](const std::string& t) { typed = t; });
  HostWidget host(VStack({Button([] {}, Text("Press").frame(200, 40)), TextField("Name", text)}));
  host.resize(500, 400);
  host.show();
  settle();
  const QImage plain = host.grab().toImage();
  const std::string list = host.host().displayListText();
  const std::uint64_t frames = host.host().counts().frames;

  pressF12(*host.findChild<QLineEdit*>());  // which leaves it over
  EXPECT_NE(host.grab().toImage(), plain);
  EXPECT_EQ(host.host().displayListText(), list);
  EXPECT_EQ(host.host().counts().frames, frames);

  // The pointer goes through it.
  const Rect button = host.host().accessibilityTree().children.front().bounds;
  EXPECT_EQ(host.childAt(toQRectF(button).center().toPoint()), nullptr);
  host.resize(501, 401);
  settle();
  const std::uint64_t asked = host.host().counts().frames;
  settle();
  host.grab();
  settle();
  EXPECT_EQ(host.host().counts().frames, asked);

  pressF12(host);
  host.resize(500, 400);
  settle();
  EXPECT_EQ(host.grab().toImage(), plain);
}

}  // namespace
}  // namespace zq::qt
