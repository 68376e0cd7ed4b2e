// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <apps/gallery/gallery_window.hpp>
#include <optional>

namespace zq::gallery {

// Paints the pages into the folder, light and dark, telling on standard output what is done;
// all of them and the window, or the one at that index, with the appearance but for its scheme.
// Makes the folder where it is missing.
Result<void> paintPages(const std::string& folder, std::optional<std::size_t> only,
                        const Given& given, AppearanceValues appearance = {});

}  // namespace zq::gallery
