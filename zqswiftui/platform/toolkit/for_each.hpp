// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <concepts>
#include <cstddef>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

namespace detail {

// The children of a ForEach without their types. Compared in bulk, over plain arrays.
class ForEachSource {
 public:
  virtual ~ForEachSource() = default;
  virtual const void* type() const = 0;
  virtual std::size_t size() const = 0;
  virtual View makeView(std::size_t index) const = 0;
  // How many at the start are the same, key and look; `old` is of the same type.
  virtual std::size_t commonPrefix(const ForEachSource& old) const = 0;
  // The same at the end, leaving the first `prefix` of both out.
  virtual std::size_t commonSuffix(const ForEachSource& old, std::size_t prefix) const = 0;
  virtual bool sameKey(std::size_t i, const ForEachSource& old, std::size_t j) const = 0;
  virtual bool sameLook(std::size_t i, const ForEachSource& old, std::size_t j) const = 0;
  virtual std::size_t keyHash(std::size_t i) const = 0;
};

View forEachView(Shared<const ForEachSource> source);

struct NoContext {
  bool operator==(const NoContext&) const = default;
};

// Children that are a function of an item and a context alone: made when they are shown, and
// the same as long as the item and the context are.
template <class T, class Key, class Extra, class Content>
class ItemSource final : public ForEachSource {
 public:
  ItemSource(std::shared_ptr<const std::vector<T>> items, Key key, Extra extra, Content content)
      : items_(std::move(items)), key_(key), extra_(std::move(extra)), content_(content) {}
  const void* type() const override { return &viewTypeId<ItemSource>; }
  std::size_t size() const override { return items_->size(); }
  View makeView(std::size_t i) const override { return View(content_((*items_)[i], extra_)); }
  std::size_t commonPrefix(const ForEachSource& other) const override {
    const auto& o = cast(other);
    if (!(extra_ == o.extra_)) return 0;
    if (items_ == o.items_) return items_->size();
    const std::size_t most = std::min(items_->size(), o.items_->size());
    std::size_t n = 0;
    while (n < most && (*items_)[n] == (*o.items_)[n]) ++n;
    return n;
  }
  std::size_t commonSuffix(const ForEachSource& other, std::size_t prefix) const override {
    const auto& o = cast(other);
    if (!(extra_ == o.extra_)) return 0;
    const std::size_t most = std::min(items_->size(), o.items_->size()) - prefix;
    const T* mine = items_->data() + items_->size();
    const T* theirs = o.items_->data() + o.items_->size();
    std::size_t n = 0;
    while (n < most && mine[-1 - static_cast<std::ptrdiff_t>(n)] ==
                           theirs[-1 - static_cast<std::ptrdiff_t>(n)]) {
      ++n;
    }
    return n;
  }
  bool sameKey(std::size_t i, const ForEachSource& other, std::size_t j) const override {
    return key_((*items_)[i]) == key_((*cast(other).items_)[j]);
  }
  bool sameLook(std::size_t i, const ForEachSource& other, std::size_t j) const override {
    const auto& o = cast(other);
    return extra_ == o.extra_ && (*items_)[i] == (*o.items_)[j];
  }
  std::size_t keyHash(std::size_t i) const override {
    using K = std::remove_cvref_t<decltype(key_((*items_)[i]))>;
    return std::hash<K>()(key_((*items_)[i]));
  }

 private:
  static const ItemSource& cast(const ForEachSource& s) {
    return static_cast<const ItemSource&>(s);
  }
  std::shared_ptr<const std::vector<T>> items_;
  [[no_unique_address]] Key key_;
  [[no_unique_address]] Extra extra_;
  [[no_unique_address]] Content content_;
};

// Children that a function with captures answered: kept as an array of their own type.
template <class K, class Child>
class ChildSource final : public ForEachSource {
 public:
  ChildSource(std::vector<K> keys, std::vector<Child> children)
      : keys_(std::move(keys)), children_(std::move(children)) {}
  const void* type() const override { return &viewTypeId<ChildSource>; }
  std::size_t size() const override { return children_.size(); }
  View makeView(std::size_t i) const override { return View(children_[i]); }
  std::size_t commonPrefix(const ForEachSource& o) const override {
    const std::size_t most = std::min(size(), o.size());
    std::size_t n = 0;
    while (n < most && sameKey(n, o, n) && sameLook(n, o, n)) ++n;
    return n;
  }
  std::size_t commonSuffix(const ForEachSource& o, std::size_t prefix) const override {
    const std::size_t a = size(), b = o.size(), most = std::min(a, b) - prefix;
    std::size_t n = 0;
    while (n < most && sameKey(a - 1 - n, o, b - 1 - n) && sameLook(a - 1 - n, o, b - 1 - n)) ++n;
    return n;
  }
  bool sameKey(std::size_t i, const ForEachSource& o, std::size_t j) const override {
    return keys_[i] == static_cast<const ChildSource&>(o).keys_[j];
  }
  bool sameLook(std::size_t i, const ForEachSource& o, std::size_t j) const override {
    if constexpr (std::equality_comparable<Child>) {
      return children_[i] == static_cast<const ChildSource&>(o).children_[j];
    } else {
      return false;
    }
  }
  std::size_t keyHash(std::size_t i) const override { return std::hash<K>()(keys_[i]); }

