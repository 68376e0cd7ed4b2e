// ZQSwiftUI, MIT licence; see LICENSE.
#include <array>
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
  static std::mutex mutex;
  static std::unordered_map<std::string, std::weak_ptr<const ZQImage::Content>> shown;
  const auto path = resourcePath(bundle != nullptr ? *bundle : Platform::current().bundle(), name);
  if (!path) return std::nullopt;
  {
    const std::lock_guard lock(mutex);
    const auto known = shown.find(*path);
    if (known != shown.end()) {
      if (auto content = known->second.lock()) return ZQImage(std::move(content));
    }
  }
  const auto bytes = readFile(*path);
  if (!bytes.ok()) return std::nullopt;
  auto image = zqImage(bytes.value());
  if (!image) return std::nullopt;
  const std::lock_guard lock(mutex);
  shown.insert_or_assign(*path, image->content_);
  return image;
}

}  // namespace zq
