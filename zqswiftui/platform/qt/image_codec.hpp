// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/services/image_codec.hpp>

namespace zq::qt {

// Reads every format that Qt has a reader for, told by the content and turned upright.
class ImageCodec final : public zq::ImageCodec {
 public:
  ImageCodec();
  std::optional<Pixels> decode(std::span<const std::uint8_t> bytes,
                               const DecodeLimits& limits) const override;
  std::int64_t declaredPixels(std::span<const std::uint8_t> bytes) const override;
  Bytes encodePng(const Pixels& pixels) const override;
};

}  // namespace zq::qt
