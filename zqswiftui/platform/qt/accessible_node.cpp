// ZQSwiftUI, MIT licence; see LICENSE.
#include <QAccessibleInterface>
#include <QApplication>
#include <QLineEdit>
#include <QWindow>
#include <algorithm>
#include <zqswiftui/platform/qt/accessible_node.hpp>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/host_fields.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>

namespace zq::qt {
namespace {

// Whether a dialog keeps the user out of the window meanwhile.
bool isBarred(const QWidget& window) {
  const auto isWithin = [](const QWidget* widget, const QWidget& outer) {
    while (widget != nullptr && widget != &outer) widget = widget->parentWidget();
    return widget != nullptr;
  };
  const QWidgetList windows = QApplication::topLevelWidgets();
  return std::any_of(windows.begin(), windows.end(), [&](const QWidget* dialog) {
    if (!dialog->isVisible() || isWithin(&window, *dialog)) return false;
    return dialog->windowModality() == Qt::ApplicationModal ||
           (dialog->windowModality() == Qt::WindowModal && isWithin(dialog, window));
  });
}

}  // namespace

QAccessible::Role toQRole(Role role) {
  switch (role) {
    case Role::none:
    case Role::group:
      return QAccessible::Grouping;
    case Role::text:
      return QAccessible::StaticText;
    case Role::button:
      return QAccessible::PushButton;
    case Role::toggle:
      return QAccessible::CheckBox;
    case Role::textField:
      return QAccessible::EditableText;
    case Role::image:
      return QAccessible::Graphic;
    case Role::progress:
      return QAccessible::ProgressBar;
    case Role::scrollArea:
      return QAccessible::Pane;
    case Role::list:
      return QAccessible::List;
    case Role::listItem:
      return QAccessible::ListItem;
    case Role::slider:
      return QAccessible::Slider;
    case Role::window:
      return QAccessible::Client;
  }
  return QAccessible::NoRole;
}

int indexAmong(AccessibleTree& tree, const AccessibilityNode& parent,
               const QAccessibleInterface* child) {
  for (std::size_t i = 0; i < parent.children.size(); ++i) {
    if (tree.interfaceOf(parent.children[i].id) == child) return static_cast<int>(i);
  }
  return -1;
}

const AccessibilityNode* focusedIn(const AccessibilityNode& node) {
  if (node.focused) return &node;
  for (const AccessibilityNode& child : node.children) {
    if (const AccessibilityNode* found = focusedIn(child)) return found;
  }
  return nullptr;
}

const std::string& descriptionOf(const AccessibilityNode& node) {
  const bool valueInstead = node.description.empty() && node.role != Role::textField;
  return valueInstead ? node.value : node.description;
}

const AccessibilityNode* AccessibleNode::node() const {
  const auto tree = tree_.lock();
  return tree ? tree->find(id_) : nullptr;
}

QWindow* AccessibleNode::window() const {
  const auto tree = tree_.lock();
  return tree ? tree->host().window()->windowHandle() : nullptr;
}

HostWidget* AccessibleNode::hostToActOn() const {
  const auto tree = tree_.lock();
  return tree && !isBarred(*tree->host().window()) ? &tree->host() : nullptr;
}

QAccessibleInterface* AccessibleNode::parent() const {
  const auto tree = tree_.lock();
  return tree ? tree->parentOf(id_) : nullptr;
}

int AccessibleNode::childCount() const {
  const AccessibilityNode* self = node();
  return self != nullptr ? static_cast<int>(self->children.size()) : 0;
}

QAccessibleInterface* AccessibleNode::child(int index) const {
  const AccessibilityNode* self = node();
  if (self == nullptr || index < 0 || index >= static_cast<int>(self->children.size())) {
    return nullptr;
  }
  return tree_.lock()->interfaceOf(self->children[static_cast<std::size_t>(index)].id);
}

QAccessibleInterface* AccessibleNode::childAt(int x, int y) const {
  const AccessibilityNode* self = node();
  return self != nullptr ? tree_.lock()->childAt(*self, {x, y}) : nullptr;
}

int AccessibleNode::indexOfChild(const QAccessibleInterface* child) const {
  const AccessibilityNode* self = node();
  return self != nullptr ? indexAmong(*tree_.lock(), *self, child) : -1;
}

QAccessibleInterface* AccessibleNode::focusChild() const {
  const AccessibilityNode* self = node();
  const AccessibilityNode* focused = self != nullptr ? focusedIn(*self) : nullptr;
  return focused != nullptr ? tree_.lock()->interfaceOf(focused->id) : nullptr;
}

QString AccessibleNode::text(QAccessible::Text what) const {
  const AccessibilityNode* self = node();
  if (self == nullptr) return {};
  switch (what) {
    case QAccessible::Name:
      return toQString(self->name);
    case QAccessible::Value:
      return toQString(self->value);
    case QAccessible::Description:
      return toQString(descriptionOf(*self));
    default:
      return {};
  }
}

void AccessibleNode::setText(QAccessible::Text what, const QString& text) {
  HostWidget* const host = hostToActOn();
  if (host != nullptr && what == QAccessible::Value) {
    host->host().accessibilitySetValue(id_, text.toStdString());
  }
}

QRect AccessibleNode::rect() const {
  const AccessibilityNode* self = node();
  return self != nullptr ? tree_.lock()->screenRect(*self) : QRect();
}

QAccessible::Role AccessibleNode::role() const {
  const AccessibilityNode* self = node();
  return self != nullptr ? toQRole(self->role) : QAccessible::NoRole;
}

QAccessible::State AccessibleNode::state() const {
  QAccessible::State state;
  const AccessibilityNode* self = node();
  if (self == nullptr) {
    state.invalid = true;
    return state;
  }
  const auto tree = tree_.lock();
  state.disabled = !self->enabled;
  state.focusable = self->focusable;
  state.focused = self->focused;
  state.checkable = self->checked.has_value();
  state.checked = self->checked.value_or(false);
  state.selectable = self->selected.has_value();
  state.selected = self->selected.value_or(false);
  state.editable = self->role == Role::textField;
  state.readOnly = self->role == Role::text;
  state.invisible = !tree->host().isVisible();
  state.offscreen = !toQRectF(self->bounds).intersects(QRectF(tree->host().rect()));
  return state;
}

void* AccessibleNode::interface_cast(QAccessible::InterfaceType type) {
  const AccessibilityNode* self = node();
  if (self == nullptr) return nullptr;
  if (type == QAccessible::ActionInterface &&
      (self->pressable || self->focusable || self->adjustable)) {
    return static_cast<QAccessibleActionInterface*>(this);
  }
  if (type == QAccessible::ValueInterface && self->number) {
    return static_cast<QAccessibleValueInterface*>(this);
  }
  if (self->role != Role::textField) return nullptr;
  QLineEdit* edit = tree_.lock()->host().fields().editor(id_);
  if (edit == nullptr) return nullptr;
  if (type == QAccessible::EditableTextInterface && self->enabled) {
    return static_cast<QAccessibleEditableTextInterface*>(this);
  }
  // Cursor and selection are those of the native editor over the field.
  if (type == QAccessible::TextInterface) {
    auto* native = QAccessible::queryAccessibleInterface(edit);
    return native != nullptr ? native->interface_cast(type) : nullptr;
  }
  return nullptr;
}

QStringList AccessibleNode::actionNames() const {
  QStringList names;
  const AccessibilityNode* self = node();
  if (self == nullptr) return names;
  if (self->pressable) names.push_back(self->checked ? toggleAction() : pressAction());
  if (self->focusable) names.push_back(setFocusAction());
  if (self->adjustable) names << increaseAction() << decreaseAction();
  return names;
}

void AccessibleNode::doAction(const QString& name) {
  if (!actionNames().contains(name)) return;
  if (name == increaseAction()) return step(1);
  if (name == decreaseAction()) return step(-1);
  HostWidget* const host = hostToActOn();
  if (host == nullptr) return;
  if (name != setFocusAction()) {
    host->host().accessibilityPress(id_);
  } else if (host->host().accessibilityFocus(id_)) {
    host->activateWindow();
    host->setFocus(Qt::OtherFocusReason);
  }
}

QStringList AccessibleNode::keyBindingsForAction(const QString&) const {
  return {};
}

void AccessibleNode::deleteText(int from, int to) {
  replaceText(from, to, {});
}

void AccessibleNode::insertText(int at, const QString& text) {
  replaceText(at, at, text);
}

void AccessibleNode::replaceText(int from, int to, const QString& text) {
  HostWidget* const host = hostToActOn();
  const QLineEdit* edit = host != nullptr ? host->fields().editor(id_) : nullptr;
  if (edit == nullptr) return;
  QString whole = edit->text();
  const auto first = std::clamp<qsizetype>(from, 0, whole.size());
  const auto last = std::clamp<qsizetype>(to, first, whole.size());
  whole.replace(first, last - first, text);
  host->host().accessibilityFocus(id_);
  host->host().accessibilitySetValue(id_, whole.toStdString());
}

QVariant AccessibleNode::number(double AccessibleNumber::*part) const {
  const AccessibilityNode* self = node();
  return self != nullptr && self->number ? QVariant((*self->number).*part) : QVariant();
}

QVariant AccessibleNode::currentValue() const {
  return number(&AccessibleNumber::value);
}

QVariant AccessibleNode::maximumValue() const {
  return number(&AccessibleNumber::most);
}

QVariant AccessibleNode::minimumValue() const {
  return number(&AccessibleNumber::least);
}

QVariant AccessibleNode::minimumStepSize() const {
  return number(&AccessibleNumber::step);
}

void AccessibleNode::setCurrentValue(const QVariant& value) {
  bool isNumber = false;
  const double number = value.toDouble(&isNumber);
  HostWidget* const host = hostToActOn();
  if (host != nullptr && isNumber) host->host().accessibilitySetNumber(id_, number);
}

void AccessibleNode::step(double steps) {
  const AccessibleNumber all = node()->number.value_or(AccessibleNumber());
  const double one = all.step > 0 ? all.step : (all.most - all.least) / 10;
  setCurrentValue(all.value + steps * one);
}

}  // namespace zq::qt
