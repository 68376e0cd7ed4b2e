// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/files/drop_acceptance.hpp>
#include <zqswiftui/files/drop_area.hpp>
#include <zqswiftui/files/zq_folder_drag_area_view.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/base/zq_file_dialogs.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {

ZQFolderDragAreaView::ZQFolderDragAreaView() : ZQFolderDragAreaView(Parameters()) {}

ZQFolderDragAreaView::ZQFolderDragAreaView(Parameters parameters)
    : parameters_(std::move(parameters)) {}

View ZQFolderDragAreaView::body(Context&) const {
  const Parameters& p = parameters_;
  const auto take = [appsOnly = p.appsOnly, callback = p.callback](const Url& url) {
    if (!callback || !acceptsFolder(appsOnly, url)) return;
    XMain::execute([callback, url] { callback(url); });
  };
  const auto choose = [callback = p.callback] {
    ZQFileDialogs::chooseFolder("Choose Folder", "", std::nullopt, callback);
  };
  const std::string name = p.url ? p.url->name() : "";
  const View symbol = Image::symbol(detail::kDropSymbol).foregroundColor(Color::gray());
  const View content = VStack({p.showImage ? symbol : View(),
                               p.showName ? View(Text(name).font(Font::caption())) : View()});
  const bool apps = p.appsOnly;
  return detail::dropFrame(p.strokeWidth, content)
      .onTap(choose)
      .onDrop(detail::urlTarget(detail::Taken::all, take))
      .accessibility(
          {.label = apps ? "Drop an application or choose one" : "Drop a folder or choose one",
           .value = name,
           .description = apps ? "Accepts application bundles" : "Accepts folders"});
}

}  // namespace zq
