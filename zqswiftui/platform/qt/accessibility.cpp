// ZQSwiftUI, MIT licence; see LICENSE.
#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QMetaObject>
#include <utility>
#include <zqswiftui/platform/qt/accessibility.hpp>
#include <zqswiftui/platform/qt/accessible_node.hpp>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>

namespace zq::qt {
namespace {

// The widget, whose children are views instead of widgets.
class HostAccessible final : public QAccessibleWidget {
 public:
  explicit HostAccessible(HostWidget& host)
      : QAccessibleWidget(&host, QAccessible::Client), tree_(host.accessible()) {}

  int childCount() const override {
    const auto tree = tree_.lock();
    return tree ? static_cast<int>(tree->root().children.size()) : 0;
  }
  QAccessibleInterface* child(int index) const override {
    const auto tree = tree_.lock();
    if (!tree || index < 0 || index >= childCount()) return nullptr;
    return tree->interfaceOf(tree->root().children[static_cast<std::size_t>(index)].id);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const auto tree = tree_.lock();
    return tree ? indexAmong(*tree, tree->root(), child) : -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const auto tree = tree_.lock();
    return tree ? tree->childAt(tree->root(), {x, y}) : nullptr;
  }
  QAccessibleInterface* focusChild() const override {
    const auto tree = tree_.lock();
    const AccessibilityNode* focused = tree ? focusedIn(tree->root()) : nullptr;
    return focused != nullptr ? tree->interfaceOf(focused->id) : nullptr;
  }

 private:
  std::weak_ptr<AccessibleTree> tree_;
};

void tell(QAccessibleEvent&& event) {
  QAccessible::updateAccessibility(&event);
}

}  // namespace

void installAccessibility() {
  static const bool installed = [] {
    QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
      auto* host = dynamic_cast<HostWidget*>(object);
      return host != nullptr && host->accessible() ? new HostAccessible(*host) : nullptr;
    });
    return true;
  }();
  Q_UNUSED(installed);
}

AccessibleTree::~AccessibleTree() {
  for (const auto& [id, entry] : entries_) {
    if (entry.accessible != 0) QAccessible::deleteAccessibleInterface(entry.accessible);
  }
}

void AccessibleTree::frameEnded() {
  if (asked_) refresh();
}

const AccessibilityNode& AccessibleTree::root() {
  refresh();
  return root_;
}

const AccessibilityNode* AccessibleTree::find(std::uint64_t id) {
  refresh();
  const auto found = entries_.find(id);
  return found == entries_.end() ? nullptr : found->second.node;
}

void AccessibleTree::refresh() {
  const std::uint64_t version = host_.host().accessibilityVersion();
  // What a listener changes is told in the next turn: the nodes compared below must stand.
  if (telling_ || (asked_ && version == version_)) return;
  asked_ = true;
  version_ = version;
  const AccessibilityNode before = std::exchange(root_, host_.host().accessibilityTree());
  Entries old = std::exchange(entries_, {});
  for (const AccessibilityNode& child : root_.children) enter(child, entries_, old);
  std::vector<QAccessible::Id> gone;
  std::vector<std::pair<const AccessibilityNode*, Entry>> kept;
  for (const auto& [id, entry] : old) {
    if (entry.accessible == 0) continue;
    const auto now = entries_.find(id);
    if (now == entries_.end()) {
      gone.push_back(entry.accessible);
    } else {
      kept.emplace_back(entry.node, now->second);
    }
  }
  // Listeners may ask again from inside, so the state is whole by now.
  telling_ = true;
  for (const auto& [was, entry] : kept) tellChanges(*was, *entry.node, entry.accessible);
  telling_ = false;
  if (gone.empty()) return;
  // A caller may be inside one of them.
  QMetaObject::invokeMethod(
      qApp,
      [gone] {
        for (const QAccessible::Id id : gone) QAccessible::deleteAccessibleInterface(id);
      },
      Qt::QueuedConnection);
}

void AccessibleTree::enter(const AccessibilityNode& node, Entries& entries, const Entries& old) {
  const auto before = old.find(node.id);
  Entry& entry = entries[node.id];
  entry.node = &node;
  if (before != old.end()) entry.accessible = before->second.accessible;
  for (const AccessibilityNode& child : node.children) {
    enter(child, entries, old);
    entries[child.id].parent = node.id;
  }
}

void AccessibleTree::tellChanges(const AccessibilityNode& before, const AccessibilityNode& now,
                                 QAccessible::Id accessible) {
  QAccessibleInterface* view = QAccessible::accessibleInterface(accessible);
  if (view == nullptr) return;
  if (before.name != now.name) tell(QAccessibleEvent(view, QAccessible::NameChanged));
  if (descriptionOf(before) != descriptionOf(now)) {
    tell(QAccessibleEvent(view, QAccessible::DescriptionChanged));
  }
  const bool number = now.value.empty() && before.number != now.number;
  if (before.value != now.value || number)
    tell(QAccessibleValueChangeEvent(view, toQString(now.value)));
  QAccessible::State changed;
  changed.checked = before.checked != now.checked;
  changed.selected = before.selected != now.selected;
  changed.disabled = before.enabled != now.enabled;
  changed.focused = before.focused != now.focused;
  if (changed.checked || changed.selected || changed.disabled || changed.focused) {
    tell(QAccessibleStateChangeEvent(view, changed));
  }
  if (now.focused && !before.focused) tell(QAccessibleEvent(view, QAccessible::Focus));
}

QAccessibleInterface* AccessibleTree::interfaceOf(std::uint64_t id) {
  refresh();
  const auto found = entries_.find(id);
  if (found == entries_.end()) return nullptr;
  Entry& entry = found->second;
  if (entry.accessible == 0) {
    // Qt's table owns it from here on, which the analyser cannot see.
    auto* node = new AccessibleNode(weak_from_this(), id);
    entry.accessible = QAccessible::registerAccessibleInterface(node);  // NOLINT
  }
  return QAccessible::accessibleInterface(entry.accessible);
}

QAccessibleInterface* AccessibleTree::parentOf(std::uint64_t id) {
  const auto found = entries_.find(id);
  if (found == entries_.end() || found->second.parent == 0) {
    return QAccessible::queryAccessibleInterface(&host_);
  }
  return interfaceOf(found->second.parent);
}

QAccessibleInterface* AccessibleTree::childAt(const AccessibilityNode& node, QPoint position) {
  for (auto child = node.children.rbegin(); child != node.children.rend(); ++child) {
    if (!screenRect(*child).contains(position)) continue;
    QAccessibleInterface* inner = childAt(*child, position);
    return inner != nullptr ? inner : interfaceOf(child->id);
  }
  return nullptr;
}

QRect AccessibleTree::screenRect(const AccessibilityNode& node) const {
  const QRect rect = toQRectF(node.bounds).toAlignedRect();
  return {host_.mapToGlobal(rect.topLeft()), rect.size()};
}

}  // namespace zq::qt
