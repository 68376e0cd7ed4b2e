// ZQSwiftUI, MIT licence; see LICENSE.
#include <optional>
#include <utility>
#include <zqswiftui/bindings/zq_notificable_text.hpp>
#include <zqswiftui/platform/base/last_texts.hpp>
#include <zqswiftui/platform/base/zq_notify.hpp>

namespace zq {

ZQNotificableText::ZQNotificableText(std::string key) : notificationKey_(std::move(key)) {
  follows_ = ZQNotify::observeString(nullptr, notificationKey_,
                                     [this](const std::optional<std::string>& text) {
                                       if (text && text_.change(*text)) changed();
                                     });
  // Follows already, so that no text is missed between the two; what arrives from now on was
  // remembered after this.
  LastTexts::read(notificationKey_, [this](const std::optional<std::string>& last) {
    if (last) text_ = *last;
  });
}

void ZQNotificableText::setText(std::string text) {
  text_ = std::move(text);
  changed();
}

void ZQNotificableText::changed() {
  // What it is by now: of two threads the later one may be the first to come here.
  LastTexts::remember(notificationKey_, text());
  notice_.post();  // last: who hears of it may let go of this holder
}

}  // namespace zq
