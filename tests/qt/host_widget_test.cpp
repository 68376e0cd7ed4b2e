// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QImage>
#include <QLineEdit>
#include <QMimeData>
#include <QPaintEvent>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <memory>
#include <string>
#include <tests/qt/support.hpp>
#include <vector>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/snapshot.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq::qt {
namespace {

// What the views below did, told by their callbacks.
struct Seen {
  int pressed = 0;
  bool hovered = false;
  std::string submitted;
  std::size_t dropped = 0;
};

// A counter, a field under a text that shows it, and a second button.
struct Form {
  std::shared_ptr<Seen> seen;
  View body(Context& context) const {
    auto count = context.state(0);
    auto name = context.state(std::string());
    const std::shared_ptr<Seen> told = seen;
    return VStack({.alignment = HorizontalAlignment::leading, .spacing = 10},
                  {Button(
                       [count, told] {
                         ++told->pressed;
                         count.set(*count + 1);
                       },
                       Text("Count " + std::to_string(*count)))
                       .frame(100, 20)
                       .onHover([told](bool inside) { told->hovered = inside; }),
                   Text("Hello " + *name).frame(200, 20),
                   TextField("Name", name.binding())
                       .onSubmit([told, name] { told->submitted = *name; })
                       .frame(150, 24),
                   Button([told] { told->pressed += 100; }, Text("Other")).frame(100, 20)});
  }
};

class HostWidgetTest : public testing::Test {
 protected:
  HostWidgetTest() : host_(std::make_unique<HostWidget>(View(Form{seen_}))) {
    host_->resize(220, 140);
    host_->show();
    host_->activateWindow();
    settle();
  }
  QLineEdit* field() { return host_->findChild<QLineEdit*>(); }

  std::shared_ptr<Seen> seen_ = std::make_shared<Seen>();
  std::unique_ptr<HostWidget> host_;
};

constexpr QPointF kCounter(50, 20);

TEST_F(HostWidgetTest, aClickPressesAndHoverFollowsThePointer) {
  sendMouse(*host_, QEvent::MouseMove, kCounter);
  EXPECT_TRUE(seen_->hovered);
  click(*host_, kCounter);
  EXPECT_EQ(seen_->pressed, 1);
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(host_.get(), &leave);
  settle();
  EXPECT_FALSE(seen_->hovered);
}

TEST_F(HostWidgetTest, aPressOnNothingIsLeftToTheParent) {
  QMouseEvent down(QEvent::MouseButtonPress, {210, 5}, host_->mapToGlobal(QPointF(210, 5)),
                   Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(host_.get(), &down);
  EXPECT_FALSE(down.isAccepted());
}

TEST_F(HostWidgetTest, tabWalksThroughButtonsAndFieldsAndBeginsAgain) {
  EXPECT_EQ(QApplication::focusWidget(), host_.get());
  press(Qt::Key_Tab);
  press(Qt::Key_Space, QStringLiteral(" "));
  EXPECT_EQ(seen_->pressed, 1);
  press(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), field());
  press(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), host_.get());
  press(Qt::Key_Return);
  EXPECT_EQ(seen_->pressed, 101);
  press(Qt::Key_Backtab, {}, Qt::ShiftModifier);
  EXPECT_EQ(QApplication::focusWidget(), field());
  press(Qt::Key_Tab);
  press(Qt::Key_Tab);
  press(Qt::Key_Space, QStringLiteral(" "));
  EXPECT_EQ(seen_->pressed, 102);
}

TEST_F(HostWidgetTest, typingKeepsFocusAndCursorWhileEachKeyRebuildsTheView) {
  QLineEdit* edit = field();
  ASSERT_NE(edit, nullptr);
  edit->setFocus(Qt::MouseFocusReason);
  settle();
  type(QStringLiteral("ac"));
  edit->setCursorPosition(1);
  type(QStringLiteral("b"));
  EXPECT_EQ(field(), edit);
  EXPECT_TRUE(edit->hasFocus());
  EXPECT_EQ(edit->text(), QStringLiteral("abc"));
  EXPECT_EQ(edit->cursorPosition(), 2);
  EXPECT_NE(host_->host().displayListText().find("Hello abc"), std::string::npos);
  press(Qt::Key_Return, QStringLiteral("\r"));
  EXPECT_EQ(seen_->submitted, "abc");
  click(*host_, kCounter);
  EXPECT_FALSE(edit->hasFocus());
  EXPECT_EQ(edit->text(), QStringLiteral("abc"));
}

// Remembers which parts were painted.
class PaintWatcher : public QObject {
 public:
  QRegion painted;
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
};

TEST_F(HostWidgetTest, onlyWhatChangedIsPaintedAndNothingWhenIdle) {
  PaintWatcher watcher;
  host_->installEventFilter(&watcher);
  settle();
  EXPECT_TRUE(watcher.painted.isEmpty());
  click(*host_, kCounter);
  settle();
  ASSERT_FALSE(watcher.painted.isEmpty());
  EXPECT_LT(watcher.painted.boundingRect().height(), 60);
  EXPECT_TRUE(watcher.painted.contains(kCounter.toPoint()));
  const QImage partly = host_->grab().toImage();
  host_->repaint();
  EXPECT_EQ(host_->grab().toImage(), partly);
}

