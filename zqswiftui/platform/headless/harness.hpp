// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/base/drag_items.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>
#include <zqswiftui/platform/headless/recording_canvas.hpp>
#include <zqswiftui/platform/toolkit/view_host.hpp>

namespace zq {

// Something that was found on the screen, as it was at that moment: ask again after a change.
// True where something was found. Bounds in points of the window.
struct Element {
  Element() = default;  // so that {x, y} can only be a point
  bool found = false;
  std::uint64_t id = 0;  // of the accessibility tree; 0 for what was found by its drawing
  Rect bounds;
  Rect visible;  // the part that is not clipped away

  // What it is to a screen reader.
  Role role = Role::none;
  std::string name;
  std::string value;
  std::string description;
  std::optional<bool> checked;
  std::optional<bool> selected;
  bool enabled = true;
  bool focusable = false;
  bool focused = false;

  // What is drawn inside its bounds: all texts, joined by blanks; the first symbol; font and
  // colour of the first text or symbol, and how strongly it shows: the product of all opacities
  // around it. Zero where nothing is drawn.
  std::string text;
  std::string symbol;
  FontSpec font;
  Paint paint;
  double opacity = 0;

  explicit operator bool() const { return found; }
  // Its colour; primary where it is drawn with a gradient.
  Color color() const;
  Point center() const;  // of the visible part
};

// A window without a display: shows a view, runs its frames on the virtual clock, finds what a
// user finds and does what a user does. Everything settles before a call returns: frames run
// until nothing asks for one. A screen that never comes to rest, and input on an element that
// was not found, stop the program with a sentence. Interface thread only; two runs are
// identical. Uses the HeadlessPlatform that is installed, or brings its own.
//
//   Harness screen(SettingsView(config), {400, 300});
//   screen.click(screen.button("Save"));
//   check(screen.findText("Saved").opacity == 1);
class Harness : private HostDelegate {
 public:
  explicit Harness(View root, Size size = {400, 300});
  ~Harness() override;

  HeadlessPlatform& platform() { return *platform_; }
  ViewHost& host() { return *host_; }

  // --- Finding. The first in the order of the tree; an empty name fits all. ---
  Element find(Role role, std::string_view name = {});
  Element button(std::string_view name) { return find(Role::button, name); }
  Element findText(std::string_view text);      // a text that is drawn, whole
  Element findSymbol(std::string_view symbol);  // "star.fill"
  Element findId(std::string_view id);          // what .id(…) named
  Element focused();
  std::vector<Element> all(Role role);
  std::vector<Element> texts();    // all that can be read, in painting order
  std::vector<Element> symbols();  // all symbols that can be seen
  std::vector<DrawnCommand> drawn();

  // --- Pointer. What is given an element goes to the middle of what is visible of it. ---
  void click(Point point);
  void click(const Element& element) { click(place(element)); }
  void doubleClick(const Element& element);
  void press(Point point);
  void press(const Element& element) { press(place(element)); }
  void release();  // where the pointer is
  void moveTo(Point point);
  void hover(const Element& element) { moveTo(place(element)); }
  void leave();
  // Pressed at the first point, moved in so many steps, released at the second.
  void drag(Point from, Point to, int steps = 4);
  bool wheel(Point point, double deltaX, double deltaY);
  bool wheel(const Element& element, double deltaY) { return wheel(place(element), 0, deltaY); }
  // A drag from elsewhere: over the point, and dropped there. Its location is set here.
  bool dragOver(Point point, DropInfo info);
  void dragLeave();
  bool drop(Point point, DropInfo info);
  bool drop(Point point, DragItems items);  // of draggedUrls or draggedText

  // --- Keyboard. Each answers whether something took it. ---
  bool key(Key key, Modifiers modifiers = {});
  bool type(std::string_view text);  // one key a character
  bool tab(bool backwards = false);  // false at the end: nothing is focused then

  // --- Window and time ---
  void setRoot(View root);
  void resize(Size size);
  void setAppearance(const AppearanceValues& values);
  void setWindowActive(bool active);
  void setVisible(bool visible);
  // Lets time pass: frames at a sixtieth of a second while something moves, timers as they
  // come due.
  void advance(double seconds);
  // What the main queue holds and the frames that are asked for; after changes from outside.
  void settle();

  // --- Looking ---
  // One command a line with its place, groups indented.
  std::string displayList() { return host_->displayListText(); }
  // One element a line: role, name, value, states; children indented.
  std::string accessibility();
  WorkCounts counts() const { return host_->counts(); }
  // What was painted again since the last call of anything above that does something.
  const Region& damage() const { return painted_; }
  // How often the window was asked for a frame.
  std::uint64_t framesAsked() const { return asked_; }
  Cursor cursor() const { return cursor_; }
  const std::string& help() const { return help_; }

 private:
  void frameRequested() override { ++asked_; }
  void cursorChanged(Cursor cursor) override { cursor_ = cursor; }
  void helpChanged(const std::string& text, const Rect&) override { help_ = text; }
  void frame();
  void runFrames();
  bool finish(bool taken);
  void movePointer(Point point);
  void pressPointer(Point point, int clicks = 1);
  void releasePointer();
  Point place(const Element& element) const;
  Element describe(const AccessibilityNode& node, const std::vector<DrawnCommand>& drawn) const;

  std::unique_ptr<HeadlessPlatform> own_;
  HeadlessPlatform* platform_;
  std::unique_ptr<ViewHost> host_;
  std::atomic<std::uint64_t> asked_{0};
  Region painted_;
  Point pointer_;
  Cursor cursor_ = Cursor::arrow;
  std::string help_;
};

}  // namespace zq
