// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/platform/base/lock.hpp>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>
#include <zqswiftui/platform/toolkit/unpublished.hpp>

namespace zq {

namespace detail {
class PictureOrder;
struct PicturePlaces;
}  // namespace detail

// What the view models of pictures share. As long as a view observes one, its work goes before
// that of those which nobody shows.
class PictureModel : public ObservableObject {
 public:
  PictureModel();
  ~PictureModel() override;

  // Why the picture failed: a sentence for who looks for the fault, set before the status. Empty
  // where it did not fail, and always in release builds. Any thread.
  std::string failureReason() const;

 protected:
  void noteFailure(std::string sentence);

 private:
  friend class detail::PictureOrder;
  void wasObserved() final;

  const Shared<detail::PicturePlaces> places_;
  mutable Lock lock_;
  std::string failure_;
};

}  // namespace zq
