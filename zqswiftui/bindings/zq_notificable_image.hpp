// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/bindings/change_notice.hpp>
#include <zqswiftui/bindings/latest.hpp>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>

namespace zq {

// The last picture that was posted under a keyword. It begins with the last one that any of these
// took, under whichever keyword, so that there is something to see. A notification without a
// picture, or with the same (by its identity), does nothing. Views are told on the interface
// thread, once for all pictures that came since. Any thread; it may be destroyed on any.
class ZQNotificableImage final : public ObservableObject {
 public:
  explicit ZQNotificableImage(std::string key);

  std::optional<ZQImage> image() const;
  const std::string& notificationKey() const { return notificationKey_; }

 private:
  void take(const ZQImage& image, std::uint64_t order);

  const std::string notificationKey_;
  detail::Latest<std::optional<ZQImage>> image_;
  detail::ChangeNotice notice_{*this};
  Subscription follows_;
};

}  // namespace zq
