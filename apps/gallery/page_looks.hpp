// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <optional>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq::gallery {

// How the gallery shows a page; none: as the window around it is. Scheme and direction are also
// those of the gallery itself.
struct PageLooks {
  std::optional<bool> dark = std::nullopt;
  std::optional<bool> mirrored = std::nullopt;
  std::optional<bool> still = std::nullopt;  // reduced motion
  std::size_t textScale = 1;                 // an index into the scales that are offered
  std::size_t zoom = 2;                      // the same
  bool operator==(const PageLooks&) const = default;
};

// The button in the header with the bubble that the looks are set in.
struct LooksButton : ViewModifiers<LooksButton> {
  explicit LooksButton(Binding<PageLooks> givenLooks) : looks(std::move(givenLooks)) {}
  Binding<PageLooks> looks;
  View body(Context& context) const;
};

// The page with its own texts, motion and zoom. The size of texts is a factor on that of the
// desktop; the zoom is what the page would look like on a screen of other pixels, near enough: it
// is laid out in the room that there would be, and drawn larger or smaller.
struct StagedPage : ViewModifiers<StagedPage> {
  StagedPage(View givenPage, PageLooks givenLooks)
      : page(std::move(givenPage)), looks(givenLooks) {}
  View page;
  PageLooks looks;
  View body(Context& context) const;
};

// All of the gallery with the scheme and direction.
View withWindowLooks(View window, const PageLooks& looks, Context& context);

}  // namespace zq::gallery
