// ZQSwiftUI, MIT licence; see LICENSE.
// What the desktop changes under a window that is open, and what lies above what.
#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QImage>
#include <QLineEdit>
#include <QProxyStyle>
#include <QToolTip>
#include <QWheelEvent>
#include <functional>
#include <memory>
#include <string>
#include <tests/qt/support.hpp>
#include <vector>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/platform.hpp>
#include <zqswiftui/platform/qt/snapshot.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq::qt {
namespace {

std::unique_ptr<HostWidget> shown(View view, QSize size) {
  auto host = std::make_unique<HostWidget>(std::move(view));
  host->resize(size);
  host->show();
  host->activateWindow();
  settle();
  return host;
}

AccessibilityNode named(const AccessibilityNode& node, const std::string& name) {
  if (node.name == name) return node;
  for (const AccessibilityNode& child : node.children) {
    AccessibilityNode found = named(child, name);
    if (found.id != 0) return found;
  }
  return {};
}

AccessibilityNode named(HostWidget& host, const std::string& name) {
  return named(host.host().accessibilityTree(), name);
}

// An anchor above a field, so that the bubble covers a part of the field's text.
struct Covered {
  std::string text;
  bool open = true;
  std::shared_ptr<int> pressed;
  View body(Context&) const {
    const auto told = pressed;
    const View bubble = Button([told] { ++*told; }, Text("In the bubble")).frame(90, 30);
    return VStack({.spacing = 2},
                  {Text("Anchor").popover(Binding<bool>::constant(open), bubble),
                   TextField("", Binding<std::string>::constant(text)).frame(280, 30)})
        .frame({.width = 300, .height = 120, .alignment = Alignment::top()});
  }
};

TEST(HostBubbles, aBubbleIsSeenAndPressedAboveTheFieldThatItCovers) {
  const auto pressed = std::make_shared<int>(0);
  const std::string letters(60, 'M');
  auto host = shown(Covered{letters, true, pressed}, {300, 120});
  const Rect button = named(*host, "In the bubble").bounds;
  auto* edit = host->findChild<QLineEdit*>();
  ASSERT_TRUE(edit->geometry().intersects(toQRectF(button).toRect()));
  const QRect inside = toQRectF(button).toRect();
  const QImage full = host->grab().toImage();
  EXPECT_EQ(full.copy(inside),
            shown(Covered{"", true, pressed}, {300, 120})->grab().toImage().copy(inside));
  EXPECT_NE(full, shown(Covered{"", true, pressed}, {300, 120})->grab().toImage());
  EXPECT_EQ(renderView(Covered{letters, true, pressed}, {300, 120}).copy(inside),
            renderView(Covered{"", true, pressed}, {300, 120}).copy(inside));
  const QPoint middle = inside.center();
  EXPECT_EQ(host->childAt(middle), nullptr);
  click(*host, middle);
  EXPECT_EQ(*pressed, 1);

  host->setRoot(Covered{letters, false, pressed});
  settle();
  EXPECT_EQ(host->childAt(middle), edit);
  EXPECT_EQ(host->grab().toImage(),
            shown(Covered{letters, false, pressed}, {300, 120})->grab().toImage());
}

TEST(HostBubbles, aFieldInsideABubbleIsItselfUncovered) {
  struct Inner {
    View body(Context& context) const {
      auto text = context.state(std::string());
      return Text("Anchor").popover(Binding<bool>::constant(true),
                                    TextField("Inner", text.binding()).frame(120, 24));
    }
  };
  auto host = shown(Inner{}, {200, 120});
  auto* edit = host->findChild<QLineEdit*>();
  ASSERT_NE(edit, nullptr);
  EXPECT_TRUE(edit->mask().isEmpty());
  edit->setFocus(Qt::MouseFocusReason);
  type(QStringLiteral("abc"));
  EXPECT_EQ(host->host().textFields().front().text, "abc");
}

// Puts the application's font back.
struct FontRestored {
  QFont font = QApplication::font();
  ~FontRestored() {
    QApplication::setFont(font);
    settle();
  }
};

TEST(HostFonts, anotherFontOfTheApplicationIsMeasuredAndDrawnEverywhere) {
  const FontRestored restored;
  struct Words {
    View body(Context&) const {
      return VStack({.spacing = 4},
                    {HStack({.spacing = 2}, {Text("iiiiiiii"), Text("WWWW")}),
                     Text("several words that wrap into lines").frame({.width = 90}),
                     Text("fixed").frame(60, 20), Image::symbol("star.fill"),
                     TextField("iiii", Binding<std::string>::constant("iiii"))});
    }
  };
  auto host = shown(Words{}, {300, 200});
  const std::string before = host->host().displayListText();
  const QSize hint = host->sizeHint();
  const QImage picture = host->grab().toImage();
  QApplication::setFont(QFont(QStringLiteral("DejaVu Sans Mono")));
  settle();
  EXPECT_NE(host->host().displayListText(), before);
  auto fresh = shown(Words{}, {300, 200});
  EXPECT_EQ(host->host().displayListText(), fresh->host().displayListText());
  EXPECT_EQ(host->sizeHint(), fresh->sizeHint());
  EXPECT_EQ(host->findChild<QLineEdit*>()->font().family(), QStringLiteral("DejaVu Sans Mono"));
  fresh.reset();
  EXPECT_EQ(host->grab().toImage(), shown(Words{}, {300, 200})->grab().toImage());
  QApplication::setFont(restored.font);
  settle();
  EXPECT_EQ(host->host().displayListText(), before);
  EXPECT_EQ(host->sizeHint(), hint);
  EXPECT_EQ(host->grab().toImage(), picture);
}

TEST(HostAppearance, schemeAndDirectionChangeLiveAndBack) {
  Appearance& appearance = static_cast<Platform&>(zq::Platform::current()).appearance();
  const View view =
      HStack({.spacing = 4}, {Text("one"), TextField("two", Binding<std::string>::constant("2")),
                              Capsule().fill(Color::accent()).frame(20, 20)})
          .padding(6);
  auto host = shown(view, {220, 60});
  const QImage plain = host->grab().toImage();
  const auto check = [&](bool dark, bool mirrored) {
    AccessibilityNode text = named(*host, "one");
    EXPECT_EQ(text.bounds.x > 110, mirrored);
    EXPECT_EQ(qGray(host->grab().toImage().pixel(1, 1)) < 128, dark);
    EXPECT_EQ(host->grab().toImage(), shown(view, {220, 60})->grab().toImage());
  };
  appearance.setColorScheme(ColorScheme::dark);
  settle();
  check(true, false);
  QGuiApplication::setLayoutDirection(Qt::RightToLeft);
  settle();
  check(true, true);
  EXPECT_EQ(host->findChild<QLineEdit*>()->layoutDirection(), Qt::RightToLeft);
  appearance.setColorScheme(std::nullopt);
  settle();
  check(false, true);
  QGuiApplication::setLayoutDirection(Qt::LeftToRight);
  settle();
  check(false, false);
  EXPECT_EQ(host->grab().toImage(), plain);

  const QPalette light = QApplication::palette();
  QPalette night = light;
  night.setColor(QPalette::Window, Qt::black);
  night.setColor(QPalette::WindowText, Qt::white);
  QApplication::setPalette(night);
  settle();
  check(true, false);
  QApplication::setPalette(light);
  settle();
  check(false, false);
}

// Asks for no animations, as a desktop does that was told to keep still.
class StillStyle : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    return hint == SH_Widget_Animation_Duration
               ? 0
               : QProxyStyle::styleHint(hint, option, widget, data);
  }
};

