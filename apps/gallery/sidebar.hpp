// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <vector>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq::gallery {

// The indices of the pages that have every word of the query in their title, group or summary,
// whatever the case, in the order of the sidebar; all for an empty query.
std::vector<std::size_t> pagesFound(const std::string& query);

// The page that many found ones further on, or the same at an end; the current one need not be
// among those found.
std::size_t pageBeside(const std::vector<std::size_t>& found, std::size_t current, bool after);

// The list of the pages found, below the field that they are searched with. Ctrl+F goes to the
// field, Return there opens the first page found, Escape empties it.
View sidebar(const State<std::size_t>& selected, const State<std::string>& query, Context& context);

}  // namespace zq::gallery
