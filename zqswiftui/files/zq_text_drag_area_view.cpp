// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/files/drop_area.hpp>
#include <zqswiftui/files/zq_text_drag_area_view.hpp>

namespace zq {

ZQTextDragAreaView::ZQTextDragAreaView(Parameters parameters)
    : parameters_(std::move(parameters)) {}

View ZQTextDragAreaView::body(Context&) const {
  const Parameters& p = parameters_;
  const auto drop = [onDrag = p.onDrag.get()](const DropInfo& info) {
    if (onDrag) detail::takeText(info, onDrag);
    return true;
  };
  return detail::dropFrame(p.strokeWidth, detail::dropPrompt(p.promptString, p.alwaysPrompt, true))
      .onDrop({.types = {std::string(pasteboardTextType)}, .onDrop = drop})
      .accessibility({.role = Role::group,
                      .label = detail::dropName(p.promptString, "Drop a text"),
                      .description = "Accepts text"});
}

}  // namespace zq
