// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/gallery/gallery_page.hpp>
#include <zqswiftui/platform/base/text.hpp>

namespace zq::gallery {

namespace {

GalleryPage withCode(GalleryPage page, std::string_view stem) {
  page.code = pageCode(stem);
  return page;
}

}  // namespace

const std::vector<GalleryPage>& galleryPages() {
#define ZQ_ENTRY(stem) withCode(pages::stem(), #stem),
  static const std::vector<GalleryPage> all = {ZQ_GALLERY_PAGES(ZQ_ENTRY)};
#undef ZQ_ENTRY
  return all;
}

std::string pageSlug(std::string_view title) {
  std::string slug;
  for (const char c : lowercased(title)) {
    const bool word = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    if (word) {
      slug += c;
    } else if (!slug.empty() && slug.back() != '-') {
      slug += '-';
    }
  }
  if (!slug.empty() && slug.back() == '-') slug.pop_back();
  return slug;
}

const GalleryPage* findPage(std::string_view name) {
  const std::string slug = pageSlug(name);
  const auto& all = galleryPages();
  const auto found = std::find_if(all.begin(), all.end(), [&](const GalleryPage& page) {
    return pageSlug(page.title) == slug;
  });
  return found == all.end() ? nullptr : &*found;
}

}  // namespace zq::gallery
