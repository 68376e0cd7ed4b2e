// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <zqswiftui/platform/services/image_codec.hpp>

namespace zq {

// A picture: immutable pixels, shared by its copies. Sizes are in pixels. Two are equal when
// one is a copy of the other. Any thread.
class ZQImage {
 public:
  // Absent where the pixels do not fit the size, or the size is empty.
  static std::optional<ZQImage> fromPixels(Pixels pixels);

  int width() const { return content_->pixels.width; }
  int height() const { return content_->pixels.height; }
  const Pixels& pixels() const { return content_->pixels; }
  // Tells this picture from all others of the process.
  const std::string& identity() const { return content_->identity; }

  // A copy whose longer side has that many pixels, from 1 to 16384; absent outside of these.
  std::optional<ZQImage> resizeWithMaxSide(double side) const;

  bool operator==(const ZQImage& other) const { return content_ == other.content_; }

 private:
  friend struct ImageCache;
  struct Content {
    Pixels pixels;
    std::string identity;
  };
  explicit ZQImage(std::shared_ptr<const Content> content) : content_(std::move(content)) {}
  std::shared_ptr<const Content> content_;
};

// Decodes the bytes of an image file; absent where they are none.
std::optional<ZQImage> zqImage(std::span<const std::uint8_t> bytes,
                               const DecodeLimits& limits = DecodeLimits());

}  // namespace zq
