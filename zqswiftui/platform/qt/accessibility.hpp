// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QAccessible>
#include <QPoint>
#include <QRect>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>
#include <zqswiftui/platform/toolkit/accessibility.hpp>

namespace zq::qt {

class HostWidget;

// Lets Qt find what is inside host widgets. Once, when the platform starts.
void installAccessibility();

// A host's views for assistive technology: an interface for each that is asked for, as long
// as its view lives. Nothing is built until somebody asks. Interface thread only.
class AccessibleTree : public std::enable_shared_from_this<AccessibleTree> {
 public:
  explicit AccessibleTree(HostWidget& host) : host_(host) {}
  ~AccessibleTree();
  AccessibleTree(const AccessibleTree&) = delete;
  AccessibleTree& operator=(const AccessibleTree&) = delete;

  // Tells listeners what the frame changed.
  void frameEnded();

  HostWidget& host() const { return host_; }
  // Null where the view has gone; valid until the next frame.
  const AccessibilityNode* find(std::uint64_t id);
  const AccessibilityNode& root();
  QAccessibleInterface* interfaceOf(std::uint64_t id);
  // That of the widget itself for the topmost ones.
  QAccessibleInterface* parentOf(std::uint64_t id);
  // The innermost one at that place of the screen among the node's own.
  QAccessibleInterface* childAt(const AccessibilityNode& node, QPoint position);
  QRect screenRect(const AccessibilityNode& node) const;

 private:
  struct Entry {
    const AccessibilityNode* node = nullptr;
    std::uint64_t parent = 0;
    QAccessible::Id accessible = 0;
  };
  using Entries = std::unordered_map<std::uint64_t, Entry>;
  void refresh();
  void enter(const AccessibilityNode& node, Entries& entries, const Entries& old);
  void tellChanges(const AccessibilityNode& before, const AccessibilityNode& now,
                   QAccessible::Id accessible);

  HostWidget& host_;
  bool asked_ = false;
  bool telling_ = false;
  std::uint64_t version_ = 0;
  AccessibilityNode root_;
  Entries entries_;
};

// The node's part in Qt's words.
QAccessible::Role toQRole(Role role);

}  // namespace zq::qt
