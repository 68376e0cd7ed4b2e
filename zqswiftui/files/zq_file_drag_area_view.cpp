// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/files/drop_acceptance.hpp>
#include <zqswiftui/files/drop_area.hpp>
#include <zqswiftui/files/zq_file_drag_area_view.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/base/zq_file_dialogs.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {

ZQFileDragAreaView::ZQFileDragAreaView(Parameters parameters) : parameters_(std::move(parameters)) {
  auto& extensions = parameters_.acceptedExtensions;
  extensions = fileRule(std::move(extensions), false).extensions;
  parameters_.tapToShowOpenDialog = true;
}

View ZQFileDragAreaView::body(Context& context) const {
  const Parameters& p = parameters_;
  const auto somethingDragged = context.state(p.url.has_value());
  const FileRule rule{p.acceptedExtensions, p.acceptFolders};
  const auto take = [rule, somethingDragged, accepted = p.onDrag.get(),
                     refused = p.onDragUnsupported](const Url& url) {
    if (acceptsFile(rule, url)) {
      XMain::execute([somethingDragged, accepted, url] {
        somethingDragged.set(true);
        if (accepted) accepted(url);
      });
    } else if (refused) {
      XMain::execute([refused, url] { refused(url); });
    }
  };
  const auto choose = [extensions = p.acceptedExtensions, chosen = p.onDrag.get()] {
    ZQFileDialogs::open("Open", "", extensions.value_or(std::vector<std::string>()), std::nullopt,
                        chosen);
  };
  const std::string name = p.url ? p.url->name() : "";
  const View content =
      VStack({detail::dropPrompt(p.promptString, p.alwaysPrompt, !*somethingDragged && !p.url),
              p.displayFileName && p.url ? View(Text(name)) : View()});
  return detail::dropFrame(p.strokeWidth, content)
      .onTap(p.tapToShowOpenDialog ? std::function<void()>(choose) : nullptr)
      .onDrop(detail::urlTarget(p.onlyFirst ? detail::Taken::first : detail::Taken::once, take))
      .accessibility({.label = detail::dropName(p.promptString, "Drop a file or choose one"),
                      .value = name,
                      .description = spokenRule(rule)});
}

}  // namespace zq
