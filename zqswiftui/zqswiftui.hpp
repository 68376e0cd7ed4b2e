// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

// The whole library but its platforms, for programs that rather write one line than ten:
//   #include <zqswiftui/zqswiftui.hpp>
// The host's platform is included beside it. Inside the library include what you use.

#include <zqswiftui/platform/services/appearance.hpp>
#include <zqswiftui/platform/services/text_measurer.hpp>
