// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

namespace zq {

// How large a picture is going to be shown, so that a large one can be decoded small: the longer
// side in points, and how many pixels of the screen make a point. Pictures are never enlarged.
//   ZQCachedImage(photo, {.decodeSize = DecodeSize{.points = 128}})
struct DecodeSize {
  double points = 0;  // 0: no limit
  double scale = 2;

  // The longer side in whole pixels, at most 16384; 0, which is no limit, where either number is
  // not finite or not above zero.
  int pixels() const;
  bool operator==(const DecodeSize&) const = default;
};

}  // namespace zq
