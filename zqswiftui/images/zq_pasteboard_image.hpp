// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// The picture on the general pasteboard, looked for every half second while this view can be
// seen. Nothing is shown until there is one; when the pasteboard holds something else, the last
// picture stays. With a size, in points, the picture is stretched to exactly that, else to the
// room that is offered. A click on it, or Space or Enter, hands over the picture that is shown.
// What was found once is not read again until the pasteboard changes; as long as it is there, each
// look makes another picture of the same pixels, and a click hands over the last one. Interface
// thread only.
//   ZQPasteboardImage({.maxSize = Size{128, 128}, .tappedCallback = insert})
class ZQPasteboardImage : public ViewModifiers<ZQPasteboardImage> {
 public:
  struct Parameters {
    std::optional<Size> maxSize = std::nullopt;
    std::function<void(const ZQImage&)> tappedCallback = nullptr;  // null: it cannot be clicked
  };
  ZQPasteboardImage() = default;
  explicit ZQPasteboardImage(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
