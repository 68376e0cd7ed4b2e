// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <unordered_map>
#include <utility>
#include <zqswiftui/files/recent_files.hpp>
#include <zqswiftui/files/zq_recent_file_view.hpp>
#include <zqswiftui/files/zq_recent_files.hpp>
#include <zqswiftui/layout/row_list.hpp>
#include <zqswiftui/platform/base/documents.hpp>
#include <zqswiftui/platform/base/prefs.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/scroll_view.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>
#include <zqswiftui/platform/toolkit/text_field.hpp>

namespace zq {
namespace {

constexpr const char* kOpenPreference = "Recent Files Open";
constexpr double kMostOfList = 240;
constexpr double kSearchHeight = 30;
constexpr double kChevronWidth = 20;
constexpr double kBarWidth = 12;  // kept free beside the rows

using Tapped = ZQRecentFileView::Tapped;

bool restoredOpen() {
  const bool open = prefs_getValueInt(kOpenPreference, 0) == 1;
  prefs_setValueBool(kOpenPreference, open);
  return open;
}

void open(const Url& url, const std::function<void(const Url&)>& callback) {
  Documents::noteRecent(url);
  if (callback) return callback(url);
  Platform::current().workspace().open(url.text());
}

View header(const State<bool>& isOpen) {
  const bool shown = *isOpen;
  const View chevron = Image::symbol(shown ? "chevron.compact.up" : "chevron.compact.down")
                           .frame({.width = kChevronWidth});
  const View row = HStack({Text(shown ? "Recent Files:" : "Recent Files"), chevron});
  return (shown ? row.flexFrame({.maxWidth = kInfinity, .alignment = Alignment::leading()}) : row)
      .background(View(Color::gray()).opacity(0.001))
      .onTap([isOpen] {
        isOpen.set(!*isOpen);
        prefs_setValueBool(kOpenPreference, *isOpen);
      })
      .accessibility({.role = Role::button,
                      .label = "Recent Files",
                      .value = shown ? "expanded" : "collapsed"});
}

}  // namespace

ZQRecentFilesVM::ZQRecentFilesVM()
    : urlList(this), self_(std::make_shared<ZQRecentFilesVM*>(this)) {
  const std::weak_ptr weak(self_.pointer());
  Documents::recent([weak](std::vector<Documents::Recent> documents) {
    if (weak.expired()) return;
    detail::gatherRecentFiles(std::move(documents), fu_getFileFacts, [weak](const Files& found) {
      const auto self = weak.lock();
      if (!self) return;
      std::vector<Url> urls;
      urls.reserve(found.size());
      for (const auto& file : found) urls.push_back(file->url);
      (*self)->files_ = found;
      (*self)->urlList = std::move(urls);
      (*self)->filesOf_ = (*self)->urlList.snapshot();
    });
  });
}

ZQRecentFilesVM::~ZQRecentFilesVM() = default;

const ZQRecentFilesVM::Files& ZQRecentFilesVM::files() {
  const auto urls = urlList.snapshot();
  if (urls == filesOf_) return files_;
  std::unordered_map<Url, Shared<const detail::RecentFile>> known;
  for (const auto& file : files_) known.emplace(file->url, file);
  files_.clear();
  for (const Url& url : *urls) {
    const auto found = known.find(url);
    files_.push_back(found != known.end()
                         ? found->second
                         : std::make_shared<const detail::RecentFile>(url, std::nullopt));
  }
  filesOf_ = urls;
  return files_;
}

ZQRecentFilesView::ZQRecentFilesView(Parameters parameters) : parameters_(std::move(parameters)) {}

View ZQRecentFilesView::body(Context& context) const {
  const auto model = context.stateOf([] { return std::make_shared<ZQRecentFilesVM>(); });
  ZQRecentFilesVM& recent = context.observe(*model);
  const auto isOpen = context.stateOf(restoredOpen);
  const auto searchText = context.state(std::string());
  // One for all times, so that rows stay the same while the host makes new callbacks.
  const auto callback = context.stateOf([] { return std::make_shared<Tapped>(); });
  **callback = parameters_.callback;
  const auto tapped = context.stateOf([&] {
    return std::make_shared<const Tapped>(
        [callback = *callback](const Url& url) { open(url, Tapped(*callback)); });
  });
  if (!*isOpen) return header(isOpen);

  const std::string search = lowercased(*searchText);
  const auto files = std::make_shared<ZQRecentFilesVM::Files>();
  for (const auto& file : recent.files()) {
    if (file->matches(*parameters_.filterExtensions, search)) files->push_back(file);
  }
  const double rowHeight =
      detail::kRecentFileHeight * std::max(1.0, context.environment<TextScaleKey>());
  const double rows = std::min(static_cast<double>(files->size()) * rowHeight, kMostOfList);
  const View list = ScrollView(
      RowList({.count = files->size(),
               .rowHeight = rowHeight,
               .key = [files](std::size_t i) { return (*files)[i]->url.text(); },
               .row =
                   [files, pressed = *tapped](std::size_t i) {
                     return ZQRecentFileView((*files)[i], pressed).padding({.trailing = kBarWidth});
                   }}));
  return VStack(
      {.alignment = HorizontalAlignment::leading, .spacing = 4},
      {header(isOpen),
       VStack({.spacing = 0}, {TextField("Search", searchText.binding())
                                   .frame({.height = kSearchHeight, .growsWithText = true}),
                               list.frame({.height = rows})})});
}

}  // namespace zq
