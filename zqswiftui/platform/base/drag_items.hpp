// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <vector>
#include <zqswiftui/platform/services/drag_data.hpp>

namespace zq {

// What is dragged out of a view, where it is there already: one item for each address, files told
// from others, or one of a text in UTF-8. Any thread.
//   Platform::current().dragData().begin(draggedUrls({Url::file(path).text()}), nullptr);
DragItems draggedUrls(const std::vector<std::string>& urls);
DragItems draggedText(std::string text);

}  // namespace zq
