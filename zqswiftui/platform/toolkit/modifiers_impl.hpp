// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

// The thin half of modifiers.hpp, which needs View whole. Included by view.hpp.

#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {
namespace detail {

template <class Value>
std::function<void(Environment&)> customEntry(const void* key, Value value) {
  bool (*same)(const void*, const void*) = nullptr;
  if constexpr (std::equality_comparable<Value>) {
    same = [](const void* a, const void* b) {
      return *static_cast<const Value*>(a) == *static_cast<const Value*>(b);
    };
  }
  const Environment::Custom entry{key, std::make_shared<const Value>(std::move(value)), same};
  return [entry](Environment& e) { e.put(entry); };
}

}  // namespace detail

template <class S>
View ViewModifiers<S>::view() const {
  return View(static_cast<const S&>(*this));
}
template <class S>
View ViewModifiers<S>::frame(Frame frame) const {
  return modify::frame(view(), frame);
}
template <class S>
View ViewModifiers<S>::frame(double width, double height) const {
  return modify::frame(view(), {.width = width, .height = height, .alignment = {}});
}
template <class S>
View ViewModifiers<S>::flexFrame(FlexFrame frame) const {
  return modify::flexFrame(view(), frame);
}
template <class S>
View ViewModifiers<S>::padding(double length) const {
  return modify::padding(view(), EdgeInsets::all(length));
}
template <class S>
View ViewModifiers<S>::padding(EdgeInsets insets) const {
  return modify::padding(view(), insets);
}
template <class S>
View ViewModifiers<S>::fixedSize() const {
  return modify::fixedSize(view());
}
template <class S>
View ViewModifiers<S>::offset(double x, double y) const {
  return modify::offset(view(), x, y);
}
template <class S>
View ViewModifiers<S>::scale(double factor) const {
  return modify::scale(view(), factor);
}
template <class S>
View ViewModifiers<S>::layoutPriority(double priority) const {
  return modify::layoutPriority(view(), priority);
}
template <class S>
View ViewModifiers<S>::opacity(double opacity) const {
  return modify::opacity(view(), opacity);
}
template <class S>
View ViewModifiers<S>::background(View behind, Alignment alignment) const {
  return modify::background(view(), std::move(behind), alignment);
}
template <class S>
View ViewModifiers<S>::overlay(View front, Alignment alignment) const {
  return modify::overlay(view(), std::move(front), alignment);
}
template <class S>
View ViewModifiers<S>::clipShape(const ShapeView& shape) const {
  return modify::clipShape(view(), shape);
}
template <class S>
View ViewModifiers<S>::clipped() const {
  return modify::clipped(view());
}
template <class S>
View ViewModifiers<S>::foregroundColor(std::optional<Color> color) const {
  return modify::environment(view(), [color](Environment& e) {
    if (color) e.foreground = color;
  });
}
template <class S>
View ViewModifiers<S>::font(Font font) const {
  return environment<FontKey>(font);
}
template <class S>
View ViewModifiers<S>::multilineTextAlignment(TextAlignment alignment) const {
  return environment<TextAlignmentKey>(alignment);
}
template <class S>
View ViewModifiers<S>::lineLimit(int lines) const {
  return environment<LineLimitKey>(lines > 0 ? lines : 0);
}
template <class S>
View ViewModifiers<S>::onTap(std::function<void()> action, TabStop stop) const {
  return modify::onTap(view(), std::move(action), stop);
}
template <class S>
View ViewModifiers<S>::onPress(std::function<void(int)> action) const {
  return modify::onPress(view(), std::move(action));
}
template <class S>
View ViewModifiers<S>::onHover(std::function<void(bool)> action) const {
  return modify::onHover(view(), std::move(action));
}
template <class S>
View ViewModifiers<S>::onKey(std::function<bool(const KeyEvent&)> action, double ringInset) const {
  return modify::onKey(view(), std::move(action), ringInset);
}
template <class S>
View ViewModifiers<S>::onLeftoverKey(std::function<bool(const KeyEvent&)> action) const {
  return modify::onLeftoverKey(view(), std::move(action));
}
template <class S>
View ViewModifiers<S>::onFocus(std::function<void(bool)> action) const {
  return modify::onFocus(view(), std::move(action));
}
template <class S>
View ViewModifiers<S>::onSecondaryTap(std::function<void(Point)> action) const {
  return modify::onSecondaryTap(view(), std::move(action));
}
template <class S>
View ViewModifiers<S>::gesture(DragGesture gesture) const {
  return modify::gesture(view(), std::move(gesture));
}
template <class S>
View ViewModifiers<S>::onDrop(DropTarget target) const {
  return modify::onDrop(view(), std::move(target));
}
template <class S>
View ViewModifiers<S>::hitArea(std::function<bool(Point)> contains) const {
  return modify::hitArea(view(), std::move(contains));
}
template <class S>
View ViewModifiers<S>::keyboardShortcut(Shortcut shortcut) const {
  return modify::keyboardShortcut(view(), std::move(shortcut));
}
template <class S>
View ViewModifiers<S>::onShortcut(Shortcut shortcut, std::function<void()> action) const {
  return modify::onShortcut(view(), std::move(shortcut), std::move(action));
}
template <class S>
View ViewModifiers<S>::disabled(bool disabled) const {
  return modify::environment(view(), [disabled](Environment& e) { e.enabled &= !disabled; });
}
template <class S>
View ViewModifiers<S>::cursor(Cursor cursor) const {
  return modify::cursor(view(), cursor);
}
template <class S>
View ViewModifiers<S>::help(std::string text) const {
  return modify::help(view(), std::move(text));
}
template <class S>
View ViewModifiers<S>::onAppear(std::function<void()> action) const {
  return modify::onAppear(view(), std::move(action));
}
template <class S>
View ViewModifiers<S>::onDisappear(std::function<void()> action) const {
  return modify::onDisappear(view(), std::move(action));
}
template <class S>
View ViewModifiers<S>::onVisibility(std::function<void(bool)> action) const {
  return modify::onVisibility(view(), std::move(action));
}
template <class S>
View ViewModifiers<S>::onVisiblePart(std::function<void(const Rect&)> action) const {
  return modify::onVisiblePart(view(), std::move(action));
}
template <class S>
View ViewModifiers<S>::revealing(std::optional<Rect> part, unsigned turn) const {
  return modify::revealing(view(), part, turn);
}
template <class S>
View ViewModifiers<S>::takingFocus(unsigned turn) const {
  return modify::takingFocus(view(), turn);
}
template <class S>
View ViewModifiers<S>::accessibility(Accessibility info) const {
  return modify::accessibility(view(), std::move(info));
}
template <class S>
View ViewModifiers<S>::accessibilityLabel(std::string label) const {
  return modify::accessibilityLabel(view(), std::move(label));
}
template <class S>
View ViewModifiers<S>::id(std::string id) const {
  return modify::id(view(), std::move(id));
}
template <class S>
View ViewModifiers<S>::popover(Binding<bool> isPresented, View content,
                               HorizontalAlignment alignment) const {
  return modify::popover(view(), std::move(isPresented), std::move(content), alignment);
}

