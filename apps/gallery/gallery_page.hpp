// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq::gallery {

// One entry of the sidebar: a live example, and the code that it is made of.
struct GalleryPage {
  std::string group;
  std::string title;
  std::string summary;
  std::function<View()> content;
  std::string code;  // filled in from the page's own source
};

// In the order of the sidebar; made once, on the first call.
const std::vector<GalleryPage>& galleryPages();

// A title as a file name: "Large square buttons" gives large-square-buttons.
std::string pageSlug(std::string_view title);

// By title or slug, whatever the case; nullptr where there is none.
const GalleryPage* findPage(std::string_view name);

// The marked parts of pages/<stem>.cpp.
std::string pageCode(std::string_view stem);

}  // namespace zq::gallery
