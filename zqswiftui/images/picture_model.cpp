// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/images/picture_model.hpp>
#include <zqswiftui/images/picture_order.hpp>

namespace zq {

PictureModel::PictureModel() : places_(std::make_shared<detail::PicturePlaces>()) {}

PictureModel::~PictureModel() = default;

std::string PictureModel::failureReason() const {
  const LockGuard guard(lock_);
  return failure_;
}

void PictureModel::noteFailure([[maybe_unused]] std::string sentence) {
#ifndef NDEBUG
  const LockGuard guard(lock_);
  failure_ = std::move(sentence);
#endif
}

void PictureModel::wasObserved() {
  detail::PictureOrder::shared().putFirst(*places_);
}

}  // namespace zq
