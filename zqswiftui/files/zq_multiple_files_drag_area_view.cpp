// ZQSwiftUI, MIT licence; see LICENSE.
#include <memory>
#include <utility>
#include <zqswiftui/files/drop_acceptance.hpp>
#include <zqswiftui/files/drop_area.hpp>
#include <zqswiftui/files/zq_multiple_files_drag_area_view.hpp>
#include <zqswiftui/platform/base/timer.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>

namespace zq {
namespace {

constexpr double kQuiet = 0.1;  // seconds without another file

// The files that have come so far. Interface thread only.
struct Gathering {
  void add(Url url) {
    urls.push_back(std::move(url));
    timer.stop();
    timer.fireOnce(kQuiet, false, [this] {
      const auto all = std::exchange(urls, {});
      const auto told = onDrag;  // it may end this area
      if (told) told(all);
    });
  }

  std::function<void(const std::vector<Url>&)> onDrag;
  std::vector<Url> urls;
  ZQTimer timer;
};

}  // namespace

ZQMultipleFilesDragAreaView::ZQMultipleFilesDragAreaView(Parameters parameters)
    : parameters_(std::move(parameters)) {
  auto& extensions = parameters_.acceptedExtensions;
  extensions = fileRule(std::move(extensions), false).extensions;
}

View ZQMultipleFilesDragAreaView::body(Context& context) const {
  const Parameters& p = parameters_;
  const auto gathering = *context.stateOf([] { return std::make_shared<Gathering>(); });
  gathering->onDrag = p.onDrag;
  const FileRule rule{p.acceptedExtensions, p.acceptFolders};
  const auto take = [rule, weak = std::weak_ptr(gathering)](const Url& url) {
    if (!acceptsFile(rule, url)) return;
    XMain::execute([weak, url] {
      if (const auto area = weak.lock()) area->add(url);
    });
  };
  return detail::dropFrame(p.strokeWidth, detail::dropPrompt(p.promptString, p.alwaysPrompt, true))
      .onDrop(detail::urlTarget(detail::Taken::all, take))
      .accessibility({.role = Role::group,
                      .label = detail::dropName(p.promptString, "Drop files"),
                      .description = spokenRule(rule)});
}

}  // namespace zq
