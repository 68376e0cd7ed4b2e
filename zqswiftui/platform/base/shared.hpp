// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <utility>

namespace zq {

// A std::shared_ptr for fields of public headers, read in the same way: whatever they point to,
// all are made of one kind of pointer, which a compiler has to work out once. T may be incomplete.
//   struct Content;
//   Shared<const Content> content_;
template <class T>
class Shared {
 public:
  Shared() = default;
  template <class Object>
  Shared(std::shared_ptr<Object> object)  // NOLINT(google-explicit-constructor): as shared_ptr
      : object_(std::shared_ptr<T>(std::move(object))) {}

  // Shares the ownership, for who takes part in it or holds it weakly; as a type made from T, where
  // the object is known to be of that.
  std::shared_ptr<T> pointer() const { return as<T>(); }
  template <class Made>
  std::shared_ptr<Made> as() const {
    return std::shared_ptr<Made>(object_, static_cast<Made*>(get()));
  }
  T* get() const { return static_cast<T*>(const_cast<void*>(object_.get())); }
  T& operator*() const { return *get(); }
  T* operator->() const { return get(); }
  long use_count() const { return object_.use_count(); }
  explicit operator bool() const { return object_ != nullptr; }
  void reset() { object_.reset(); }

  // Of the same object.
  bool operator==(const Shared&) const = default;

 private:
  std::shared_ptr<const void> object_;
};

}  // namespace zq
