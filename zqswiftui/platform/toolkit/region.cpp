// ZQSwiftUI, MIT licence; see LICENSE.
#include <cmath>
#include <cstddef>
#include <zqswiftui/platform/toolkit/region.hpp>

namespace zq {
namespace {

constexpr std::size_t kMaxRects = 12;
// Repainting a little twice is cheaper than walking the tree for one more rectangle.
constexpr double kWaste = 1.25;

double area(const Rect& r) {
  return r.width * r.height;
}

}  // namespace

void Region::add(const Rect& rect) {
  if (rect.empty()) return;
  Rect grown = rect;
  for (std::size_t i = 0; i < rects_.size();) {
    const Rect joined = unite(rects_[i], grown);
    if (area(joined) <= kWaste * (area(rects_[i]) + area(grown))) {
      grown = joined;
      rects_[i] = rects_.back();
      rects_.pop_back();
      i = 0;
    } else {
      ++i;
    }
  }
  rects_.push_back(grown);
  if (rects_.size() <= kMaxRects) return;
  std::size_t a = 0, b = 1;
  double least = INFINITY;
  for (std::size_t i = 0; i < rects_.size(); ++i) {
    for (std::size_t j = i + 1; j < rects_.size(); ++j) {
      const double extra = area(unite(rects_[i], rects_[j])) - area(rects_[i]) - area(rects_[j]);
      if (extra < least) {
        least = extra;
        a = i;
        b = j;
      }
    }
  }
  const Rect joined = unite(rects_[a], rects_[b]);
  rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(b));
  rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(a));
  add(joined);
}

bool Region::intersects(const Rect& rect) const {
  for (const Rect& r : rects_) {
    if (r.intersects(rect)) return true;
  }
  return false;
}

Rect Region::bounds() const {
  Rect all;
  for (const Rect& r : rects_) all = unite(all, r);
  return all;
}

}  // namespace zq
