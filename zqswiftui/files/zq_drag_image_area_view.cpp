// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/files/drop_area.hpp>
#include <zqswiftui/files/zq_drag_image_area_view.hpp>
#include <zqswiftui/images/zq_cached_image.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {
namespace {

constexpr double kPictureRadius = 4;
constexpr double kPlaceholderSize = 32;
constexpr double kPlaceholderOpacity = 0.65;  // dimmed, at a contrast of 4.5:1 on a card

}  // namespace

ZQDragImageAreaView::ZQDragImageAreaView(Parameters parameters)
    : parameters_(std::move(parameters)) {}

View ZQDragImageAreaView::body(Context&) const {
  const Parameters& p = parameters_;
  View under;
  if (p.imageUrl) {
    under = ZQCachedImage(p.imageUrl, {.cornerRadius = kPictureRadius});
  } else if (p.showPlaceholder) {
    under = Image::symbol("photo")
                .font(Font::system(kPlaceholderSize))
                .opacity(kPlaceholderOpacity)
                .accessibility({.hidden = true});
  }
  return ZStack({under, detail::pictureDropArea(p.acceptedExtension, p.callback)});
}

}  // namespace zq