TEST(HostAppearance, aStyleThatKeepsStillIsHeardWhenItComes) {
  Appearance& appearance = static_cast<Platform&>(zq::Platform::current()).appearance();
  auto host = shown(Text("any"), {50, 50});
  ASSERT_FALSE(appearance.values().reducedMotion);
  const QString before = QApplication::style()->name();
  QApplication::setStyle(new StillStyle(before));  // the application takes it: NOLINT
  EXPECT_TRUE(appearance.values().reducedMotion);  // NOLINT: nothing leaks
  QApplication::setStyle(before);
  EXPECT_FALSE(appearance.values().reducedMotion);
}

// Buttons with help texts beside one that has none.
View helped() {
  return HStack({.spacing = 0}, {Text("a").frame(50, 40).help("Opens <b>files</b> & more"),
                                 Text("b").frame(50, 40), Text("c").frame(50, 40).help("Saves")});
}

void ask(QWidget& host, QPoint position) {
  sendMouse(host, QEvent::MouseMove, position);
  settle();
  QHelpEvent event(QEvent::ToolTip, position, host.mapToGlobal(position));
  QCoreApplication::sendEvent(&host, &event);
}

TEST(HostHelp, theTextOfWhatIsUnderThePointerAppearsAndNoneElsewhere) {
  auto host = shown(helped(), {150, 40});
  ask(*host, {20, 20});
  EXPECT_TRUE(QToolTip::isVisible());
  EXPECT_EQ(QToolTip::text(), QStringLiteral("Opens &lt;b&gt;files&lt;/b&gt; &amp; more"));
  ask(*host, {120, 20});
  EXPECT_EQ(QToolTip::text(), QStringLiteral("Saves"));
  ask(*host, {75, 20});
  EXPECT_TRUE(waitFor([] { return !QToolTip::isVisible(); }));
  ask(*host, {20, 20});
  ASSERT_TRUE(QToolTip::isVisible());
  host->setRoot(Text("nothing"));
  settle();
  EXPECT_TRUE(waitFor([] { return !QToolTip::isVisible(); }));
}

