// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <zqswiftui/platform/services/bytes.hpp>

namespace zq {

// Rows from the top, four bytes a pixel: red, green, blue, alpha, the colours premultiplied.
struct Pixels {
  int width = 0;
  int height = 0;
  Bytes rgba;
  bool operator==(const Pixels&) const = default;
};

struct DecodeLimits {
  // Scaled down, keeping its shape, to at most this many pixels on the longer side; 0: as is.
  int maxSide = 0;
  // A picture that declares more pixels than this is refused before it is decoded.
  std::int64_t maxPixels = std::int64_t{1} << 27;
};

// Turns the bytes of image files into pixels and back. Any thread, several at once.
class ImageCodec {
 public:
  virtual ~ImageCodec() = default;
  // Absent where the bytes are no whole image of a known format, or exceed the limits.
  virtual std::optional<Pixels> decode(std::span<const std::uint8_t> bytes,
                                       const DecodeLimits& limits) const = 0;
  // How many pixels the file says that it has; 0 where it does not say so before it is decoded,
  // or is none. To tell why a picture was refused.
  virtual std::int64_t declaredPixels(std::span<const std::uint8_t>) const { return 0; }
  // The bytes of a PNG file; empty where the pixels do not fit their size.
  virtual Bytes encodePng(const Pixels& pixels) const = 0;
};

}  // namespace zq
