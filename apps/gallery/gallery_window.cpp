// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/code_view.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <apps/gallery/gallery_window.hpp>
#include <apps/gallery/page_looks.hpp>
#include <apps/gallery/sidebar.hpp>
#include <zqswiftui/platform/base/timer.hpp>
#include <zqswiftui/platform/base/zq_pasteboard.hpp>

namespace zq::gallery {
namespace {

constexpr double kSheetPageWidth = 640;
constexpr double kCodeShare = 0.44;      // of what is beside the sidebar
constexpr double kCodeBesideFrom = 820;  // narrower pages have their code below
constexpr double kCopiedSeconds = 1.5;

const FlexFrame kFill{
    .maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = Alignment::topLeading()};

View line(bool vertical) {
  return Rectangle()
      .fill(Color::separator())
      .frame(vertical ? Frame{.width = 1} : Frame{.height = 1});
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

// Puts the code on the pasteboard, and says so for a moment.
struct CopyButton : ViewModifiers<CopyButton> {
  explicit CopyButton(std::string givenCode) : code(std::move(givenCode)) {}
  std::string code;

  View body(Context& context) const {
    auto copied = context.state(false);
    auto timer = context.stateOf([] { return std::make_shared<ZQTimer>(); });
    const auto copy = [text = code, copied, timer] {
      ZQPasteboard::setString(text);
      copied.set(true);
      (*timer)->fireOnce(kCopiedSeconds, false, [copied] { copied.set(false); });
    };
    return PushButton(*copied ? "Copied" : "Copy", copy)
        .accessibility({.label = "Copy the code", .value = *copied ? "Copied" : ""});
  }
};

View codeWithBar(const GalleryPage& page) {
  const View bar = HStack({Text("Code").font(Font::headline()), Spacer(), CopyButton(page.code)})
                       .padding(EdgeInsets::symmetric(16, 6));
  return VStack({.spacing = 0}, {bar, line(false), codePart(page)});
}

View pageAndCode(const GalleryPage& page, const PageLooks& looks, bool withCode, Size size) {
  const View content = ScrollView(StagedPage(pagePart(page), looks)).id("page " + page.title);
  if (!withCode) return content.flexFrame(kFill);
  const View code = codeWithBar(page).id("code " + page.title);
  if (size.width >= kCodeBesideFrom) {
    return HStack(
        {.alignment = VerticalAlignment::top, .spacing = 0},
        {content.flexFrame(kFill), line(true), code.frame({.width = size.width * kCodeShare})});
  }
  return VStack({.spacing = 0}, {content.flexFrame(kFill), line(false),
                                 code.frame({.height = size.height * kCodeShare})});
}

// An arrow that goes to the page before or after of those found, also by its key.
View step(const State<std::size_t>& selected, const State<std::string>& query, bool after) {
  const std::size_t to = pageBeside(pagesFound(*query), *selected, after);
  const bool possible = to != *selected;
  return Button([selected, to] { selected.set(to); },
                Image::symbol(after ? "chevron.down" : "chevron.up").padding(6))
      .keyboardShortcut(after ? Key::down : Key::up)
      .accessibilityLabel(after ? "Page after" : "Page before")
      .help(after ? "Page after (Down)" : "Page before (Up)")
      .disabled(!possible)
      .opacity(possible ? 1 : 0.3);
}

View header(const State<std::size_t>& selected, const State<std::string>& query,
            const Binding<PageLooks>& looks, const Binding<bool>& code) {
  return HStack({.spacing = 8}, {title(galleryPages()[*selected]), Spacer(8),
                                 step(selected, query, false), step(selected, query, true),
                                 LooksButton(looks), Toggle("Code", "doc.text", code).fixedSize()})
      .padding(EdgeInsets::symmetric(16, 12));
}

}  // namespace

View GalleryWindow::body(Context& context) const {
  auto selected = context.state(firstPage);
  auto query = context.state(std::string());
  auto looks = context.state(PageLooks());
  auto code = context.state(true);
  const GalleryPage& page = galleryPages()[*selected];
  const auto pageIn = [&page, shown = *looks, withCode = *code](Size size) {
    return pageAndCode(page, shown, withCode, size);
  };
  const View main =
      VStack({.spacing = 0}, {header(selected, query, looks.binding(), code.binding()), line(false),
                              GeometryReader(pageIn)});
  const View window = HStack({.spacing = 0}, {sidebar(selected, query, context), line(true), main})
                          .background(Color::background())
                          .environment<WordsKey>(given.words)
                          .environment<PicturesKey>(given.pictures)
                          .environment<PictureServerKey>(given.server);
  return withWindowLooks(window, *looks, context);
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
