// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>
#include <zqswiftui/platform/services/appearance.hpp>
#include <zqswiftui/platform/toolkit/accessibility.hpp>
#include <zqswiftui/platform/toolkit/canvas.hpp>
#include <zqswiftui/platform/toolkit/events.hpp>
#include <zqswiftui/platform/toolkit/region.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

class Tree;

// What a window must be able to do for the tree in it. Interface thread, but for frameRequested.
class HostDelegate {
 public:
  virtual ~HostDelegate() = default;
  // Call ViewHost::frame() soon, on the interface thread. Comes once, from any thread, until
  // the next frame has begun. The lock that keeps a change on another thread from meeting the
  // end of this delegate is held meanwhile: post something and return, and call neither the
  // tree nor a state from inside.
  virtual void frameRequested() = 0;
  virtual void cursorChanged(Cursor) {}
  // A help text for what is under the pointer; empty: take it away.
  virtual void helpChanged(const std::string& /*text*/, const Rect& /*bounds*/) {}
};

// A text field as the host's native editor needs it. Bounds in points of the window; clip is
// the part of them that shows, but for what bubbles above the field cover.
struct TextFieldState {
  std::uint64_t id = 0;
  Rect bounds;
  Rect clip;
  std::vector<Rect> covered;
  std::string text;
  std::string placeholder;
  FontSpec font;
  RGBA color;
  TextAlignment alignment = TextAlignment::leading;
  LayoutDirection direction = LayoutDirection::leftToRight;
  bool enabled = true;
  bool focused = false;
  bool operator==(const TextFieldState&) const = default;

  // Of the colour, how strongly texts that are no more than a hint are written, and those of
  // fields that are disabled. A hint can be read, at a contrast of 4.5:1 for primary.
  static constexpr double kPlaceholderOpacity = 0.7;
  static constexpr double kDisabledOpacity = 0.4;
  double opacity() const {
    if (!enabled) return kDisabledOpacity;
    return text.empty() ? kPlaceholderOpacity : 1;
  }
};

// Counts of work since the host was made, for tests and benchmarks.
struct WorkCounts {
  std::uint64_t frames = 0;
  std::uint64_t bodies = 0;
  std::uint64_t textsMeasured = 0;
  std::uint64_t piecesRecorded = 0;
  std::uint64_t nodesCreated = 0;
};

// One tree of views in one area of a window: takes size and input, runs frames, paints.
//   1. mark   2. evaluate   3. measure and place   4. record   5. play
// frame() runs 1 to 4 where something asked for it, paint() plays. Interface thread only.
class ViewHost {
 public:
  ViewHost(View root, HostDelegate& delegate);
  ~ViewHost();
  ViewHost(const ViewHost&) = delete;
  ViewHost& operator=(const ViewHost&) = delete;

  void setRoot(View root);
  // Sizes below zero and NaN count as zero.
  void setSize(Size size);
  Size size() const;
  // What the root would like to have under the proposal; runs pending evaluations.
  Size sizeThatFits(const ProposedSize& proposal);
  void setAppearance(const AppearanceValues& values);
  // The platform's fonts are others now: every text is measured and drawn anew.
  void fontsChanged();
  void setWindowActive(bool active);
  // A hidden window's views end hovering and ask for no frames of animations.
  void setVisible(bool visible);

  bool needsFrame() const;
  // An animation runs: call frame() at the screen's pace until it does not.
  bool animating() const;
  void frame();
  // What must be painted again since the last clearDamage().
  const Region& damage() const;
  void clearDamage();
  // Plays the pieces that meet the region, clearing nothing: the host fills the background.
  void paint(Canvas& canvas, const Region& region);
  void paintAll(Canvas& canvas);

  // Input. Each answers whether something took it.
  bool pointerDown(Point position, PointerButton button, int clickCount = 1, Modifiers = {});
  bool pointerMove(Point position, Modifiers = {});
  bool pointerUp(Point position, PointerButton button, Modifiers = {});
  void pointerLeft();
  // The element that a press at the point would press, 0 for none. It may lie beside it: a small
  // one reacts in a square of kLeastTarget.
  std::uint64_t pressTarget(Point position) const;
  bool wheel(const WheelEvent& event);
  // What is pressed or dragged is taken away: the host begins a drag out of its window.
  void cancelGestures();
  bool key(const KeyEvent& event);
  // The window's focus came or went; entering by Tab puts it on the first or last place.
  void focusIn(bool fromKeyboard = false, bool last = false);
  void focusOut();
  // Moves the focus; false when it left the tree at that end.
  bool focusNext(bool backwards);
  bool dragMoved(const DropInfo& info);  // whether it would be taken here
  void dragLeft();
  // Those of the types that would be taken here; no other data need be asked for.
  std::vector<std::string> dropTypes(const DropInfo& info) const;
  bool drop(const DropInfo& info);

  // Native text fields, in the order of the tree; the host compares with what it has.
  std::vector<TextFieldState> textFields() const;
  void fieldEdited(std::uint64_t id, const std::string& text);
  void fieldSubmitted(std::uint64_t id);
  void fieldFocused(std::uint64_t id);

  AccessibilityNode accessibilityTree();
  // Grows with every frame after which the accessibility tree may differ.
  std::uint64_t accessibilityVersion() const;
  bool accessibilityPress(std::uint64_t id);
  bool accessibilityFocus(std::uint64_t id);
  // Where the element is adjustable; brought between the number's ends.
  void accessibilitySetNumber(std::uint64_t id, double number);
  bool accessibilitySetValue(std::uint64_t id, const std::string& value);

  // The whole display list, one command a line, groups indented.
  std::string displayListText();
  WorkCounts counts() const;
  Tree& tree() { return *tree_; }

 private:
  std::unique_ptr<Tree> tree_;
};

}  // namespace zq
