// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/toolkit/view.hpp>

// A page is a file pages/<stem>.cpp with a function of the same name, and one line here.
#define ZQ_GALLERY_PAGES(PAGE) \
  PAGE(button)                 \
  PAGE(icon_buttons)           \
  PAGE(borderless_buttons)     \
  PAGE(square_buttons)         \
  PAGE(switching_buttons)      \
  PAGE(choices)                \
  PAGE(numbers)                \
  PAGE(menus)                  \
  PAGE(help_and_bars)          \
  PAGE(labeled_spinner)        \
  PAGE(progress_bar_view)      \
  PAGE(capsuled_text)          \
  PAGE(flow_layout)            \
  PAGE(tags_view)              \
  PAGE(tokens_view)            \
  PAGE(ruler_view)             \
  PAGE(mini_timeline)          \
  PAGE(timecode_view)          \
  PAGE(canvas_rects)           \
  PAGE(split_view)             \
  PAGE(lists)                  \
  PAGE(deferred_bindings)      \
  PAGE(notifications)          \
  PAGE(settings)               \
  PAGE(picture_wall)           \
  PAGE(remote_pictures)        \
  PAGE(deferred_images)        \
  PAGE(frame_animation)        \
  PAGE(pasteboard_image)       \
  PAGE(drop_areas)             \
  PAGE(recent_files)           \
  PAGE(text)                   \
  PAGE(stacks)                 \
  PAGE(shapes)                 \
  PAGE(symbols)                \
  PAGE(text_field)             \
  PAGE(scroll_view)            \
  PAGE(progress_view)          \
  PAGE(animation)              \
  PAGE(gestures)               \
  PAGE(popover)                \
  PAGE(focus)                  \
  PAGE(surroundings)

namespace zq::gallery {

// One entry of the sidebar: a live example, and the code that it is made of.
struct GalleryPage {
  std::string group;
  std::string title;
  std::string summary;
  std::function<View()> content;
  std::string code;    // filled in from the page's own source
  double settles = 0;  // seconds until a picture of it shows what it is about
};

// A page that shows a component of that type.
template <class Content>
GalleryPage page(std::string group, std::string title, std::string summary) {
  return {.group = std::move(group),
          .title = std::move(title),
          .summary = std::move(summary),
          .content = [] { return View(Content{}); },
          .code = {}};
}

namespace pages {
#define ZQ_DECLARE(stem) GalleryPage stem();
ZQ_GALLERY_PAGES(ZQ_DECLARE)
#undef ZQ_DECLARE
}  // namespace pages

// In the order of the sidebar; made once, on the first call.
const std::vector<GalleryPage>& galleryPages();

// A title as a file name: "Large square buttons" gives large-square-buttons.
std::string pageSlug(std::string_view title);

// By title or slug, whatever the case; nullptr where there is none.
const GalleryPage* findPage(std::string_view name);

// The marked parts of pages/<stem>.cpp.
std::string pageCode(std::string_view stem);

}  // namespace zq::gallery
