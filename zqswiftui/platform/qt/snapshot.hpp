// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QImage>
#include <zqswiftui/platform/toolkit/view_host.hpp>

namespace zq::qt {

// A picture of the view at a size in points, for galleries and visual tests: as a window
// would show it once its animations have settled, with `scale` pixels a point. Null for an empty
// size. Needs an installed platform; interface thread only. With `seconds` the event loop runs so
// long first: for what is loaded or played.
//   renderView(ZQTagsView({"alpha"}), {200, 100}, 2).save("tags.png");
QImage renderView(View view, Size size, double scale = 1, const AppearanceValues& appearance = {},
                  double seconds = 0);

}  // namespace zq::qt
