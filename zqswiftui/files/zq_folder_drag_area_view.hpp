// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A framed area to drop a folder on, or to click or press for the platform's dialog. What is none
// is ignored. Folders are looked at in the background, and heard of on the interface thread; one
// that was chosen is not judged again. Interface thread only.
//   ZQFolderDragAreaView({.url = *target, .callback = [target](const Url& url) { target.set(url);
//   }})
class ZQFolderDragAreaView : public ViewModifiers<ZQFolderDragAreaView> {
 public:
  struct Parameters {
    std::optional<Url> url = std::nullopt;  // what the area holds
    double strokeWidth = 0.67;              // of the frame, in points
    bool showName = true;
    bool appsOnly = false;  // only folders whose extension is app, in any case
    bool showImage = true;  // a gray symbol
    std::function<void(const Url&)> callback = nullptr;
  };
  ZQFolderDragAreaView();
  explicit ZQFolderDragAreaView(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
