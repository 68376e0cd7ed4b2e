// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <concepts>
#include <memory>
#include <string>
#include <typeinfo>
#include <utility>

namespace zq {

class Context;
class Node;
class View;
struct NodePlace;

// A value behind a View: immutable, shared, with the recipe for its node in the tree.
class ViewValue {
 public:
  virtual ~ViewValue() = default;
  ViewValue(const ViewValue&) = delete;
  ViewValue& operator=(const ViewValue&) = delete;

  // Two values of one type id can update each other's nodes.
  virtual const void* typeId() const = 0;
  // Whether showing the other one would look and behave the same. Of the same type id.
  virtual bool equals(const ViewValue&) const { return false; }
  virtual std::unique_ptr<Node> makeNode(const NodePlace& place) const = 0;

 protected:
  ViewValue() = default;

 private:
  friend class View;
  mutable unsigned references_ = 0;  // any thread, by the builtins: <atomic> is long
};

// Asked for its body first: whether it can be copied would ask for its conversions to a view.
template <class T>
concept Component = requires(const T& value, Context& context) {
  { value.body(context) } -> std::same_as<View>;
};

template <class Self>
class ViewModifiers;

// Any view: immutable, cheap to copy, without position or state. An empty one shows nothing
// and takes no room. A type with `View body(Context&) const` converts to it.
class View;

}  // namespace zq

#include <zqswiftui/platform/toolkit/modifiers.hpp>

namespace zq {

class View : public ViewModifiers<View> {
 public:
  View() = default;
  template <Component C>
  View(C component);  // NOLINT(google-explicit-constructor): a component is a view
  explicit View(const ViewValue* value) : value_(value) { retain(); }
  View(const View& other) : ViewModifiers<View>(), value_(other.value_) { retain(); }
  View(View&& other) noexcept : value_(std::exchange(other.value_, nullptr)) {}
  View& operator=(View other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~View() { release(); }

  template <class V, class... Args>
  static View make(Args&&... args) {
    return View(new V(std::forward<Args>(args)...));
  }

  const ViewValue* value() const { return value_; }
  bool empty() const { return value_ == nullptr; }
  const void* typeId() const { return value_ ? value_->typeId() : nullptr; }

  // Equal where they are one value, or show the same as far as can be told.
  friend bool operator==(const View& a, const View& b) {
    if (a.value_ == b.value_) return true;
    return a.typeId() == b.typeId() && a.value_ && b.value_ && a.value_->equals(*b.value_);
  }

 private:
  void retain() const {
    if (value_) __atomic_fetch_add(&value_->references_, 1, __ATOMIC_RELAXED);
  }
  void release() {
    if (!value_ || __atomic_sub_fetch(&value_->references_, 1, __ATOMIC_ACQ_REL) != 0) return;
    delete value_;  // NOLINT(clang-analyzer-cplusplus.NewDelete): it cannot follow the count
  }
  const ViewValue* value_ = nullptr;
};

namespace detail {

template <class T>
inline const char viewTypeId = 0;

// What the node of a component needs of it, without its type.
class ComponentValueBase : public ViewValue {
 public:
  std::unique_ptr<Node> makeNode(const NodePlace& place) const final;
  virtual View body(Context& context) const = 0;
  virtual const std::type_info& componentType() const = 0;
};

template <Component C>
class ComponentValue final : public ComponentValueBase {
 public:
  explicit ComponentValue(C component) : component_(std::move(component)) {}
  const void* typeId() const override { return &viewTypeId<ComponentValue>; }
  bool equals(const ViewValue& other) const override {
    if constexpr (std::equality_comparable<C>) {
      return component_ == static_cast<const ComponentValue&>(other).component_;
    } else {
      return false;
    }
  }
  View body(Context& context) const override { return component_.body(context); }
  const std::type_info& componentType() const override { return typeid(C); }

 private:
  C component_;
};

}  // namespace detail

template <Component C>
View::View(C component) : value_(new detail::ComponentValue<C>(std::move(component))) {
  retain();
}

}  // namespace zq

#include <zqswiftui/platform/toolkit/modifiers_impl.hpp>
