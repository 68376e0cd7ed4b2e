// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <cmath>
#include <complex>
#include <zqswiftui/images/zq_concurrent_deferred_image.hpp>
#include <zqswiftui/images/zq_deferred_image.hpp>

namespace zq::gallery {
namespace {

// [code]
// A Julia set: heavy enough to be seen coming.
std::optional<ZQImage> julia(int number) {
  constexpr int kWidth = 240, kHeight = 160, kMost = 220;
  constexpr std::complex<double> kSeeds[] = {{-0.8, 0.156}, {0.285, 0.01},
      {-0.4, 0.6}, {-0.70176, -0.3842}, {-0.835, -0.2321},
      {-0.7269, 0.1889}};
  const int round = number / 6;
  const auto seed = kSeeds[number % 6] + 0.004 * round;
  Pixels pixels{kWidth, kHeight, {}};
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      std::complex<double> z{3.0 * x / kWidth - 1.5, 2.0 * y / kHeight - 1};
      int steps = 0;
      while (steps < kMost && std::norm(z) < 16) {
        z = z * z + seed;
        ++steps;
      }
      const double depth = std::sqrt(static_cast<double>(steps) / kMost);
      for (const double part :
          {depth * 255, depth * 190, 70 + depth * 120}) {
        pixels.rgba.push_back(static_cast<std::uint8_t>(part));
      }
      pixels.rgba.push_back(255);
    }
  }
  return ZQImage::fromPixels(std::move(pixels));
}

// One that first waits, as for an answer from far away.
Task<std::optional<ZQImage>> juliaFromAfar(int number) {
  co_await afterDelay(0.4);
  co_await onBackground();
  co_return julia(number);
}

View tile(View picture) {
  return picture.frame(168, 112)
      .background(Rectangle().fill(Color::primary().opacity(0.06)))
      .clipShape(RoundedRectangle(8));
}

struct DeferredImages {
  View body(Context& context) const {
    // Pictures stay for good under their ids: another round has others.
    auto round = context.state(0);
    using Concurrent = ZQConcurrentDeferredImageView;
    std::vector<View> serial, beside;
    for (int i = 0; i < 6; ++i) {
      const std::string id =
          "julia " + std::to_string(*round) + "." + std::to_string(i);
      const int number = 6 * *round + i;
      serial.push_back(tile(
          ZQDeferredImageView({.id = id, .scale = 1, .compute = [number] {
                                 return julia(number);
                               }})));
      beside.push_back(tile(Concurrent({.id = id,
          .scale = 1,
          .customProgress = Concurrent::CustomProgress{Color::teal(), 12},
          .compute = [number] { return juliaFromAfar(number); }})));
    }
    const auto never = [] { return std::optional<ZQImage>(); };
    const auto waiting = [&](const std::string& caption, double scale) {
      return sample(
          caption, ZQDeferredImageView(
                       {.id = "never", .scale = scale, .compute = never})
                       .frame(60, 60));
    };
    return cards({
        card("One after another", samples(serial)),
        card("Beside each other", samples(beside)),
        PushButton("Other pictures", [round] { round.set(*round + 1); }),
        card("No picture yet, by scale",
            samples({waiting("0.5", 0.5), waiting("1", 1), waiting("2", 2),
                waiting("3", 3)})),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::deferred_images() {
  GalleryPage made = page<DeferredImages>("Images", "Deferred images",
      "Pictures that a closure computes once, off the interface thread.");
  made.settles = 3;
  return made;
}

}  // namespace zq::gallery
