// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/files/drop_acceptance.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// An area for one picture, a file or an address, above the picture that the host gives: dropped, or
// chosen by a click, Space or Enter. See ZQFileDragAreaView and ZQCachedImage. Interface thread
// only.
//   ZQDragImageAreaView({.imageUrl = *cover, .showPlaceholder = true,
//                        .callback = [cover](const Url& url) { cover.set(url); }})
class ZQDragImageAreaView : public ViewModifiers<ZQDragImageAreaView> {
 public:
  struct Parameters {
    std::optional<Url> imageUrl = std::nullopt;
    std::vector<std::string> acceptedExtension = pictureExtensions();  // jpg, jpeg and png
    Required<bool> showPlaceholder;  // the symbol "photo", dimmed, where there is no picture
    Required<std::function<void(const Url&)>> callback;
  };
  explicit ZQDragImageAreaView(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