TEST(HostHelp, aFieldShowsItsOwnThroughItsEditor) {
  auto host = shown(
      View(TextField("Name", Binding<std::string>::constant("x"))).help("Your name").frame(150, 30),
      {150, 30});
  auto* edit = host->findChild<QLineEdit*>();
  ask(*edit, edit->rect().center());
  EXPECT_EQ(QToolTip::text(), QStringLiteral("Your name"));
  QToolTip::hideText();
}

TEST(HostHover, thePictureFollowsThePointerInAndOut) {
  struct Hovering {
    View body(Context& context) const {
      auto inside = context.state(false);
      return Rectangle()
          .fill(*inside ? Color::red() : Color::blue())
          .onHover([inside](bool now) { inside.set(now); })
          .frame(40, 40);
    }
  };
  auto host = shown(Hovering{}, {100, 40});
  const QImage out = host->grab().toImage();
  const QPointF middle(50, 20), beside(5, 20);
  sendMouse(*host, QEvent::MouseMove, middle);
  settle();
  const QImage in = host->grab().toImage();
  EXPECT_NE(in, out);
  sendMouse(*host, QEvent::MouseMove, beside);
  settle();
  EXPECT_EQ(host->grab().toImage(), out);
  const std::function<void()> endings[] = {[&] {
                                             QEvent leave(QEvent::Leave);
                                             QCoreApplication::sendEvent(host.get(), &leave);
                                           },
                                           [&] {
                                             host->hide();
                                             host->show();
                                           }};
  for (const auto& end : endings) {
    sendMouse(*host, QEvent::MouseMove, middle);
    settle();
    ASSERT_EQ(host->grab().toImage(), in);
    end();
    settle();
    EXPECT_EQ(host->grab().toImage(), out);
  }
}

TEST(HostWheel, notchesAndPixelsScrollAndTheEndsLetTheParentHaveIt) {
  const View list = ScrollView(Rectangle().frame(80, 1000).overlay(Text("top"), Alignment::top()));
  auto host = shown(list, {100, 100});
  const double start = named(*host, "top").bounds.y;
  const auto wheel = [&](QPoint pixels, QPoint angle) {
    QWheelEvent event({50, 50}, host->mapToGlobal(QPointF(50, 50)), pixels, angle, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(host.get(), &event);
    settle();
    return event.isAccepted();
  };
  EXPECT_FALSE(wheel({}, {0, 120})) << "already at the top";
  EXPECT_TRUE(wheel({}, {0, -120}));
  EXPECT_EQ(named(*host, "top").bounds.y, start - 48);
  EXPECT_TRUE(wheel({0, -7}, {0, -120})) << "the pixels are the finer word";
  EXPECT_EQ(named(*host, "top").bounds.y, start - 55);
  EXPECT_TRUE(wheel({0, 30000}, {}));
  EXPECT_EQ(named(*host, "top").bounds.y, start);
  EXPECT_FALSE(wheel({30, 0}, {})) << "across the list";
}

}  // namespace
}  // namespace zq::qt
