// ZQSwiftUI, MIT licence; see LICENSE.
// The tree that a screen reader walks: it holds together after any change, and what has gone
// says so.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QDialog>
#include <QLineEdit>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <tests/qt/support.hpp>
#include <vector>
#include <zqswiftui/platform/qt/accessibility.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq::qt {
namespace {

using Interfaces = std::vector<QAccessibleInterface*>;

// Everything below the interface, checked for what every walk relies upon.
void collect(QAccessibleInterface& in, Interfaces& found) {
  for (int i = 0; i < in.childCount(); ++i) {
    QAccessibleInterface* child = in.child(i);
    ASSERT_NE(child, nullptr) << i;
    ASSERT_TRUE(child->isValid());
    EXPECT_EQ(child->parent(), &in);
    EXPECT_EQ(in.indexOfChild(child), i);
    EXPECT_EQ(in.child(i), child) << "the same one each time";
    EXPECT_NE(child->role(), QAccessible::NoRole);
    EXPECT_EQ(child->window(), in.window());
    found.push_back(child);
    collect(*child, found);
  }
  EXPECT_EQ(in.child(-1), nullptr);
  EXPECT_EQ(in.child(in.childCount()), nullptr);
  EXPECT_EQ(in.indexOfChild(&in), -1);
}

struct Model {
  int buttons = 2;
  bool on = false;
  bool field = true;
  bool enabled = true;
  bool grouped = false;
  std::string text = "text";
  bool operator==(const Model&) const = default;
};

View described(const Model& model) {
  std::vector<View> rows;
  rows.reserve(static_cast<std::size_t>(model.buttons) + 4);
  for (int i = 0; i < model.buttons; ++i) {
    rows.push_back(Button([] {}, Text("Button " + std::to_string(i)))
                       .frame(120, 20)
                       .id("b" + std::to_string(i)));
  }
  rows.push_back(Button([] {}, Text("Check"))
                     .accessibility({.role = Role::toggle, .label = "Check", .checked = model.on})
                     .frame(120, 20));
  if (model.field) {
    rows.push_back(TextField("Field", Binding<std::string>::constant(model.text)).frame(120, 24));
  }
  rows.push_back(Text(model.text).frame(120, 20));
  rows.push_back(ProgressView(0.5).frame(120, 10));
  View all = VStack({.spacing = 2}, rows);
  if (model.grouped) all = View(HStack({.spacing = 2}, {all, Text("beside").frame(60, 20)}));
  return all.disabled(!model.enabled);
}

class Accessible : public testing::Test {
 protected:
  explicit Accessible(View view = described({})) : host_(std::move(view)) {
    host_.resize(300, 300);
    host_.show();
    host_.activateWindow();
    settle();
  }
  QAccessibleInterface& root() { return *QAccessible::queryAccessibleInterface(&host_); }
  void show(const Model& model) {
    host_.setRoot(described(model));
    settle();
  }
  QAccessibleInterface* named(const QString& name) {
    Interfaces all;
    collect(root(), all);
    for (QAccessibleInterface* each : all) {
      if (each->text(QAccessible::Name) == name) return each;
    }
    return nullptr;
  }

