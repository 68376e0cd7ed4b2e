// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/files/zq_recent_files.hpp>

namespace zq::gallery {
namespace {

// [code]
// What is below stays where it is while the list comes.
View listed(View panel, double height) {
  return panel.flexFrame(
      {.minHeight = height, .alignment = Alignment::topLeading()});
}

struct HandedOver {
  View body(Context& context) const {
    auto opened = context.state(std::string("nothing yet"));
    return VStack(
        {.alignment = HorizontalAlignment::leading, .spacing = 12},
        {listed(
             ZQRecentFilesView({.filterExtensions = {{"png", "jpg"}},
                 .callback =
                     [opened](const Url& url) { opened.set(url.name()); }}),
             160),
            row("Opened", Text(*opened).truncationInTheMiddle())});
  }
};

struct RecentFiles {
  View body(Context&) const {
    return cards({
        card("Every kind, opened by the desktop",
            listed(ZQRecentFilesView({.filterExtensions = {{}}}), 300)),
        card("Pictures, handed to the host", HandedOver()),
        note("Fold one of them up: the next window finds it as it "
             "was left."),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::recent_files() {
  GalleryPage made = page<RecentFiles>("Files", "Recent files",
      "What the desktop remembers as opened by this application.");
  made.settles = 0.4;
  return made;
}

}  // namespace zq::gallery
