// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

class ZQNotificableText;

// The last text that was posted under the keyword, as it is; a ZQNotificableText of its own follows
// it from the construction on, and stays with the view's place. Interface thread only, but for the
// posts.
//   ZQNotificableTextView("status")
//   ZQNotify::notify("status", "3 of 12 pictures");   // anywhere
class ZQNotificableTextView : public ViewModifiers<ZQNotificableTextView> {
 public:
  explicit ZQNotificableTextView(std::string key);

  View body(Context& context) const;
  // Of the same keyword.
  bool operator==(const ZQNotificableTextView& other) const;

 private:
  Shared<ZQNotificableText> notificableText_;
};

}  // namespace zq
