// ZQSwiftUI, MIT licence; see LICENSE.
// Finding the view model of a picture among ten thousand. How fast pictures are shown is measured
// by the programs of bench/peers.
#include <algorithm>
#include <optional>
#include <random>
#include <string>
#include <vector>
#include <zqswiftui/images/zq_local_url_image.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>

#include "allocations.hpp"

namespace {

constexpr int kSources = 10'000;

// In no order, as a list that is scrolled does not ask in the order of the making.
std::vector<std::optional<zq::Url>> sources() {
  std::vector<std::optional<zq::Url>> all;
  all.reserve(kSources);
  for (int i = 0; i < kSources; ++i) {
    all.emplace_back(
        zq::Url::file("/home/somebody/Pictures/2026/a journey/img-" + std::to_string(i) + ".jpg"));
  }
  std::shuffle(all.begin(), all.end(), std::mt19937(1));
  return all;
}

void lookUpAPicture(benchmark::State& state) {
  const zq::HeadlessPlatform platform;
  const auto all = sources();
  for (const auto& source : all) zq::ZQLocalURLImage::lookup(source);
  std::size_t next = 0;
  const Allocations counted(state);
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(zq::ZQLocalURLImage::lookup(all[next]));
    next = next + 1 == all.size() ? 0 : next + 1;
  }
}
BENCHMARK(lookUpAPicture);

// A thumbnail and the whole of each.
void lookUpAThumbnail(benchmark::State& state) {
  const zq::HeadlessPlatform platform;
  const auto all = sources();
  const zq::DecodeSize size{.points = 128};
  for (const auto& source : all) {
    zq::ZQLocalURLImage::lookup(source);
    zq::ZQLocalURLImage::lookup(source, size);
  }
  std::size_t next = 0;
  const Allocations counted(state);
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(zq::ZQLocalURLImage::lookup(all[next], size));
    next = next + 1 == all.size() ? 0 : next + 1;
  }
}
BENCHMARK(lookUpAThumbnail);

}  // namespace
