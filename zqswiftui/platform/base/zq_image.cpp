// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <atomic>
#include <cmath>
#include <utility>
#include <vector>
#include <zqswiftui/platform/base/zq_id.hpp>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {

namespace {

constexpr double longestSide = 16384;
std::atomic<std::int64_t> pixelLimit{std::int64_t{1} << 27};

// The source pixels that make one pixel of the scaled row, and how much each counts.
struct Contribution {
  int first = 0;
  std::vector<float> weights;
};

// A tent as wide as the scale: it averages when a picture shrinks and blends when it grows.
std::vector<Contribution> contributions(int from, int to) {
  const double scale = static_cast<double>(from) / to;
  const double reach = std::max(scale, 1.0);
  std::vector<Contribution> all(static_cast<std::size_t>(to));
  for (int i = 0; i < to; ++i) {
    const double centre = (i + 0.5) * scale - 0.5;
    Contribution& own = all[static_cast<std::size_t>(i)];
    own.first = std::max(0, static_cast<int>(std::ceil(centre - reach)));
    const int last = std::min(from - 1, static_cast<int>(std::floor(centre + reach)));
    double sum = 0;
    for (int k = own.first; k <= last; ++k) {
      const double weight = std::max(1 - std::abs(k - centre) / reach, 1e-6);
      own.weights.push_back(static_cast<float>(weight));
      sum += weight;
    }
    for (float& weight : own.weights) weight = static_cast<float>(weight / sum);
  }
  return all;
}

// Scales lines of pixels: count of them, lineStep bytes apart, pixelStep between two pixels.
struct Lines {
  int count;
  std::size_t lineStep;
  std::size_t pixelStep;
};

void scaleLines(const Bytes& source, const Lines& in, Bytes& target, const Lines& out,
                const std::vector<Contribution>& parts) {
  for (int line = 0; line < in.count; ++line) {
    const std::size_t inLine = static_cast<std::size_t>(line) * in.lineStep;
    std::size_t written = static_cast<std::size_t>(line) * out.lineStep;
    for (const Contribution& part : parts) {
      float sums[4] = {0.5F, 0.5F, 0.5F, 0.5F};
      std::size_t read = inLine + static_cast<std::size_t>(part.first) * in.pixelStep;
      for (const float weight : part.weights) {
        for (std::size_t c = 0; c < 4; ++c)
          sums[c] += weight * static_cast<float>(source[read + c]);
        read += in.pixelStep;
      }
      for (std::size_t c = 0; c < 4; ++c) {
        target[written + c] = static_cast<std::uint8_t>(std::min(sums[c], 255.0F));
      }
      written += out.pixelStep;
    }
  }
}

Pixels scaled(const Pixels& source, int width, int height) {
  const auto bytes = [](int w, int h) {
    return static_cast<std::size_t>(w) * static_cast<std::size_t>(h) * 4;
  };
  Bytes wide(bytes(width, source.height));
  scaleLines(source.rgba, {source.height, bytes(source.width, 1), 4}, wide,
             {source.height, bytes(width, 1), 4}, contributions(source.width, width));
  Pixels target{width, height, Bytes(bytes(width, height))};
  scaleLines(wide, {width, 4, bytes(width, 1)}, target.rgba, {width, 4, bytes(width, 1)},
             contributions(source.height, height));
  return target;
}

}  // namespace

struct ZQImage::Content {
  std::shared_ptr<const Pixels> pixels;
  std::string identity;
};

ZQImage::ZQImage(std::shared_ptr<const Content> content) : content_(std::move(content)) {}

const Pixels& ZQImage::pixels() const {
  return *content_->pixels;
}

const std::string& ZQImage::identity() const {
  return content_->identity;
}

std::optional<ZQImage> ZQImage::fromPixels(Pixels pixels) {
  if (pixels.width <= 0 || pixels.height <= 0) return std::nullopt;
  const auto count =
      static_cast<std::uint64_t>(pixels.width) * static_cast<std::uint64_t>(pixels.height);
  if (pixels.rgba.size() % 4 != 0 || pixels.rgba.size() / 4 != count) return std::nullopt;
  return of(std::make_shared<const Pixels>(std::move(pixels)));
}

ZQImage ZQImage::of(std::shared_ptr<const Pixels> pixels) {
  auto content = std::make_shared<Content>();
  content->pixels = std::move(pixels);
  content->identity = ZQId::newId("image", "", true);
  return ZQImage(std::move(content));
}

ZQImage ZQImage::again() const {
  return of(content_->pixels);
}

std::optional<ZQImage> ZQImage::resizeWithMaxSide(double side) const {
  if (!(side >= 1)) return std::nullopt;
  const int longer = std::max(width(), height());
  if (side > std::max<double>(longestSide, longer)) return *this;
  const double scale = side / longer;
  const auto length = [scale](int from) {
    return std::max(1, static_cast<int>(std::lround(from * scale)));
  };
  const int newWidth = length(width());
  const int newHeight = length(height());
  if (newWidth == width() && newHeight == height()) return *this;
  return fromPixels(scaled(pixels(), newWidth, newHeight));
}

void setPicturePixelLimit(std::int64_t pixels) {
  pixelLimit = std::max<std::int64_t>(pixels, 1);
}

std::int64_t picturePixelLimit() {
  return pixelLimit;
}

std::optional<ZQImage> zqImage(std::span<const std::uint8_t> bytes) {
  return zqImage(bytes, {0, picturePixelLimit()});
}

std::optional<ZQImage> zqImage(std::span<const std::uint8_t> bytes, const DecodeLimits& limits) {
  auto pixels = Platform::current().imageCodec().decode(bytes, limits);
  if (!pixels) return std::nullopt;
  return ZQImage::fromPixels(std::move(*pixels));
}

}  // namespace zq
