// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <span>

namespace zq::qt {

// Whether a PNG file is cut off, has another size or kind of pixels than there may be, or has been
// damaged in what is needed to show it. Its library would print that on standard error, whoever
// asks for it, so such files do not come to it. False for files of another format. Any thread.
bool isDamagedPng(std::span<const std::uint8_t> file);

}  // namespace zq::qt
