// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QAccessible>
#include <QAccessibleInterface>
#include <memory>
#include <zqswiftui/platform/qt/accessibility.hpp>

namespace zq::qt {

// One view as Qt's assistive technology sees it. Answers as invalid once the view has gone.
class AccessibleNode final : public QAccessibleInterface,
                             public QAccessibleActionInterface,
                             public QAccessibleEditableTextInterface,
                             public QAccessibleValueInterface {
 public:
  AccessibleNode(std::weak_ptr<AccessibleTree> tree, std::uint64_t id)
      : tree_(std::move(tree)), id_(id) {}
  std::uint64_t id() const { return id_; }

  bool isValid() const override { return node() != nullptr; }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override;
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int index) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  int childCount() const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* focusChild() const override;
  QString text(QAccessible::Text what) const override;
  void setText(QAccessible::Text what, const QString& text) override;
  QRect rect() const override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QStringList actionNames() const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString& name) const override;

  // As a user's typing, which the native editor does not make of them: the field has the focus
  // meanwhile, so that what comes with the end of editing comes.
  void deleteText(int from, int to) override;
  void insertText(int at, const QString& text) override;
  void replaceText(int from, int to, const QString& text) override;

  QVariant currentValue() const override;
  void setCurrentValue(const QVariant& value) override;
  QVariant maximumValue() const override;
  QVariant minimumValue() const override;
  QVariant minimumStepSize() const override;

 private:
  const AccessibilityNode* node() const;
  // None while a dialog keeps the user out of the window, and with him whoever acts for him.
  HostWidget* hostToActOn() const;
  QVariant number(double AccessibleNumber::*part) const;
  void step(double steps);

  std::weak_ptr<AccessibleTree> tree_;
  std::uint64_t id_;
};

int indexAmong(AccessibleTree& tree, const AccessibilityNode& parent,
               const QAccessibleInterface* child);
const AccessibilityNode* focusedIn(const AccessibilityNode& node);
// What it is described by; a value in words where there is nothing else, for the accessibility
// bus carries values of numbers and of editors alone.
const std::string& descriptionOf(const AccessibilityNode& node);

}  // namespace zq::qt
