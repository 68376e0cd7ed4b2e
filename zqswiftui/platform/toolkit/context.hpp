// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <concepts>
#include <memory>
#include <typeinfo>
#include <utility>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/toolkit/binding.hpp>
#include <zqswiftui/platform/toolkit/environment.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>

namespace zq {

class ComponentNode;
class Context;

namespace detail {

// A change of a state or an observed object on its way to the view that must be evaluated.
class ViewMark;

class StateCellBase {
 public:
  virtual ~StateCellBase() = default;

 protected:
  // Stops the program when a body is running or on a thread that is not the interface thread.
  void changed() const;

 private:
  friend class zq::Context;
  std::weak_ptr<ViewMark> mark_;
};

template <class T>
class StateCell final : public StateCellBase {
 public:
  explicit StateCell(T initial) : value_(std::move(initial)) {}
  const T& value() const { return value_; }
  void set(T value) {
    if constexpr (std::equality_comparable<T>) {
      if (value_ == value) return;
    }
    value_ = std::move(value);
    changed();
  }

 private:
  T value_;
};

}  // namespace detail

// A value that lives with a view's place in the tree. Copies are handles of the same value;
// one that outlives its view still holds it, and its writes are heard by nobody. Interface
// thread only; not to be written while a body runs. Writing an equal value does nothing.
template <class T>
class State {
 public:
  explicit State(std::shared_ptr<detail::StateCell<T>> cell) : cell_(std::move(cell)) {}
  const T& operator*() const { return cell_->value(); }
  const T* operator->() const { return &cell_->value(); }
  const T& get() const { return cell_->value(); }
  void set(T value) const { cell_->set(std::move(value)); }
  Binding<T> binding() const {
    return Binding<T>([cell = cell_] { return cell->value(); },
                      [cell = cell_](const T& value) { cell->set(value); });
  }

 private:
  std::shared_ptr<detail::StateCell<T>> cell_;
};

// What a body may ask for. Valid only while that body runs.
class Context {
 public:
  explicit Context(ComponentNode& node) : node_(node) {}
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;

  // The state at this place: each call of a body names one, in the same order every time.
  // Another order, number or type stops the program with the component's name.
  template <class T>
  State<T> state(T initial) {
    if (auto known = nextState(typeid(T))) {
      return State<T>(known.template as<detail::StateCell<T>>());
    }
    auto cell = std::make_shared<detail::StateCell<T>>(std::move(initial));
    addState(cell, typeid(T));
    return State<T>(std::move(cell));
  }

  // Like state, made by a function that runs once: for objects that a view owns.
  template <std::invocable F>
  auto stateOf(F make) -> State<std::invoke_result_t<F>> {
    using T = std::invoke_result_t<F>;
    if (auto known = nextState(typeid(T))) {
      return State<T>(known.template as<detail::StateCell<T>>());
    }
    auto cell = std::make_shared<detail::StateCell<T>>(make());
    addState(cell, typeid(T));
    return State<T>(std::move(cell));
  }

  // Evaluates this view again after each change of the object, for as long as its body goes
  // on asking. The object must not be null.
  template <std::derived_from<ObservableObject> T>
  T& observe(const std::shared_ptr<T>& object) {
    observeObject(object);
    return *object;
  }
  template <std::derived_from<ObservableObject> T>
  T& observe(const Shared<T>& object) {
    return observe(object.pointer());
  }

  template <class Key>
  typename Key::Value environment() {
    return readEnvironment<Key>(environmentValues());
  }

  // The object that an ancestor set, observed; stops the program where none did.
  template <std::derived_from<ObservableObject> T>
  T& environmentObject() {
    const void* found = environmentValues().find(&detail::environmentObjectId<T>);
    requireObject(found != nullptr, typeid(T));
    return observe(*static_cast<const std::shared_ptr<T>*>(found));
  }

 private:
  Shared<detail::StateCellBase> nextState(const std::type_info& type);
  void addState(const std::shared_ptr<detail::StateCellBase>& cell, const std::type_info& type);
  void observeObject(const std::shared_ptr<ObservableObject>& object);
  const Environment& environmentValues();
  void requireObject(bool found, const std::type_info& type);

  ComponentNode& node_;
};

}  // namespace zq
