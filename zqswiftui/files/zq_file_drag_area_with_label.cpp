// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/controls/icon_buttons.hpp>
#include <zqswiftui/files/zq_file_drag_area_view.hpp>
#include <zqswiftui/files/zq_file_drag_area_with_label.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr double kStrokeWidth = 1;
constexpr double kMinHeight = 40;

}  // namespace

ZQFileDragAreaWithLabel::ZQFileDragAreaWithLabel(Parameters parameters)
    : parameters_(std::move(parameters)) {}

View ZQFileDragAreaWithLabel::body(Context&) const {
  const Parameters& p = parameters_;
  const Binding<std::optional<Url>>& url = p.url;
  const View area = ZQFileDragAreaView({.url = url.get(),
                                        .acceptedExtensions = p.acceptedExtensions,
                                        .onlyFirst = true,
                                        .promptString = p.promptString,
                                        .strokeWidth = kStrokeWidth,
                                        .displayFileName = true,
                                        .tapToShowOpenDialog = false,
                                        .onDrag = [url](const Url& file) { url.set(file); }})
                        .flexFrame({.minHeight = kMinHeight});
  const View bin = ZQDeleteButton(
      {.color = std::nullopt, .fill = false, .size = ZQButton::Size::normal, .action = [url] {
         url.set(std::nullopt);
       }});
  return HStack({Text(p.label), area, p.canDelete ? bin : View()});
}

}  // namespace zq
