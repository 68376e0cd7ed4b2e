// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/toolkit/observable.hpp>

#include "media_jobs.hpp"

namespace bench {

// The jobs, a file each.
void ruler(const Arguments& arguments);
void timeline(const Arguments& arguments);
void canvasRects(const Arguments& arguments);
void notifications(const Arguments& arguments);
void drop(const Arguments& arguments);
void recent(const Arguments& arguments);

// What is shown of the media; an assignment shows something else of it.
template <class T>
struct Shown : zq::ObservableObject {
  explicit Shown(T first) : value{this, std::move(first)} {}
  zq::Published<T> value;
};

}  // namespace bench
