// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

// By itself, and without another include, because generated settings need no more.

namespace zq {

// A point or a size, in whatever unit its reader takes it to be.
struct ZQUICPointSize {
  double x = 0;
  double y = 0;
  static constexpr ZQUICPointSize zero() { return {}; }
  bool operator==(const ZQUICPointSize&) const = default;
};

}  // namespace zq
