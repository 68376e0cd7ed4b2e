// ZQSwiftUI, MIT licence; see LICENSE.
#include <optional>
#include <utility>
#include <zqswiftui/bindings/zq_notificable_value.hpp>
#include <zqswiftui/platform/base/zq_notify.hpp>

namespace zq {

ZQNotificableValue::ZQNotificableValue(std::string key) : notificationKey_(std::move(key)) {
  follows_ = ZQNotify::observeDouble(
      nullptr, notificationKey_, [this](const std::optional<double>& number, std::uint64_t order) {
        if (number && value_.take(*number, order)) notice_.post();
      });
}

}  // namespace zq
