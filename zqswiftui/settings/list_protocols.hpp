// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <concepts>
#include <optional>
#include <string>
#include <string_view>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>

namespace zq {

// What lists ask of the values that they show.

// Told from others by its id.
template <typename T>
concept ZQIdentifiable = requires(const T& value) {
  { value.id } -> std::convertible_to<std::string>;
};

// Answers whether it matches a query; an empty one matches everything.
template <typename T>
concept ZQSearchable = requires(const T& value, std::string_view query) {
  { value.zqSearch(query) } -> std::same_as<bool>;
};

// Shown in a sidebar by name, marks, colour and icon, all of which can be read and assigned.
template <typename T>
concept ZQLeftSideItemable = ZQIdentifiable<T> && requires(const T& shown, T& edited) {
  { shown.name } -> std::convertible_to<std::string>;
  { shown.favorite } -> std::convertible_to<bool>;
  { shown.hidden } -> std::convertible_to<bool>;
  { shown.color } -> std::convertible_to<Color>;
  { shown.icon } -> std::convertible_to<std::optional<ZQImage>>;
  { shown.iconUrl } -> std::convertible_to<std::optional<Url>>;
  edited.name = std::string();
  edited.favorite = true;
  edited.hidden = true;
  edited.color = Color();
  edited.icon = std::optional<ZQImage>();
  edited.iconUrl = std::optional<Url>();
};

// A member that always has the one value; what is assigned to it is ignored.
template <typename T, T (*value)()>
struct Unchangeable {
  Unchangeable& operator=(const T&) { return *this; }
  operator T() const { return value(); }
  bool operator==(const Unchangeable&) const = default;
};

inline bool never() {
  return false;
}

template <typename T>
std::optional<T> nothing() {
  return std::nullopt;
}

}  // namespace zq
