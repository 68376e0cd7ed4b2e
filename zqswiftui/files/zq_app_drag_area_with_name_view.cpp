// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/files/zq_app_drag_area_with_name_view.hpp>

namespace zq {

ZQAppDragAreaWithNameView::ZQAppDragAreaWithNameView(Parameters parameters)
    : parameters_(std::move(parameters)) {}

View ZQAppDragAreaWithNameView::body(Context&) const {
  const Parameters& p = parameters_;
  return ZQFolderDragAreaView(
      {.url = p.url, .strokeWidth = p.strokeWidth, .appsOnly = true, .callback = p.onDrag});
}

}  // namespace zq
