// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/sidebar.hpp>
#include <zqswiftui/controls/list_line.hpp>
#include <zqswiftui/platform/base/text.hpp>

namespace zq::gallery {
namespace {

constexpr double kSidebarWidth = 208;

// A page in the sidebar.
struct SidebarRow : ViewModifiers<SidebarRow> {
  SidebarRow(std::size_t givenPage, bool givenSelected, std::function<void()> givenSelect)
      : page(givenPage), selected(givenSelected), select(std::move(givenSelect)) {}
  std::size_t page;
  bool selected;
  std::function<void()> select;

  View body(Context& context) const {
    auto hovered = context.state(false);
    const Color ground =
        selected ? prominentGround() : Color::primary().opacity(*hovered ? 0.08 : 0);
    // Going on by keys keeps the page in sight.
    const auto kept = selected ? std::optional(Rect{0, 0, 1, 24}) : std::nullopt;
    return Button(select, Text(galleryPages()[page].title)
                              .foregroundColor(selected ? Color::white() : Color::primary())
                              .padding(EdgeInsets::symmetric(8, 4))
                              .flexFrame({.maxWidth = kInfinity, .alignment = Alignment::leading()})
                              .background(RoundedRectangle(6).fill(ground)))
        .onHover([hovered](bool inside) { hovered.set(inside); })
        .accessibility({.label = galleryPages()[page].title, .selected = selected})
        .revealing(kept);
  }
};

View groupTitle(const std::string& group, bool first) {
  return Text(group)
      .font(Font::caption().bold())
      .foregroundColor(Color::secondary())
      .padding({.top = first ? 0.0 : 12.0, .leading = 8, .bottom = 4, .trailing = 8});
}

View searchField(const State<std::size_t>& selected, const State<std::string>& query) {
  const auto openFirst = [selected, query] {
    const auto found = pagesFound(*query);
    if (!found.empty()) selected.set(found.front());
  };
  const auto emptied = [query](const KeyEvent& event) {
    if (event.key != Key::escape || query->empty()) return false;
    query.set("");
    return true;
  };
  return TextField("Search pages", query.binding())
      .onSubmit(openFirst)
      .keyboardShortcut(Shortcut::control("f"))
      .onLeftoverKey(emptied)
      .help("Search (Ctrl+F)");
}

bool hasEveryWord(const GalleryPage& page, std::string_view query) {
  const std::string text = page.title + '\n' + page.group + '\n' + page.summary;
  while (!query.empty()) {
    const std::size_t end = std::min(query.find(' '), query.size());
    if (!zqSearchContains(text, query.substr(0, end))) return false;
    query.remove_prefix(std::min(end + 1, query.size()));
  }
  return true;
}

}  // namespace

std::vector<std::size_t> pagesFound(const std::string& query) {
  const auto& pages = galleryPages();
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    if (hasEveryWord(pages[i], query)) found.push_back(i);
  }
  return found;
}

std::size_t pageBeside(const std::vector<std::size_t>& found, std::size_t current, bool after) {
  if (after) {
    const auto next = std::upper_bound(found.begin(), found.end(), current);
    return next == found.end() ? current : *next;
  }
  const auto here = std::lower_bound(found.begin(), found.end(), current);
  return here == found.begin() ? current : *std::prev(here);
}

View sidebar(const State<std::size_t>& selected, const State<std::string>& query,
             Context& context) {
  const auto& pages = galleryPages();
  std::vector<View> rows;
  const std::string* group = nullptr;
  for (const std::size_t i : pagesFound(*query)) {
    if (!group || pages[i].group != *group) rows.push_back(groupTitle(pages[i].group, !group));
    group = &pages[i].group;
    rows.push_back(SidebarRow(i, i == *selected, [selected, i] {
                     selected.set(i);
                   }).id(pageSlug(pages[i].title)));
  }
  if (rows.empty()) rows.push_back(groupTitle("No page has these words.", true));
  return VStack({.spacing = 0},
                {searchField(selected, query)
                     .padding({.top = 12, .leading = 12, .bottom = 0, .trailing = 12}),
                 ScrollView(VStack({.alignment = HorizontalAlignment::leading, .spacing = 2},
                                   std::move(rows))
                                .padding(12))})
      .frame({.width = kSidebarWidth * std::clamp(context.environment<TextScaleKey>(), 1.0, 1.5)})
      .background(Color::primary().opacity(0.03));
}

}  // namespace zq::gallery
