// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/files/zq_file_drag_area_view.hpp>
#include <zqswiftui/files/zq_file_drag_area_with_name_view.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {

ZQFileDragAreaWithNameView::ZQFileDragAreaWithNameView(Parameters parameters)
    : parameters_(std::move(parameters)) {}

View ZQFileDragAreaWithNameView::body(Context&) const {
  const Parameters& p = parameters_;
  const View area = ZQFileDragAreaView({.url = p.url,
                                        .acceptedExtensions = p.acceptedExtensions,
                                        .onlyFirst = true,
                                        .promptString = p.promptString,
                                        .strokeWidth = p.strokeWidth,
                                        .displayFileName = false,
                                        .tapToShowOpenDialog = false,
                                        .onDrag = p.onDrag});
  // Behind the area, whose clicks and drops it would take; the area says the name as its value.
  return ZStack({p.url ? Text(p.url->name()).accessibility({.hidden = true}) : View(), area});
}

}  // namespace zq
