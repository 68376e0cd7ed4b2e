// ZQSwiftUI, MIT licence; see LICENSE.
#include <mutex>
#include <utility>
#include <zqswiftui/bindings/zq_notificable_image.hpp>
#include <zqswiftui/platform/base/zq_notify.hpp>

namespace zq {
namespace {

// The one of the process. A holder takes a picture under this lock too, so that the last one is
// always what some holder took last.
struct LastImage {
  std::mutex mutex;
  std::optional<ZQImage> image;
};

// Never destroyed: threads may post while the program ends.
LastImage& lastImage() {
  static auto* const last = new LastImage;
  return *last;
}

}  // namespace

ZQNotificableImage::ZQNotificableImage(std::string key) : notificationKey_(std::move(key)) {
  LastImage& last = lastImage();
  const std::lock_guard lock(last.mutex);
  image_ = last.image;
  follows_ = ZQNotify::observeImage(nullptr, notificationKey_,
                                    [this](const std::optional<ZQImage>& image) {
                                      if (image) take(*image);
                                    });
}

void ZQNotificableImage::take(const ZQImage& image) {
  std::optional<ZQImage> before;  // its pixels may go, after the lock
  {
    LastImage& last = lastImage();
    const std::lock_guard lock(last.mutex);
    const std::optional<ZQImage> shown = image_;
    if (shown && shown->identity() == image.identity()) return;
    image_ = image;
    before = std::exchange(last.image, image);
  }
  notice_.post();
}

}  // namespace zq
