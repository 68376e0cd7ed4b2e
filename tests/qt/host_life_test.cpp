// ZQSwiftUI, MIT licence; see LICENSE.
// Hosts that end, move and change in the middle of something.
#include <gtest/gtest.h>

#include <QDialog>
#include <QImage>
#include <QLineEdit>
#include <functional>
#include <memory>
#include <string>
#include <tests/qt/support.hpp>
#include <zqswiftui/platform/base/task.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq::qt {
namespace {

struct Log {
  int appeared = 0;
  int gone = 0;
  int finished = 0;
  std::function<void()> pressed;
};

Task<void> work(State<int> count, std::shared_ptr<Log> log, bool background) {
  if (background) {
    co_await onBackground();
  } else {
    co_await afterDelay(0.02);
  }
  co_await onMain();
  count.set(*count + 1);
  ++log->finished;
}

// Everything that may still be under way: tasks, an animation, a bubble, a focused field.
struct Busy {
  std::shared_ptr<Log> log;
  View body(Context& context) const {
    auto count = context.state(0);
    auto faded = context.state(false);
    auto open = context.state(false);
    auto name = context.state(std::string("name"));
    const auto told = log;
    const auto start = [=] {
      detach(work(count, told, true));
      detach(work(count, told, false));
      withAnimation(Animation::linear(60), [&] { faded.set(true); });
      open.set(true);
      if (told->pressed) told->pressed();
    };
    return VStack({.spacing = 8},
                  {Button(start, Text("Start " + std::to_string(*count))).frame(100, 20),
                   Rectangle().frame(40, 10).opacity(*faded ? 0.1 : 1),
                   TextField("Name", name.binding()).frame(100, 24),
                   Text("Anchor").popover(open.binding(), Text("Bubble").frame(60, 20))})
        .onAppear([told] { ++told->appeared; })
        .onDisappear([told] { ++told->gone; });
  }
};

std::unique_ptr<HostWidget> busyHost(const std::shared_ptr<Log>& log) {
  auto host = std::make_unique<HostWidget>(View(Busy{log}));
  host->resize(200, 200);
  host->show();
  host->activateWindow();
  settle();
  return host;
}

void pressStart(HostWidget& host) {
  const AccessibilityNode tree = host.host().accessibilityTree();
  std::uint64_t id = 0;
  const std::function<void(const AccessibilityNode&)> find = [&](const AccessibilityNode& node) {
    if (node.name.starts_with("Start")) id = node.id;
    for (const AccessibilityNode& child : node.children) find(child);
  };
  find(tree);
  ASSERT_TRUE(host.host().accessibilityPress(id));
}

TEST(HostLife, aHostMayGoWithAllItsWorkUnderWay) {
  for (const bool framesFirst : {true, false}) {
    const auto log = std::make_shared<Log>();
    auto host = busyHost(log);
    host->findChild<QLineEdit*>()->setFocus(Qt::MouseFocusReason);
    pressStart(*host);
    if (framesFirst) {
      settle();
      EXPECT_TRUE(host->host().animating());
    }
    host.reset();
    EXPECT_EQ(log->gone, 1);
    // The tasks go on without their window, and what they set is nobody's.
    EXPECT_TRUE(waitFor([&] { return log->finished == 2; }));
    settle();
  }
}

TEST(HostLife, aCallbackMayCloseAndDeleteTheWindowThatItRunsIn) {
  const auto log = std::make_shared<Log>();
  HostWidget* host = busyHost(log).release();
  host->setAttribute(Qt::WA_DeleteOnClose);
  bool deleted = false;
  QObject::connect(host, &QObject::destroyed, [&] { deleted = true; });
  log->pressed = [host] { host->close(); };
  pressStart(*host);
  EXPECT_TRUE(waitFor([&] { return deleted; }));
  EXPECT_EQ(log->gone, 1);
  EXPECT_TRUE(waitFor([&] { return log->finished >= 2; }));
}

TEST(HostLife, aCallbackMayRunAModalLoopInWhichTheHostPaintsAndAnimates) {
  const auto log = std::make_shared<Log>();
  auto host = busyHost(log);
  std::uint64_t framesInside = 0;
  log->pressed = [&] {
    QDialog dialog;
    dialog.open();
    const std::uint64_t before = host->host().counts().frames;
    EXPECT_TRUE(waitFor([&] { return log->finished == 2; }));
    settle();
    framesInside = host->host().counts().frames - before;
  };
  pressStart(*host);
  EXPECT_GT(framesInside, 0U);
  EXPECT_NE(host->host().displayListText().find("Start 2"), std::string::npos);
}

TEST(HostLife, aHostShrunkToNothingComesBackAsItWas) {
  const auto log = std::make_shared<Log>();
  auto host = busyHost(log);
  const QImage before = host->grab().toImage();
  for (const QSize size : {QSize(0, 0), QSize(1, 1), QSize(0, 200), QSize(4000, 1)}) {
    host->resize(size);
    settle();
    EXPECT_EQ(host->host().size(), (Size{double(size.width()), double(size.height())}));
  }
  host->resize(200, 200);
  settle();
  EXPECT_EQ(host->grab().toImage(), before);
  EXPECT_EQ(log->appeared, 1);
}

TEST(HostLife, aHostKeepsItsStateWhereverItIsPut) {
  const auto log = std::make_shared<Log>();
  auto host = busyHost(log);
  host->findChild<QLineEdit*>()->setText(QStringLiteral("kept"));
  pressStart(*host);
  ASSERT_TRUE(waitFor([&] { return log->finished == 2; }));
  settle();
  QWidget first, second;
  for (QWidget* parent : {&first, &second}) {
    host->setParent(parent);
    host->setGeometry(10, 10, 200, 200);
    parent->show();
    host->show();
    settle();
    EXPECT_NE(host->host().displayListText().find("Start 2"), std::string::npos);
    EXPECT_EQ(host->findChild<QLineEdit*>()->text(), QStringLiteral("kept"));
  }
  EXPECT_EQ(log->appeared, 1);
  EXPECT_EQ(log->gone, 0);
  host->setParent(nullptr);
}

TEST(HostLife, aHiddenHostRunsNoFramesAndIsUpToDateWhenItIsShownAgain) {
  const auto log = std::make_shared<Log>();
  auto host = busyHost(log);
  pressStart(*host);
  settle();
  ASSERT_TRUE(host->host().animating());
  host->hide();
  EXPECT_FALSE(host->host().animating());
  ASSERT_TRUE(waitFor([&] { return log->finished == 2; }));
  host->show();
  settle();
  EXPECT_TRUE(host->host().animating());
  EXPECT_NE(host->host().displayListText().find("Start 2"), std::string::npos);
}

}  // namespace
}  // namespace zq::qt
