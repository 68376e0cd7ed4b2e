// ZQSwiftUI, MIT licence; see LICENSE.
// The keyboard's way through a window that holds other widgets too, and what input methods do
// in the native editors.
#include <gtest/gtest.h>

#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTextCharFormat>
#include <QVBoxLayout>
#include <memory>
#include <string>
#include <tests/qt/support.hpp>
#include <vector>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq::qt {
namespace {

// A stop of the keyboard for each letter: 'b' a button, 'f' a field, '-' a plain text.
struct Stops {
  std::string letters;
  View body(Context& context) const {
    auto text = context.state(std::string());
    std::vector<View> rows;
    for (std::size_t i = 0; i < letters.size(); ++i) {
      const std::string name = letters.substr(i, 1) + std::to_string(i);
      if (letters[i] == 'b') rows.push_back(Button([] {}, Text(name)).frame(80, 20));
      if (letters[i] == 'f') rows.push_back(TextField(name, text.binding()).frame(80, 24));
      if (letters[i] == '-') rows.push_back(Text(name).frame(80, 20));
    }
    return VStack({.spacing = 4}, rows);
  }
};

std::string focusedName(const AccessibilityNode& node) {
  if (node.focused) return node.name;
  for (const AccessibilityNode& child : node.children) {
    if (std::string name = focusedName(child); !name.empty()) return name;
  }
  return {};
}

// A view between two widgets of Qt's own.
class Between {
 public:
  explicit Between(const std::string& letters)
      : host_(new HostWidget(View(Stops{letters}), &window_)) {
    auto* layout = new QVBoxLayout(&window_);
    layout->addWidget(&before_);
    layout->addWidget(host_);
    layout->addWidget(&after_);
    window_.resize(300, 300);
    window_.show();
    window_.activateWindow();
    before_.setFocus();
    settle();
  }

  // Where the keys go; in the view, the name of what its own tree calls focused.
  std::string place() {
    const QWidget* focus = QApplication::focusWidget();
    if (focus == &before_) return "before";
    if (focus == &after_) return "after";
    const bool inside = focus == host_ || (focus != nullptr && focus->parentWidget() == host_);
    std::string name = focusedName(host_->host().accessibilityTree());
    const auto* edit = qobject_cast<const QLineEdit*>(focus);
    if (edit != nullptr && edit->placeholderText().toStdString() != name) return "two places";
    return inside ? name : "nowhere";
  }
  std::string walk(int steps, bool backwards) {
    std::string way;
    for (int i = 0; i < steps; ++i) {
      press(backwards ? Qt::Key_Backtab : Qt::Key_Tab, {},
            backwards ? Qt::ShiftModifier : Qt::NoModifier);
      way += (way.empty() ? "" : " ") + place();
    }
    return way;
  }
  HostWidget& host() { return *host_; }
  QWidget& after() { return after_; }