TEST_F(HostWidgetTest, aNewSizeIsLaidOutBeforeItIsPainted) {
  host_->resize(300, 200);
  EXPECT_EQ(host_->host().size(), (Size{300, 200}));
  EXPECT_FALSE(host_->host().needsFrame());
}

TEST_F(HostWidgetTest, mayGoWithFramesTimersAndDeletionsInFlight) {
  click(*host_, kCounter);
  sendMouse(*host_, QEvent::MouseButtonPress, kCounter);
  host_->host().tree();
  host_.reset();
  settle();
}

TEST_F(HostWidgetTest, theAppearanceReachesTheViews) {
  const QRgb light = host_->grab().toImage().pixel(215, 135);
  QPalette dark;
  dark.setColor(QPalette::Window, Qt::black);
  dark.setColor(QPalette::WindowText, Qt::white);
  host_->setPalette(dark);
  settle();
  EXPECT_LT(qGray(host_->grab().toImage().pixel(215, 135)), qGray(light));
}

QAccessibleInterface* findAccessible(QAccessibleInterface* in, const QString& name) {
  for (int i = 0; i < in->childCount(); ++i) {
    QAccessibleInterface* child = in->child(i);
    if (child == nullptr) continue;
    EXPECT_EQ(child->parent(), in);
    EXPECT_EQ(in->indexOfChild(child), i);
    if (child->text(QAccessible::Name) == name) return child;
    if (QAccessibleInterface* found = findAccessible(child, name)) return found;
  }
  return nullptr;
}

TEST_F(HostWidgetTest, screenReadersFindNamesAndPressWhatTheyFind) {
  QAccessibleInterface* root = QAccessible::queryAccessibleInterface(host_.get());
  ASSERT_NE(root, nullptr);
  QAccessibleInterface* button = findAccessible(root, QStringLiteral("Count 0"));
  ASSERT_NE(button, nullptr);
  EXPECT_EQ(button->role(), QAccessible::PushButton);
  EXPECT_EQ(root->childAt(button->rect().center().x(), button->rect().center().y()), button);
  QAccessibleActionInterface* actions = button->actionInterface();
  ASSERT_NE(actions, nullptr);
  actions->doAction(QAccessibleActionInterface::pressAction());
  settle();
  EXPECT_EQ(seen_->pressed, 1);
  EXPECT_EQ(button->text(QAccessible::Name), QStringLiteral("Count 1"));

  QAccessibleInterface* name = findAccessible(root, QStringLiteral("Name"));
  ASSERT_NE(name, nullptr);
  EXPECT_EQ(name->role(), QAccessible::EditableText);
  name->setText(QAccessible::Value, QStringLiteral("Ada"));
  settle();
  EXPECT_EQ(name->text(QAccessible::Value), QStringLiteral("Ada"));
  EXPECT_EQ(field()->text(), QStringLiteral("Ada"));

  host_->setRoot(Text("Gone"));
  host_->runFrame();
  EXPECT_FALSE(button->isValid());
  EXPECT_EQ(button->text(QAccessible::Name), QString());
  EXPECT_NE(findAccessible(root, QStringLiteral("Gone")), nullptr);
  settle();
}

TEST(HostWidget, dropsReachTheViewWithTheirTypes) {
  auto seen = std::make_shared<Seen>();
  HostWidget host(Text("Drop here")
                      .frame(200, 100)
                      .onDrop({{"public.file-url"}, nullptr, [seen](const DropInfo& info) {
                                 seen->dropped = info.items.size();
                                 return true;
                               }}));
  host.resize(200, 100);
  host.show();
  settle();
  const struct {
    const char* uri;
    const char* text;
    bool taken;
  } rows[] = {{"file:///a%20b", nullptr, true},
              {"https://example.org/", nullptr, false},
              {nullptr, "words", false}};
  for (const auto& row : rows) {
    seen->dropped = 0;
    QMimeData data;
    if (row.uri) data.setData(QStringLiteral("text/uri-list"), QByteArray(row.uri) + "\r\n");
    if (row.text) data.setText(QString::fromLatin1(row.text));
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&host, &enter);
    QDropEvent drop({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&host, &drop);
    EXPECT_EQ(drop.isAccepted(), row.taken) << (row.uri ? row.uri : row.text);
    EXPECT_EQ(seen->dropped, row.taken ? 1U : 0U);
  }
}

TEST(HostWidget, aLayoutAroundItLearnsOfANewIdealSize) {
  QWidget window;
  auto* layout = new QVBoxLayout(&window);
  auto* host = new HostWidget(Text("a").frame(50, 20));
  layout->addWidget(host);
  window.show();
  settle();
  const int before = window.sizeHint().height();
  host->setRoot(Text("a").frame(50, 120));
  settle();
  EXPECT_EQ(window.sizeHint().height(), before + 100);
}

TEST(RenderView, showsTheSameAsTheWindow) {
  const View view = Text("Words").padding(10).background(Color::teal());
  HostWidget host(view);
  host.resize(120, 60);
  host.show();
  settle();
  const QImage shown = host.grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
  EXPECT_EQ(renderView(view, {120, 60}), shown);
  EXPECT_TRUE(renderView(view, {0, 60}).isNull());
  EXPECT_EQ(renderView(view, {120, 60}, 1.5).size(), QSize(180, 90));
}

}  // namespace
}  // namespace zq::qt
