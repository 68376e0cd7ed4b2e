// ZQSwiftUI, MIT licence; see LICENSE.
#include <mutex>
#include <utility>
#include <zqswiftui/bindings/zq_notificable_image.hpp>
#include <zqswiftui/platform/base/zq_notify.hpp>

namespace zq {
namespace {

// The one of the process: the last in the order of the posts that some holder took.
struct LastImage {
  std::mutex mutex;
  std::optional<ZQImage> image;
  std::string key;
  std::uint64_t order = 0;
};

// Never destroyed: threads may post while the program ends.
LastImage& lastImage() {
  static auto* const last = new LastImage;
  return *last;
}

}  // namespace

ZQNotificableImage::ZQNotificableImage(std::string key) : notificationKey_(std::move(key)) {
  follows_ = ZQNotify::observeImage(
      nullptr, notificationKey_, [this](const std::optional<ZQImage>& image, std::uint64_t order) {
        if (image) take(*image, order);
      });
  LastImage& last = lastImage();
  const std::lock_guard lock(last.mutex);
  // One of another keyword gives way to any of this one.
  image_.take(last.image, last.key == notificationKey_ ? last.order : 0);
}

void ZQNotificableImage::take(const ZQImage& image, std::uint64_t order) {
  if (!image_.take(image, order)) return;
  std::optional<ZQImage> before;  // its pixels may go, after the lock
  {
    LastImage& last = lastImage();
    const std::lock_guard lock(last.mutex);
    if (order > last.order) {
      before = std::exchange(last.image, image);
      last.key = notificationKey_;
      last.order = order;
    }
  }
  notice_.post();
}

std::optional<ZQImage> ZQNotificableImage::image() const {
  return image_.get();
}

}  // namespace zq
