// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// What stands where a picture will be: the toolkit's spinner, gray, at that multiple of its
// natural size, in layout too. A scale that is negative or not finite counts as zero.
View waitingIndicator(double scale = 1);

}  // namespace zq