template <class S>
template <class Key>
View ViewModifiers<S>::environment(typename Key::Value value) const {
  if constexpr (EnvironmentField<Key>) {
    return modify::environment(view(), [value](Environment& e) { Key::set(e, value); });
  } else {
    using Value = typename Key::Value;
    return modify::environment(
        view(), detail::customEntry<Value>(&detail::environmentKeyId<Key>, std::move(value)));
  }
}

template <class S>
template <class T>
View ViewModifiers<S>::environmentObject(std::shared_ptr<T> object) const {
  return modify::environment(
      view(), detail::customEntry<std::shared_ptr<T>>(&detail::environmentObjectId<T>, object));
}

namespace detail {

template <class T>
class WatchedValue final : public modify::Watched {
 public:
  WatchedValue(T value, std::function<void(const T&)> action)
      : value_(std::move(value)), action_(std::move(action)) {}
  bool sameAs(const Watched& other) const override {
    return value_ == static_cast<const WatchedValue&>(other).value_;
  }
  void tell() const override {
    if (action_) action_(value_);
  }

 private:
  T value_;
  std::function<void(const T&)> action_;
};

}  // namespace detail

template <class S>
template <std::equality_comparable T>
View ViewModifiers<S>::onChange(T value,
                                std::type_identity_t<std::function<void(const T&)>> action) const {
  using Watched = detail::WatchedValue<T>;
  return modify::onChange(view(), &detail::viewTypeId<Watched>,
                          std::make_shared<Watched>(std::move(value), std::move(action)));
}

}  // namespace zq
