// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <vector>
#include <zqswiftui/platform/services/drag_data.hpp>

class QMimeData;

namespace zq::qt {

// What another program offers in a drag, as items. Other programs are not trusted: what is not an
// address is left out, lists end after a hundred thousand and texts after 16 Mi characters. Only
// names of formats are asked for while a drag is over a window; its data waits for the drop, and a
// source that is slow to give one format is not asked for a second. Interface thread only; the
// items may be loaded on any thread, and answer before that returns.

// The types that its formats promise, the best first.
std::vector<std::string> offeredTypes(const QMimeData& mime);

// One item for each address, then one for the text, where these types are among the wanted.
DragItems offeredItems(const QMimeData& mime, const std::vector<std::string>& wanted);

}  // namespace zq::qt
