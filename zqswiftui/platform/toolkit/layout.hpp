// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <vector>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/toolkit/geometry.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

class ItemArray;

// The distance that neighbours keep where nothing is said.
inline constexpr double kPreferredSpacing = 8;

// What a view likes to have around it; distances between two views are the larger wish.
struct ViewSpacing {
  double horizontal = kPreferredSpacing;
  double vertical = kPreferredSpacing;
  double distance(const ViewSpacing& next, Axis axis) const {
    return axis == Axis::horizontal ? std::max(horizontal, next.horizontal)
                                    : std::max(vertical, next.vertical);
  }
};

// One child, as a layout sees it.
class Subview {
 public:
  Subview(ItemArray& items, std::size_t index) : items_(items), index_(index) {}
  Size sizeThatFits(const ProposedSize& proposal) const;
  ViewSpacing spacing() const { return {}; }
  double priority() const;
  bool spring(Axis axis) const;
  // Puts the child's anchor at the point, with the size it takes under the proposal.
  void place(Point point, UnitPoint anchor, const ProposedSize& proposal) const;

 private:
  ItemArray& items_;
  std::size_t index_;
};

// The children of a layout, groups among them flattened.
class Subviews {
 public:
  // A run of children that stand side by side in one array.
  struct Part {
    ItemArray* items;
    std::size_t begin;  // in the array
    std::size_t count;
    std::size_t first;  // among all
  };
  Subviews(const std::vector<Part>& parts, std::size_t size);
  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  Subview operator[](std::size_t index) const;
  // The sizes of all under an unspecified proposal. Valid until the layout returns.
  std::span<const Size> idealSizes() const;
  // Puts every child at its ideal size with its top leading corner at its point.
  void placeIdeal(std::span<const Point> points) const;

 private:
  const std::vector<Part>& parts_;
  std::size_t size_;
  mutable std::vector<Size> joined_;
};

// How a container places its children. A plain value; leading is x = 0, and the toolkit
// mirrors the result where the layout direction is right to left.
//   LayoutView(NewFlowLayout({.spacing = 2}), {a, b, c})
class Layout {
 public:
  virtual ~Layout() = default;
  virtual Size sizeThatFits(const ProposedSize& proposal, const Subviews& subviews) const = 0;
  virtual void placeSubviews(const Rect& bounds, const ProposedSize& proposal,
                             const Subviews& subviews) const = 0;
  virtual bool equals(const Layout& /*other, of the same type*/) const { return false; }

 protected:
  Layout() = default;
  Layout(const Layout&) = default;
  Layout& operator=(const Layout&) = default;
};

// A layout with its children.
class LayoutView : public ViewModifiers<LayoutView> {
 public:
  template <std::derived_from<Layout> L>
  LayoutView(L layout, std::vector<View> children)
      : layout_(std::make_shared<const L>(std::move(layout))), children_(std::move(children)) {}
  operator View() const;  // NOLINT(google-explicit-constructor)

 private:
  Shared<const Layout> layout_;
  std::vector<View> children_;
};

}  // namespace zq
