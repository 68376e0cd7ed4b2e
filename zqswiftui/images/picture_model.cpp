// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/images/picture_model.hpp>
#include <zqswiftui/images/picture_order.hpp>

namespace zq {

PictureModel::PictureModel() : place_(std::make_shared<detail::PicturePlace>()) {}

PictureModel::~PictureModel() = default;

std::string PictureModel::failureReason() const {
  const std::lock_guard lock(mutex_);
  return failure_;
}

void PictureModel::noteFailure([[maybe_unused]] std::string sentence) {
#ifndef NDEBUG
  const std::lock_guard lock(mutex_);
  failure_ = std::move(sentence);
#endif
}

void PictureModel::wasObserved() {
  detail::PictureOrder::shared().putFirst(*place_);
}

}  // namespace zq
