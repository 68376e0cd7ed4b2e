// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>

namespace zq {

// How many pixels a picture may declare that the view models of pictures still decode; one with
// more fails before it is decoded. Of the process, 2^27 at first, which take half a gigabyte; a
// host that shows larger ones raises it. Less than 1 counts as 1. Any thread; pictures that are
// being decoded keep the limit that they began with.
//   zq::setPicturePixelLimit(std::int64_t{1} << 30);
void setPicturePixelLimit(std::int64_t pixels);
std::int64_t picturePixelLimit();

// How large a picture is going to be shown, so that a large one can be decoded small: the longer
// side in points, and how many pixels of the screen make a point. Pictures are never enlarged.
//   ZQCachedImage(photo, {.decodeSize = DecodeSize{.points = 128}})
struct DecodeSize {
  double points = 0;
  double scale = 2;

  // The longer side in whole pixels, at most 16384; 0, which is no limit, where either number is
  // not finite or not above zero.
  int pixels() const;
  bool operator==(const DecodeSize&) const = default;
};

}  // namespace zq
