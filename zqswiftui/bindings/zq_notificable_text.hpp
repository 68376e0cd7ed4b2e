// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/bindings/change_notice.hpp>
#include <zqswiftui/bindings/latest.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>

namespace zq {

// The last text that was posted under a keyword, by whomever: it begins with the last one of the
// process, also where that came before there was anyone to follow it, or with "". A notification
// without a text, or with the same, does nothing. Views are told on the interface thread, once for
// all texts that came since. All that follow a keyword agree, whichever threads post; all but
// setText, which is for this one and for those that come. Any thread; it may be destroyed on any.
//   const auto status = std::make_shared<ZQNotificableText>("status");
//   ZQNotify::notify("status", "Exporting…");
class ZQNotificableText final : public ObservableObject {
 public:
  explicit ZQNotificableText(std::string key);

  std::string text() const;
  // For this one, and for those that begin to follow the keyword from now on.
  void setText(const std::string& text);
  const std::string& notificationKey() const { return notificationKey_; }

 private:
  const std::string notificationKey_;
  detail::Latest<std::string> text_;
  detail::ChangeNotice notice_{*this};
  Subscription follows_;
};

}  // namespace zq
