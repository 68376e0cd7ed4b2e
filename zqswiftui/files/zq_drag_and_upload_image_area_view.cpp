// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/files/drop_area.hpp>
#include <zqswiftui/files/zq_drag_and_upload_image_area_view.hpp>
#include <zqswiftui/images/zq_url_image.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {

ZQDragAndUploadImageAreaView::ZQDragAndUploadImageAreaView(Parameters parameters)
    : parameters_(std::move(parameters)) {}

View ZQDragAndUploadImageAreaView::body(Context&) const {
  const Parameters& p = parameters_;
  return ZStack(
      {ZQURLImageView(p.remoteUrl), detail::pictureDropArea(p.acceptedExtension, p.callback)});
}

}  // namespace zq
