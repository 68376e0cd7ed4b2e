// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QColorSpace>
#include <cstdint>
#include <optional>
#include <span>
#include <zqswiftui/platform/services/image_codec.hpp>

namespace zq::qt {

// PNG files are read here and not by Qt's reader: that lets their library print what is wrong with
// one on standard error, and has its own order of the four bytes. Any thread.

// Whether the bytes begin as those of a PNG file.
bool isPng(std::span<const std::uint8_t> file);

struct PngPicture {
  Pixels pixels;  // as in the file: not premultiplied, and in its colour space
  bool opaque = false;
  QColorSpace colours;  // invalid where the file says nothing of them
};

// None where the file is cut off, damaged in what is needed to show it, or of more pixels than
// that. No memory is taken for pixels that a file of its length cannot hold.
std::optional<PngPicture> readPng(std::span<const std::uint8_t> file, std::int64_t maxPixels);

// What its header says; 0 where that is damaged.
std::int64_t declaredPngPixels(std::span<const std::uint8_t> file);

}  // namespace zq::qt