 private:
  QWidget window_;
  QLineEdit before_{&window_};
  HostWidget* host_;  // between the two in Qt's order as well
  QLineEdit after_{&window_};
};

TEST(HostFocus, tabPassesThroughTheViewInBothDirections) {
  const struct {
    const char* letters;
    const char* forwards;
    const char* backwards;
  } rows[] = {
      {"b", "b0 after before b0", "b0 before after b0"},
      {"f", "f0 after before f0", "f0 before after f0"},
      {"bf", "b0 f1 after before", "f1 b0 before after"},
      {"fb", "f0 b1 after before", "b1 f0 before after"},
      {"fff", "f0 f1 f2 after", "f2 f1 f0 before"},
      {"b-f-b", "b0 f2 b4 after", "b4 f2 b0 before"},
  };
  for (const auto& row : rows) {
    Between window(row.letters);
    EXPECT_EQ(window.walk(4, false), row.forwards) << row.letters;
    window.after().setFocus();
    settle();
    EXPECT_EQ(window.walk(4, true), row.backwards) << row.letters;
  }
}

TEST(HostFocus, aFieldThatIsTakenAwayWhileItIsFocusedLeavesTheKeyboardInTheWindow) {
  Between window("bf");
  window.walk(2, false);
  ASSERT_EQ(window.place(), "f1");
  window.host().setRoot(Stops{"b"});
  settle();
  EXPECT_EQ(QApplication::focusWidget(), &window.host());
  EXPECT_EQ(window.walk(2, false), "b0 after");
}

TEST(HostFocus, leavingTheViewLeavesNothingFocusedInItsTree) {
  Between window("bf");
  window.walk(2, false);
  window.after().setFocus();
  settle();
  for (const TextFieldState& field : window.host().host().textFields()) {
    EXPECT_FALSE(window.host().findChild<QLineEdit*>()->hasFocus()) << field.placeholder;
  }
  press(Qt::Key_Space, QStringLiteral(" "));
  EXPECT_EQ(static_cast<QLineEdit&>(window.after()).text(), QStringLiteral(" "));
}

TEST(HostFocus, whatAnEditorLeavesOverReachesTheViewAroundItAndTheShortcuts) {
  std::string log, text;
  const Binding<std::string> typed([&] { return text; }, [&](const std::string& t) { text = t; });
  const auto leftover = [&](const KeyEvent& event) {
    if (event.key == Key::up) log += "up ";
    return event.key == Key::up;
  };
  HostWidget host(View(TextField("f", typed).onEditingEnded([&] { log += "ended "; }))
                      .onLeftoverKey(leftover)
                      .onShortcut(Shortcut::control("s"), [&] { log += "save "; })
                      .onShortcut(Shortcut::control("z"), [&] { log += "undo "; })
                      .onSecondaryTap([&](Point) { log += "menu "; }));
  host.show();
  host.activateWindow();
  settle();
  host.findChild<QLineEdit*>()->setFocus();
  settle();
  ASSERT_NE(qobject_cast<QLineEdit*>(QApplication::focusWidget()), nullptr);
  press(Qt::Key_Up, {}, Qt::NoModifier);
  press(Qt::Key_S, QStringLiteral("\x13"), Qt::ControlModifier);
  press(Qt::Key_Z, QStringLiteral("\x1a"), Qt::ControlModifier);
  press(Qt::Key_F10, {}, Qt::ShiftModifier);
  press(Qt::Key_S, QStringLiteral("s"), Qt::NoModifier);
  press(Qt::Key_Z, QStringLiteral("\x1a"), Qt::ControlModifier);  // now it is the editor's
  EXPECT_EQ(text, "");
  press(Qt::Key_S, QStringLiteral("s"), Qt::NoModifier);
  QApplication::focusWidget()->clearFocus();
  settle();
  EXPECT_EQ(log, "up save undo menu ended ");
  EXPECT_EQ(text, "s");
}

// A field whose text is also shown, and a colour that can be changed from outside.
struct Typed {
  std::shared_ptr<std::vector<std::string>> heard;
  View body(Context& context) const {
    auto text = context.state(std::string());
    const auto told = heard;
    const Binding<std::string> binding([text] { return *text; },
                                       [text, told](const std::string& now) {
                                         told->push_back(now);
                                         text.set(now);
                                       });
    return VStack({.spacing = 10}, {Text("Typed " + *text), TextField("Name", binding)});
  }
};

class InputMethod : public testing::Test {
 protected:
  InputMethod() : host_(View(Typed{heard_})) {
    host_.resize(200, 80);
    host_.show();
    host_.activateWindow();
    settle();
    edit_ = host_.findChild<QLineEdit*>();
    edit_->setFocus(Qt::MouseFocusReason);
    settle();
  }
  void send(const QString& preedit, const QString& commit, int from = 0, int length = 0) {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit, from, length);
    QCoreApplication::sendEvent(edit_, &event);
    settle();
  }
  QVariant ask(Qt::InputMethodQuery what) {
    QInputMethodQueryEvent query(what);
    QCoreApplication::sendEvent(edit_, &query);
    return query.value(what);
  }

  std::shared_ptr<std::vector<std::string>> heard_ = std::make_shared<std::vector<std::string>>();
  HostWidget host_;
  QLineEdit* edit_ = nullptr;
};

TEST_F(InputMethod, onlyWhatIsCommittedReachesTheBinding) {
  send(QStringLiteral("zhong"), {});
  EXPECT_TRUE(heard_->empty());
  send(QStringLiteral("zhongw"), {});
  EXPECT_TRUE(heard_->empty());
  send({}, QStringLiteral("中文"));
  EXPECT_EQ(*heard_, std::vector<std::string>{"中文"});
  send({}, QStringLiteral("\U0001F600"));
  EXPECT_EQ(heard_->back(), "中文\U0001F600");
  send({}, QStringLiteral("国"), -3, 1);  // replaces the second character
  EXPECT_EQ(heard_->back(), "中国\U0001F600");
  EXPECT_EQ(edit_->text().toStdString(), heard_->back());
}

TEST_F(InputMethod, aHalfComposedCharacterSurvivesWhatIsRebuiltAroundIt) {
  send({}, QStringLiteral("ab"));
  send(QStringLiteral("xyz"), {});
  const QImage composing = host_.grab().toImage();
  host_.setRoot(Typed{heard_});
  settle();
  QPalette red = host_.palette();
  red.setColor(QPalette::Window, Qt::black);
  red.setColor(QPalette::WindowText, Qt::white);
  host_.setPalette(red);
  settle();
  host_.setPalette({});
  settle();
  EXPECT_EQ(host_.grab().toImage(), composing);
  send({}, QStringLiteral("c"));
  EXPECT_EQ(heard_->back(), "abc");
}

TEST_F(InputMethod, theCursorIsReportedInsideTheFieldAndMovesWithTheText) {
  ASSERT_TRUE(ask(Qt::ImEnabled).toBool());
  const QRectF field(edit_->rect());
  double last = -1;
  for (const char* more : {"a", "b", "c"}) {
    send({}, QString::fromLatin1(more));
    const QRectF cursor = ask(Qt::ImCursorRectangle).toRectF();
    EXPECT_TRUE(field.contains(cursor.center())) << more;
    EXPECT_GT(cursor.center().x(), last) << more;
    last = cursor.center().x();
  }
  EXPECT_EQ(ask(Qt::ImSurroundingText).toString(), QStringLiteral("abc"));
  EXPECT_EQ(ask(Qt::ImCursorPosition).toInt(), 3);
}

}  // namespace
}  // namespace zq::qt
