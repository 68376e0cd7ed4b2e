// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/words.hpp>

namespace zq::gallery {

// The whole gallery: the list of pages, the live page and its code.
struct GalleryWindow {
  std::size_t firstPage = 0;  // an index into galleryPages()
  std::shared_ptr<const Words> words;
  View body(Context& context) const;
};

// One page with its code as a sheet of its own height, for pictures.
struct PageSheet {
  std::size_t page = 0;
  std::shared_ptr<const Words> words;
  View body(Context& context) const;
};

}  // namespace zq::gallery
