// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/picture_server.hpp>
#include <apps/gallery/pictures.hpp>
#include <apps/gallery/words.hpp>

namespace zq::gallery {

// What the user gave the pages to show, and whom they ask; null: what they have themselves.
struct Given {
  std::shared_ptr<const Words> words;
  std::shared_ptr<const Pictures> pictures;
  std::shared_ptr<const PictureServer> server;
};

// The whole gallery: the list of pages, the live page and its code.
struct GalleryWindow {
  std::size_t firstPage = 0;  // an index into galleryPages()
  Given given;
  View body(Context& context) const;
};

// One page with its code as a sheet of its own height, for pictures.
struct PageSheet {
  std::size_t page = 0;
  Given given;
  View body(Context& context) const;
};

}  // namespace zq::gallery
