// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/base/zq_pasteboard.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {

void ZQPasteboard::setString(std::string text) {
  Platform::current().pasteboard().setText(std::move(text));
}

void ZQPasteboard::getImage(std::function<void(std::optional<ZQImage>)> answer) {
  Platform::current().pasteboard().readImage(
      [answer = std::move(answer)](std::optional<Bytes> bytes) mutable {
        if (!bytes) return answer(std::nullopt);
        Queue::execute(true, [answer = std::move(answer), bytes = std::move(*bytes)]() mutable {
          auto image = zqImage(bytes);
          XMain::post([answer = std::move(answer), image = std::move(image)] { answer(image); });
        });
      });
}

void ZQPasteboard::getString(std::function<void(std::optional<std::string>)> answer) {
  Platform::current().pasteboard().readText(std::move(answer));
}

}  // namespace zq
