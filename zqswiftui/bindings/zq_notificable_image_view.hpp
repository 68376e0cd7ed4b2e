// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

class ZQNotificableImage;

// The last picture that was posted under the keyword, stretched to all the room that is offered;
// nothing in that room as long as there is none. A ZQNotificableImage of its own follows it from
// the construction on, and stays with the view's place. Interface thread only, but for the posts.
//   ZQNotificableImageView("preview").frame(160, 90)
class ZQNotificableImageView : public ViewModifiers<ZQNotificableImageView> {
 public:
  explicit ZQNotificableImageView(std::string key);

  View body(Context& context) const;
  // Of the same keyword.
  bool operator==(const ZQNotificableImageView& other) const;

 private:
  Shared<ZQNotificableImage> notificableImage_;
};

}  // namespace zq
