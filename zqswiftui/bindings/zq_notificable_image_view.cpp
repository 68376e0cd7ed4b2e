// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/bindings/kept_holder.hpp>
#include <zqswiftui/bindings/zq_notificable_image.hpp>
#include <zqswiftui/bindings/zq_notificable_image_view.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>

namespace zq {

ZQNotificableImageView::ZQNotificableImageView(std::string key)
    : notificableImage_(std::make_shared<ZQNotificableImage>(std::move(key))) {}

View ZQNotificableImageView::body(Context& context) const {
  const std::optional<ZQImage> image = detail::observeKept(context, notificableImage_).image();
  const View room = Color::clear();
  return room.overlay(image ? View(Image(*image).resizable(false)) : View());
}

bool ZQNotificableImageView::operator==(const ZQNotificableImageView& other) const {
  return notificableImage_->notificationKey() == other.notificableImage_->notificationKey();
}

}  // namespace zq