  HostWidget host_;
};

TEST_F(Accessible, theTreeHoldsTogetherAfterAnyChange) {
  std::mt19937 random(20240611);
  const auto one = [&](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
  Interfaces before;
  Model model;
  for (int step = 0; step < 60; ++step) {
    switch (one(5)) {
      case 0:
        model.buttons = one(6);
        break;
      case 1:
        model.on = !model.on;
        break;
      case 2:
        model.field = !model.field;
        break;
      case 3:
        model.enabled = !model.enabled;
        break;
      case 4:
        model.grouped = !model.grouped;
        break;
      default:
        model.text = "text " + std::to_string(one(9));
        break;
    }
    host_.setRoot(described(model));
    host_.runFrame();
    // Before the turn in which they are deleted, what has gone is invalid and answers nothing.
    for (QAccessibleInterface* old : before) {
      if (old->isValid()) continue;
      EXPECT_EQ(old->childCount(), 0);
      EXPECT_EQ(old->text(QAccessible::Name), QString());
      EXPECT_TRUE(old->state().invalid);
      EXPECT_EQ(old->actionInterface(), nullptr);
      EXPECT_FALSE(old->rect().isValid());
    }
    settle();
    before.clear();
    collect(root(), before);
    int buttons = 0;
    for (QAccessibleInterface* each : before) {
      buttons += each->role() == QAccessible::PushButton;
      const bool container = each->role() == QAccessible::Grouping;
      if (container || each->role() == QAccessible::ProgressBar) continue;
      EXPECT_EQ(each->state().disabled, !model.enabled)
          << each->text(QAccessible::Name).toStdString();
    }
    EXPECT_EQ(buttons, model.buttons) << "after step " << step;
  }
}

TEST_F(Accessible, whatIsFoundAtAPointCoversIt) {
  Interfaces all;
  collect(root(), all);
  ASSERT_GT(all.size(), 4U);
  for (QAccessibleInterface* each : all) {
    if (each->childCount() > 0) continue;
    const QPoint middle = each->rect().center();
    EXPECT_EQ(root().childAt(middle.x(), middle.y()), each);
    EXPECT_TRUE(host_.rect().contains(host_.mapFromGlobal(middle)));
  }
  const QPoint corner = host_.mapToGlobal(QPoint(299, 299));
  EXPECT_EQ(root().childAt(corner.x(), corner.y()), nullptr);
  EXPECT_EQ(root().childAt(-5000, -5000), nullptr);
}

TEST_F(Accessible, rolesStatesAndActionsAreThoseOfTheViews) {
  QAccessibleInterface* check = named(QStringLiteral("Check"));
  ASSERT_NE(check, nullptr);
  EXPECT_EQ(check->role(), QAccessible::CheckBox);
  EXPECT_TRUE(check->state().checkable);
  EXPECT_FALSE(check->state().checked);
  show({.on = true});
  EXPECT_TRUE(check->state().checked) << "the same interface, of the same view";
  EXPECT_TRUE(
      check->actionInterface()->actionNames().contains(QAccessibleActionInterface::toggleAction()));

  QAccessibleInterface* text = named(QStringLiteral("text"));
  ASSERT_NE(text, nullptr);
  EXPECT_TRUE(text->state().readOnly);
  EXPECT_EQ(text->actionInterface(), nullptr);
  EXPECT_EQ(text->textInterface(), nullptr);

  QAccessibleInterface* button = named(QStringLiteral("Button 0"));
  EXPECT_TRUE(button->state().focusable);
  button->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  settle();
  EXPECT_TRUE(button->state().focused);
  EXPECT_EQ(root().focusChild(), button);
  button->actionInterface()->doAction(QStringLiteral("no such action"));
  show({.enabled = false});
  EXPECT_TRUE(button->state().disabled);
}

TEST_F(Accessible, aFieldIsReadAndEditedThroughItsNativeEditor) {
  QAccessibleInterface* field = named(QStringLiteral("Field"));
  ASSERT_NE(field, nullptr);
  EXPECT_EQ(field->role(), QAccessible::EditableText);
  EXPECT_TRUE(field->state().editable);
  EXPECT_EQ(field->text(QAccessible::Value), QStringLiteral("text"));
  QAccessibleTextInterface* text = field->textInterface();
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->characterCount(), 4);
  EXPECT_EQ(text->text(1, 3), QStringLiteral("ex"));
  text->setCursorPosition(2);
  EXPECT_EQ(host_.findChild<QLineEdit*>()->cursorPosition(), 2);
  text->setSelection(0, 1, 3);
  EXPECT_EQ(host_.findChild<QLineEdit*>()->selectedText(), QStringLiteral("ex"));
  EXPECT_TRUE(field->rect().contains(text->characterRect(1).center()));

  show({.field = false});
  EXPECT_EQ(named(QStringLiteral("Field")), nullptr);
}

TEST_F(Accessible, whatIsWrittenInAFieldReachesItsOwnerAndEndsAsTypingDoes) {
  std::string owned = "t\xC3\xA9xt";
  int ended = 0;
  const Binding<std::string> binding([&] { return owned; }, [&](const auto& now) { owned = now; });
  host_.setRoot(VStack({TextField("Field", binding).onEditingEnded([&] { ++ended; }),
                        TextField("Other", Binding<std::string>::constant(""))}));
  settle();
  auto* edited = named(QStringLiteral("Field"))->editableTextInterface();
  ASSERT_NE(edited, nullptr);
  edited->deleteText(0, 2);
  EXPECT_EQ(owned, "xt");
  settle();
  edited->insertText(99, QStringLiteral("\u00FC"));
  settle();
  edited->replaceText(-1, 1, QStringLiteral("new te"));
  settle();
  EXPECT_EQ(owned, "new tet\xC3\xBC");
  EXPECT_EQ(named(QStringLiteral("Field"))->text(QAccessible::Value),
            QStringLiteral("new tet\u00FC"));
  EXPECT_EQ(ended, 0);
  named(QStringLiteral("Other"))
      ->actionInterface()
      ->doAction(QAccessibleActionInterface::setFocusAction());
  settle();
  EXPECT_EQ(ended, 1);
  show({.enabled = false});
  EXPECT_EQ(named(QStringLiteral("Field"))->editableTextInterface(), nullptr);
}

TEST_F(Accessible, aNumberIsReadAndSetBetweenItsEnds) {
  std::vector<double> set;
  const auto slider = [&](double value) {
    return View(Rectangle().frame(80, 20))
        .accessibility({.role = Role::slider,
                        .label = "Slider",
                        .number = AccessibleNumber{value, -2, 5, 0.5},
                        .setNumber = [&set](double number) { set.push_back(number); }});
  };
  host_.setRoot(VStack({slider(1), ProgressView(0.25).accessibilityLabel("Bar")}));
  settle();
  QAccessibleInterface* view = named(QStringLiteral("Slider"));
  ASSERT_NE(view, nullptr);
  QAccessibleValueInterface* number = view->valueInterface();
  ASSERT_NE(number, nullptr);
  EXPECT_EQ(number->currentValue().toDouble(), 1);
  EXPECT_EQ(number->minimumValue().toDouble(), -2);
  EXPECT_EQ(number->maximumValue().toDouble(), 5);
  EXPECT_EQ(number->minimumStepSize().toDouble(), 0.5);
  number->setCurrentValue(3.25);
  number->setCurrentValue(99);
  number->setCurrentValue(QStringLiteral("no number"));
  number->setCurrentValue(std::numeric_limits<double>::quiet_NaN());
  view->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
  view->actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
  EXPECT_EQ(set, (std::vector<double>{3.25, 5, 1.5, 0.5}));

  QAccessibleInterface* bar = named(QStringLiteral("Bar"));
  ASSERT_NE(bar, nullptr);
  EXPECT_EQ(bar->valueInterface()->currentValue().toDouble(), 0.25);
  EXPECT_EQ(bar->valueInterface()->maximumValue().toDouble(), 1);
  EXPECT_EQ(bar->actionInterface(), nullptr) << "it can only be read";
  host_.setRoot(VStack({slider(1).disabled()}));
  settle();
  named(QStringLiteral("Slider"))->valueInterface()->setCurrentValue(2);
  EXPECT_EQ(set.size(), 4U);
}

TEST_F(Accessible, nothingIsDoneInAWindowThatADialogBars) {
  std::string text = "text";
  int presses = 0;
  const Binding<std::string> binding([&] { return text; }, [&](const auto& now) { text = now; });
  host_.setRoot(VStack({Button([&] { ++presses; }, Text("Press")), TextField("Field", binding)}));
  settle();
  const auto act = [&] {
    named(QStringLiteral("Press"))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    named(QStringLiteral("Field"))->editableTextInterface()->insertText(0, QStringLiteral("+"));
    named(QStringLiteral("Field"))->setText(QAccessible::Value, QString::fromStdString(text + '!'));
    settle();
    return std::exchange(presses, 0) == 1;
  };
  QWidget other;
  struct Row {
    QWidget* over;
    Qt::WindowModality modality;
    bool isActedOn;
  };
  for (const Row& row : {Row{&host_, Qt::NonModal, true}, Row{&host_, Qt::WindowModal, false},
                         Row{&other, Qt::WindowModal, true}, Row{nullptr, Qt::WindowModal, true},
                         Row{nullptr, Qt::ApplicationModal, false}}) {
    QDialog dialog(row.over);
    dialog.setWindowModality(row.modality);
    EXPECT_TRUE(act()) << "not shown yet";
    dialog.show();
    const std::string before = text;
    EXPECT_EQ(act(), row.isActedOn);
    EXPECT_EQ(text != before, row.isActedOn);
  }
  QDialog dialog;
  dialog.setWindowModality(Qt::ApplicationModal);
  host_.setParent(&dialog);
  dialog.show();
  settle();
  EXPECT_TRUE(act()) << "in the dialog itself";
  host_.setParent(nullptr);
}

TEST_F(Accessible, theScreenRectanglesMoveWithTheWindow) {
  QAccessibleInterface* button = named(QStringLiteral("Button 0"));
  const QRect before = button->rect();
  host_.move(host_.pos() + QPoint(40, 30));
  settle();
  EXPECT_EQ(button->rect(), before.translated(40, 30));
  host_.hide();
  EXPECT_TRUE(button->state().invisible);
}

TEST(AccessibleLife, interfacesOutliveTheirWindowWithoutHarm) {
  auto host = std::make_unique<HostWidget>(described({}));
  host->show();
  settle();
  Interfaces all;
  collect(*QAccessible::queryAccessibleInterface(host.get()), all);
  std::vector<QAccessible::Id> ids;
  for (QAccessibleInterface* each : all) ids.push_back(QAccessible::uniqueId(each));
  host->setRoot(Text("less"));
  host->runFrame();
  host.reset();
  settle();
  for (const QAccessible::Id id : ids) EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

}  // namespace
}  // namespace zq::qt