 private:
  std::vector<K> keys_;
  std::vector<Child> children_;
};

// What a function, or a pointer to a member, answers for an item; <functional> is much for that.
template <class Key, class T>
decltype(auto) keyOf(const Key& key, const T& item) {
  if constexpr (std::is_member_object_pointer_v<Key>) {
    return item.*key;
  } else if constexpr (std::is_member_function_pointer_v<Key>) {
    return (item.*key)();
  } else {
    return key(item);
  }
}

template <class C>
concept Captureless = std::is_empty_v<C> && std::is_copy_constructible_v<C>;

}  // namespace detail

// One view for each item, known by its key across changes: a child keeps its state where its
// key is found again, whatever its place. A key that occurs twice is told apart by its
// occurrence. In a stack or a layout the children are the container's own; elsewhere they
// stand one below the other. Children out of sight that have no state cost no view.
//   ForEach(names, [](const std::string& name) { return Text(name); })
//   ForEach(people, &Person::id, [=](const Person& p) { return Row(p, onPick); })
// With a context, content must capture nothing; it runs only for items that differ:
//   ForEach(tags, std::identity{}, color, [](const std::string& t, const Color& c) { ... })
class ForEach : public ViewModifiers<ForEach> {
 public:
  template <class T, class Content>
  ForEach(std::vector<T> items, Content content)
      : ForEach(std::move(items), std::identity{}, std::move(content)) {}

  template <class T, class Key, class Content>
    requires std::invocable<Key, const T&>
  ForEach(std::vector<T> items, Key key, Content content) {
    if constexpr (detail::Captureless<Content> && std::default_initializable<Content> &&
                  std::equality_comparable<T>) {
      const auto ignoring = [](const T& item, const detail::NoContext&) { return Content{}(item); };
      source_ = itemSource(share(std::move(items)), key, detail::NoContext{}, ignoring);
      return;
    }
    using Child = std::remove_cvref_t<std::invoke_result_t<Content, const T&>>;
    using K = std::remove_cvref_t<std::invoke_result_t<Key, const T&>>;
    std::vector<K> keys;
    std::vector<Child> children;
    keys.reserve(items.size());
    children.reserve(items.size());
    for (const T& item : items) {
      keys.push_back(detail::keyOf(key, item));
      children.push_back(content(item));
    }
    source_ =
        std::make_shared<const detail::ChildSource<K, Child>>(std::move(keys), std::move(children));
  }

  template <class T, class Key, std::equality_comparable Extra, detail::Captureless Content>
    requires std::invocable<Content, const T&, const Extra&> && std::equality_comparable<T>
  ForEach(std::vector<T> items, Key key, Extra context, Content content)
      : ForEach(share(std::move(items)), key, std::move(context), content) {}

  // The same over a list that is shared: one that is still the same object is not compared.
  template <class T, class Key, std::equality_comparable Extra, detail::Captureless Content>
    requires std::invocable<Content, const T&, const Extra&> && std::equality_comparable<T>
  ForEach(std::shared_ptr<const std::vector<T>> items, Key key, Extra context, Content content)
      : source_(itemSource(items ? std::move(items) : share(std::vector<T>{}), key,
                           std::move(context), content)) {}

  operator View() const { return detail::forEachView(source_); }  // NOLINT

 private:
  template <class T>
  static std::shared_ptr<const std::vector<T>> share(std::vector<T> items) {
    return std::make_shared<const std::vector<T>>(std::move(items));
  }
  template <class T, class Key, class Extra, class Content>
  static Shared<const detail::ForEachSource> itemSource(std::shared_ptr<const std::vector<T>> items,
                                                        Key key, Extra extra, Content content) {
    const auto keyOf = [key](const T& item) -> decltype(auto) { return detail::keyOf(key, item); };
    return std::make_shared<const detail::ItemSource<T, decltype(keyOf), Extra, Content>>(
        std::move(items), keyOf, std::move(extra), content);
  }

  Shared<const detail::ForEachSource> source_;
};

}  // namespace zq
