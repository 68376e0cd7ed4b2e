// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/code_view.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <apps/gallery/gallery_window.hpp>

namespace zq::gallery {
namespace {

constexpr double kSidebarWidth = 208;
constexpr double kSheetPageWidth = 640;
constexpr double kCodeShare = 0.44;      // of what is beside the sidebar
constexpr double kCodeBesideFrom = 820;  // narrower pages have their code below

const FlexFrame kFill{
    .maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = Alignment::topLeading()};

View line(bool vertical) {
  return Rectangle()
      .fill(Color::separator())
      .frame(vertical ? Frame{.width = 1} : Frame{.height = 1});
}

// A page in the sidebar.
struct SidebarRow : ViewModifiers<SidebarRow> {
  SidebarRow(std::size_t givenPage, bool givenSelected, std::function<void()> givenSelect)
      : page(givenPage), selected(givenSelected), select(std::move(givenSelect)) {}
  std::size_t page;
  bool selected;
  std::function<void()> select;

  View body(Context& context) const {
    auto hovered = context.state(false);
    const Color ground = selected ? Color::accent() : Color::primary().opacity(*hovered ? 0.08 : 0);
    return Button(select, Text(galleryPages()[page].title)
                              .lineLimit(1)
                              .foregroundColor(selected ? Color::white() : Color::primary())
                              .padding(EdgeInsets::symmetric(8, 4))
                              .flexFrame({.maxWidth = kInfinity, .alignment = Alignment::leading()})
                              .background(RoundedRectangle(6).fill(ground)))
        .onHover([hovered](bool inside) { hovered.set(inside); });
  }
};

View sidebar(const State<std::size_t>& selected) {
  const auto& pages = galleryPages();
  std::vector<View> rows;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    if (i == 0 || pages[i].group != pages[i - 1].group) {
      rows.push_back(
          Text(pages[i].group)
              .font(Font::caption().bold())
              .foregroundColor(Color::secondary())
              .padding({.top = i == 0 ? 0.0 : 12.0, .leading = 8, .bottom = 4, .trailing = 8}));
    }
    rows.push_back(SidebarRow(i, i == *selected, [selected, i] {
                     selected.set(i);
                   }).id(pageSlug(pages[i].title)));
  }
  return ScrollView(
             VStack({.alignment = HorizontalAlignment::leading, .spacing = 2}, std::move(rows))
                 .padding(12))
      .frame({.width = kSidebarWidth})
      .background(Color::primary().opacity(0.03));
}

View title(const GalleryPage& page) {
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 4},
                {Text(page.title).font(Font::title().bold()),
                 Text(page.summary).foregroundColor(Color::secondary())});
}

View pagePart(const GalleryPage& page) {
  return page.content().padding(16).flexFrame(
      {.maxWidth = kInfinity, .alignment = Alignment::topLeading()});
}

// Code reads from left to right whatever the language of the window.
View codePart(const GalleryPage& page) {
  return ScrollView(CodeView(page.code).padding(16), ScrollAxes::both)
      .background(Color::primary().opacity(0.03))
      .environment<LayoutDirectionKey>(LayoutDirection::leftToRight);
}

View pageAndCode(const GalleryPage& page, bool withCode, Size size) {
  const View content = ScrollView(pagePart(page)).id("page " + page.title);
  if (!withCode) return content.flexFrame(kFill);
  const View code = codePart(page).id("code " + page.title);
  if (size.width >= kCodeBesideFrom) {
    return HStack(
        {.alignment = VerticalAlignment::top, .spacing = 0},
        {content.flexFrame(kFill), line(true), code.frame({.width = size.width * kCodeShare})});
  }
  return VStack({.spacing = 0}, {content.flexFrame(kFill), line(false),
                                 code.frame({.height = size.height * kCodeShare})});
}

// An arrow that goes to the page before or after, also by its key.
View step(const State<std::size_t>& selected, int by, const std::string& symbol, Key key) {
  const auto last = static_cast<int>(galleryPages().size()) - 1;
  const int to = static_cast<int>(*selected) + by;
  const bool possible = to >= 0 && to <= last;
  return Button([selected, to] { selected.set(static_cast<std::size_t>(to)); },
                Image::symbol(symbol).padding(6))
      .keyboardShortcut(key)
      .accessibilityLabel(by < 0 ? "Page before" : "Page after")
      .help(by < 0 ? "Page before (Up)" : "Page after (Down)")
      .disabled(!possible)
      .opacity(possible ? 1 : 0.3);
}

struct Switches {
  Binding<bool> dark;
  Binding<bool> mirrored;
  Binding<bool> code;
};

View header(const State<std::size_t>& selected, const Switches& switches) {
  const GalleryPage& page = galleryPages()[*selected];
  return HStack({.spacing = 8}, {title(page), Spacer(8), step(selected, -1, "chevron.up", Key::up),
                                 step(selected, 1, "chevron.down", Key::down),
                                 Toggle("Dark", "moon", switches.dark).fixedSize(),
                                 Toggle("Mirrored", "arrow.left", switches.mirrored).fixedSize(),
                                 Toggle("Code", "doc.text", switches.code).fixedSize()})
      .padding(EdgeInsets::symmetric(16, 12));
}

}  // namespace

View GalleryWindow::body(Context& context) const {
  auto selected = context.state(firstPage);
  auto dark = context.state(std::optional<bool>());
  auto mirrored = context.state(std::optional<bool>());
  auto code = context.state(true);
  const bool isDark = dark->value_or(context.environment<ColorSchemeKey>() == ColorScheme::dark);
  const bool isMirrored =
      mirrored->value_or(context.environment<LayoutDirectionKey>() == LayoutDirection::rightToLeft);
  const Switches switches{
      Binding<bool>([isDark] { return isDark; }, [dark](const bool& on) { dark.set(on); }),
      Binding<bool>([isMirrored] { return isMirrored; },
                    [mirrored](const bool& on) { mirrored.set(on); }),
      code.binding()};
  const GalleryPage& page = galleryPages()[*selected];
  const bool withCode = *code;
  const View main = VStack(
      {.spacing = 0},
      {header(selected, switches), line(false),
       GeometryReader([&page, withCode](Size size) { return pageAndCode(page, withCode, size); })});
  return HStack({.spacing = 0}, {sidebar(selected), line(true), main})
      .background(Color::background())
      .environment<WordsKey>(given.words)
      .environment<PicturesKey>(given.pictures)
      .environment<PictureServerKey>(given.server)
      .environment<ColorSchemeKey>(isDark ? ColorScheme::dark : ColorScheme::light)
      .environment<LayoutDirectionKey>(isMirrored ? LayoutDirection::rightToLeft
                                                  : LayoutDirection::leftToRight);
}

View PageSheet::body(Context&) const {
  const GalleryPage& shown = galleryPages()[page];
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 0},
                {title(shown).padding(16), line(false),
                 HStack({.alignment = VerticalAlignment::top, .spacing = 0},
                        {ScrollView(pagePart(shown)).frame({.width = kSheetPageWidth}), line(true),
                         codePart(shown)})})
      .background(Color::background())
      .environment<WordsKey>(given.words)
      .environment<PicturesKey>(given.pictures)
      .environment<PictureServerKey>(given.server);
}

}  // namespace zq::gallery
