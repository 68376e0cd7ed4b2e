// ZQSwiftUI, MIT licence; see LICENSE.
#include <array>
#include <condition_variable>
#include <mutex>
#include <string_view>
#include <unordered_map>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/image_cache.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {

namespace {

std::optional<std::string> resourcePath(const Bundle& bundle, const std::string& name) {
  constexpr std::array<std::string_view, 9> extensions{"",    "png", "jpg",  "jpeg", "webp",
                                                       "gif", "bmp", "tiff", "svg"};
  for (const std::string_view extension : extensions) {
    if (auto path = bundle.resource(name, extension)) return path;
  }
  return std::nullopt;
}

}  // namespace

std::optional<ZQImage> ImageCache::getImage(const std::string& name, const Bundle* bundle) {
  struct Place {
    std::weak_ptr<const ZQImage::Content> shown;
    bool loading = false;
  };
  static std::mutex mutex;
  static std::condition_variable loaded;
  static std::unordered_map<std::string, Place> places;
  const auto path = resourcePath(bundle != nullptr ? *bundle : Platform::current().bundle(), name);
  if (!path) return std::nullopt;
  std::unique_lock lock(mutex);
  Place& place = places[*path];
  while (true) {
    if (auto content = place.shown.lock()) return ZQImage(std::move(content));
    if (!place.loading) break;
    loaded.wait(lock);  // for the thread that decodes it
  }
  place.loading = true;
  lock.unlock();
  const auto bytes = readFile(*path);
  auto image = bytes.ok() ? zqImage(bytes.value()) : std::nullopt;
  lock.lock();
  place.loading = false;
  if (image) place.shown = image->content_.pointer();
  loaded.notify_all();
  return image;
}

}  // namespace zq
