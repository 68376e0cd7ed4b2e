// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/services/image_codec.hpp>

namespace zq {

// A picture: immutable pixels, shared by its copies. Sizes are in pixels. Two are equal when
// one is a copy of the other. Any thread.
class ZQImage {
 public:
  // Absent where the pixels do not fit the size, or the size is empty.
  static std::optional<ZQImage> fromPixels(Pixels pixels);

  int width() const { return pixels().width; }
  int height() const { return pixels().height; }
  const Pixels& pixels() const;
  // Tells this picture from all others of the process.
  const std::string& identity() const;

  // A copy whose longer side has that many pixels; absent below 1. None is enlarged beyond 16384:
  // asked for more than that and than it has, it comes as it is.
  std::optional<ZQImage> resizeWithMaxSide(double side) const;
  // Another picture of the same pixels, which are shared.
  ZQImage again() const;

  bool operator==(const ZQImage& other) const { return content_ == other.content_; }

 private:
  friend struct ImageCache;
  struct Content;
  explicit ZQImage(std::shared_ptr<const Content> content);
  static ZQImage of(std::shared_ptr<const Pixels> pixels);
  Shared<const Content> content_;
};

// How many pixels a picture may declare that is still decoded; one with more fails before that. Of
// the process, 2^27 at first, which take half a gigabyte; a host that shows larger ones raises it.
// Less than 1 counts as 1. Any thread; pictures that are being decoded keep the limit that they
// began with.
//   zq::setPicturePixelLimit(std::int64_t{1} << 30);
void setPicturePixelLimit(std::int64_t pixels);
std::int64_t picturePixelLimit();

// Decodes the bytes of an image file, within the limit of the process; absent where they are none.
std::optional<ZQImage> zqImage(std::span<const std::uint8_t> bytes);
std::optional<ZQImage> zqImage(std::span<const std::uint8_t> bytes, const DecodeLimits& limits);

}  // namespace zq
