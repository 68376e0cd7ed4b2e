// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/toolkit/view_host.hpp>

namespace zq {

// "button", "textField": the name of the enumerator.
std::string_view roleName(Role role);

// Looks at the views of a host from outside and tells what there is, and what the last frame did:
// for a window to draw over the views, for tests to read. It changes no view, asks for no frame and
// is no part of what the host counts; while it lives, each frame notes what it evaluated. The host
// must outlive it; there may be one for each. Points of the window. Interface thread only.
class Inspector {
 public:
  explicit Inspector(ViewHost& host);
  ~Inspector();
  Inspector(const Inspector&) = delete;
  Inspector& operator=(const Inspector&) = delete;

  // Call it after each ViewHost::frame(), before the damage is cleared: what that frame evaluated
  // and damaged is lit up until endFlash().
  void frameEnded();
  void endFlash();
  // Whether something else is drawn for it now. None: the pointer is elsewhere.
  bool setPointer(std::optional<Point> point);

  // A component that the last frame evaluated, and what of it can be seen.
  struct Evaluated {
    std::string name;  // of its type, without namespaces
    Rect visible;
  };
  const std::vector<Evaluated>& evaluated() const { return evaluated_; }

  // All that is to be drawn over the views, the last in front: what is lit up, an outline of each
  // element that assistive technology sees, what is under the pointer, and the counts of the last
  // frame; those of pieces are known once the views are painted.
  std::vector<DrawCommand> commands();
  void paint(Canvas& canvas);

 private:
  struct Outlined {
    AccessibilityNode node;  // without its children
    Rect visible;
  };
  void lookAgain();
  void outline(AccessibilityNode& node, const Rect& clip);
  const Outlined* underPointer() const;
  void addLabel(std::vector<DrawCommand>& commands, const Outlined& of) const;
  void addCounts(std::vector<DrawCommand>& commands);

  ViewHost& host_;
  std::optional<Point> pointer_;
  std::vector<Outlined> elements_;
  std::uint64_t elementsOf_ = 0;  // the version of the accessibility tree
  std::vector<Evaluated> evaluated_;
  Region painted_;
  bool flashing_ = false;
  WorkCounts before_;  // the last frame
  WorkCounts seen_;
};

}  // namespace zq
