// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/bindings/kept_holder.hpp>
#include <zqswiftui/bindings/zq_notificable_text.hpp>
#include <zqswiftui/bindings/zq_notificable_text_view.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {

ZQNotificableTextView::ZQNotificableTextView(std::string key)
    : notificableText_(std::make_shared<ZQNotificableText>(std::move(key))) {}

View ZQNotificableTextView::body(Context& context) const {
  return Text(detail::observeKept(context, notificableText_).text());
}

bool ZQNotificableTextView::operator==(const ZQNotificableTextView& other) const {
  return notificableText_->notificationKey() == other.notificableText_->notificationKey();
}

}  // namespace zq
