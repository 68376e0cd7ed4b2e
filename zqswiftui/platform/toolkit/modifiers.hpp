// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <concepts>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/accessibility.hpp>
#include <zqswiftui/platform/toolkit/binding.hpp>
#include <zqswiftui/platform/toolkit/environment.hpp>
#include <zqswiftui/platform/toolkit/events.hpp>
#include <zqswiftui/platform/toolkit/geometry.hpp>

// Included by view.hpp.

namespace zq {

class View;
class ShapeView;

// A fixed width or height; one that is not given is left to the view. Those that hold a text are
// given for texts of the usual size, and are the greater where the text scale is above 1.
struct Frame {
  std::optional<double> width = std::nullopt;
  std::optional<double> height = std::nullopt;
  Alignment alignment = Alignment::center();
  bool growsWithText = false;
  bool operator==(const Frame&) const = default;
};

// Bounds of the size; a maximum of infinity takes all that is offered.
struct FlexFrame {
  std::optional<double> minWidth = std::nullopt;
  std::optional<double> maxWidth = std::nullopt;
  std::optional<double> minHeight = std::nullopt;
  std::optional<double> maxHeight = std::nullopt;
  Alignment alignment = Alignment::center();
  bool operator==(const FlexFrame&) const = default;
};

inline constexpr double kInfinity = __builtin_inf();  // without <limits>, which is long

// What every view can be wrapped in. Each returns a new view; lengths are points, and those
// that are not finite or negative count as zero. Derive a component from
// ViewModifiers<ItsType> to call these on it directly.
template <class Self>
class ViewModifiers {
 public:
  // Size and place.
  View frame(Frame frame) const;
  View frame(double width, double height) const;
  View flexFrame(FlexFrame frame) const;
  View padding(double length = 8) const;
  View padding(EdgeInsets insets) const;
  View fixedSize() const;                 // the ideal size, whatever is proposed
  View offset(double x, double y) const;  // drawn and hit elsewhere; layout does not change
  View scale(double factor) const;        // about the centre; layout does not change
  View layoutPriority(double priority) const;

  // Look.
  View opacity(double opacity) const;
  View background(View view, Alignment alignment = Alignment::center()) const;
  View overlay(View view, Alignment alignment = Alignment::center()) const;
  View clipShape(const ShapeView& shape) const;
  View clipped() const;
  View foregroundColor(std::optional<Color> color) const;
  View font(Font font) const;
  View multilineTextAlignment(TextAlignment alignment) const;
  View lineLimit(int lines) const;

  // Input. Null callbacks do nothing, and leave the view as it was.
  // Reached by Tab, pressed by Space or Enter; what is no stop is pressed by the pointer and by
  // assistive technology alone.
  View onTap(std::function<void()> action, TabStop stop = TabStop::yes) const;
  // Told at once when the primary button goes down on it, unless something in front takes it: the
  // how manieth of presses in quick succession it is. Taps and drags begin all the same.
  View onPress(std::function<void(int clicks)> action) const;
  // A press of the other button, or the menu key on what has the focus in here; the point is one
  // of this view.
  View onSecondaryTap(std::function<void(Point point)> action) const;
  View onHover(std::function<void(bool inside)> action) const;
  // Reached by Tab and by a click, and told the keys from then on; answers whether it took one.
  // The ring around what has the focus lies so far inside of the view.
  View onKey(std::function<bool(const KeyEvent& key)> action, double ringInset = 0) const;
  // Told the keys that what has the focus in here leaves over; is not reached by Tab itself.
  View onLeftoverKey(std::function<bool(const KeyEvent& key)> action) const;
  // Told whether it, or something in it, has the focus, in a window that has it; false at first.
  View onFocus(std::function<void(bool focused)> action) const;
  View gesture(DragGesture gesture) const;
  View onDrop(DropTarget target) const;
  // Points of the view at which it, and what is in it, is not there for the pointer answer false.
  View hitArea(std::function<bool(Point point)> contains) const;
  // Presses what is inside, from anywhere; a text field has the focus then.
  View keyboardShortcut(Shortcut shortcut) const;
  // Does something from anywhere in the window, while this view is shown and not disabled.
  View onShortcut(Shortcut shortcut, std::function<void()> action) const;
  View disabled(bool disabled = true) const;
  View cursor(Cursor cursor) const;
  View help(std::string text) const;  // shown near the pointer after a moment

