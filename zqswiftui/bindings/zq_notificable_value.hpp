// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/bindings/change_notice.hpp>
#include <zqswiftui/bindings/latest.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>

namespace zq {

// The last number that was posted under a keyword since this one was made; 0 until then. A
// notification without a number, or with an equal one, does nothing; NaN, which equals nothing, is
// taken each time. Views are told on the interface thread, once for all numbers that came since.
// Any thread; it may be destroyed on any.
class ZQNotificableValue final : public ObservableObject {
 public:
  explicit ZQNotificableValue(std::string key);

  double value() const { return value_.get(); }
  const std::string& notificationKey() const { return notificationKey_; }

 private:
  const std::string notificationKey_;
  detail::Latest<double> value_;
  detail::ChangeNotice notice_{*this};
  Subscription follows_;
};

}  // namespace zq
