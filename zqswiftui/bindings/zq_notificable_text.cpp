// ZQSwiftUI, MIT licence; see LICENSE.
#include <optional>
#include <utility>
#include <zqswiftui/bindings/zq_notificable_text.hpp>
#include <zqswiftui/platform/base/last_texts.hpp>
#include <zqswiftui/platform/base/zq_notify.hpp>

namespace zq {

ZQNotificableText::ZQNotificableText(std::string key) : notificationKey_(std::move(key)) {
  follows_ =
      ZQNotify::observeString(nullptr, notificationKey_,
                              [this](const std::optional<std::string>& text, std::uint64_t order) {
                                if (text && text_.take(*text, order)) notice_.post();
                              });
  // Follows already, so that no text is missed between the two.
  if (auto last = LastTexts::of(notificationKey_)) text_.take(std::move(last->text), last->order);
}

void ZQNotificableText::setText(const std::string& text) {
  text_.take(text, LastTexts::remember(notificationKey_, text));
  notice_.post();  // last: who hears of it may let go of this holder
}

std::string ZQNotificableText::text() const {
  return text_.get();
}

}  // namespace zq