  // Life.
  View onAppear(std::function<void()> action) const;
  View onDisappear(std::function<void()> action) const;
  // Told first, and after each change, whether any of it can be seen: not when it is scrolled
  // away, the window is hidden or the view gone. For work that is done only for who looks.
  View onVisibility(std::function<void(bool visible)> action) const;
  // The same of the part that can be seen, in points of this view; empty where none can.
  View onVisiblePart(std::function<void(const Rect& part)> action) const;
  // Scrolls the views around it as far as needed to show the part, in points of this view, when it
  // is first shown, and each time that the part or the turn is another.
  View revealing(std::optional<Rect> part, unsigned turn = 0) const;
  // Gives the focus to the first place of Tab in it, each time that the turn is another than that
  // of the frame before.
  View takingFocus(unsigned turn) const;
  template <std::equality_comparable T>
  View onChange(T value, std::type_identity_t<std::function<void(const T&)>> action) const;

  // Meaning.
  View accessibility(Accessibility info) const;
  View accessibilityLabel(std::string label) const;
  View id(std::string id) const;  // identity: another id is another view; also found by tests
  template <class Key>
  View environment(typename Key::Value value) const;
  template <class T>
  View environmentObject(std::shared_ptr<T> object) const;
  // Content in a bubble beside the view while the binding is true; Escape and a click
  // elsewhere set it to false. Shortcuts behind it are not heard while it is open, and Tab goes
  // to the places in it, where there are any. Its middle is on the view's, or its leading or
  // trailing edge on the view's.
  View popover(Binding<bool> isPresented, View content,
               HorizontalAlignment alignment = HorizontalAlignment::center) const;

  // For a defaulted comparison of Self, and for no more: one that Self inherited would call any
  // two of them equal, and neither would ever be evaluated again.
  template <std::same_as<ViewModifiers> Exactly>
  bool operator==(const Exactly&) const {
    return true;
  }

 private:
  View view() const;
};

namespace modify {

View frame(View view, const Frame& frame);
View flexFrame(View view, const FlexFrame& frame);
View padding(View view, EdgeInsets insets);
View fixedSize(View view);
View offset(View view, double x, double y);
View scale(View view, double factor);
View layoutPriority(View view, double priority);
View opacity(View view, double opacity);
View background(View view, View behind, Alignment alignment);
View overlay(View view, View front, Alignment alignment);
View clipShape(View view, const ShapeView& shape);
View clipped(View view);
View environment(View view, std::function<void(Environment&)> change);
View onTap(View view, std::function<void()> action, TabStop stop);
View onPress(View view, std::function<void(int)> action);
View onSecondaryTap(View view, std::function<void(Point)> action);
View onHover(View view, std::function<void(bool)> action);
View onKey(View view, std::function<bool(const KeyEvent&)> action, double ringInset);
View onLeftoverKey(View view, std::function<bool(const KeyEvent&)> action);
View onFocus(View view, std::function<void(bool)> action);
View gesture(View view, DragGesture gesture);
View onDrop(View view, DropTarget target);
View hitArea(View view, std::function<bool(Point)> contains);
View keyboardShortcut(View view, Shortcut shortcut);
View onShortcut(View view, Shortcut shortcut, std::function<void()> action);
View cursor(View view, Cursor cursor);
View help(View view, std::string text);
View onAppear(View view, std::function<void()> action);
View onDisappear(View view, std::function<void()> action);
View onVisibility(View view, std::function<void(bool)> action);
View onVisiblePart(View view, std::function<void(const Rect&)> action);
View revealing(View view, const std::optional<Rect>& part, unsigned turn);
View takingFocus(View view, unsigned turn);
// A value to watch, without its type.
class Watched {
 public:
  virtual ~Watched() = default;
  virtual bool sameAs(const Watched& other) const = 0;
  virtual void tell() const = 0;
};
View onChange(View view, const void* type, std::shared_ptr<const Watched> watched);
View accessibility(View view, Accessibility info);
View accessibilityLabel(View view, std::string label);
View id(View view, std::string id);
View popover(View view, Binding<bool> isPresented, View content, HorizontalAlignment alignment);

}  // namespace modify
}  // namespace zq
