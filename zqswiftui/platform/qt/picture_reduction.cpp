// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <vector>
#include <zqswiftui/platform/qt/picture_reduction.hpp>

namespace zq::qt {
namespace {

// Four bytes a pixel, rows without gaps. It shows a picture of that extent, in its pixels: those at
// the right and below may lie beyond it in part.
struct Raster {
  int width;
  int height;
  double extentX;
  double extentY;
  const std::uint8_t* bytes;

  std::size_t rowBytes() const { return std::size_t{4} * static_cast<std::size_t>(width); }
  const std::uint8_t* row(int y) const { return bytes + static_cast<std::size_t>(y) * rowBytes(); }
};

// --- Whole boxes of pixels: most of the work, in whole numbers ---

// A sum of sixteen bits holds no more than the pixels of 16 by 16.
constexpr int kLargestBox = 16;

// One over each number of pixels of a box, times 2^24.
constexpr auto kOne = [] {
  std::array<std::uint32_t, kLargestBox * kLargestBox + 1> all{};
  for (std::uint32_t i = 1; i < all.size(); ++i) all[i] = (1U << 24) / i;
  return all;
}();

void addRow(const std::uint8_t* row, std::size_t bytes, std::uint16_t* sums) {
  for (std::size_t i = 0; i < bytes; ++i) sums[i] = static_cast<std::uint16_t>(sums[i] + row[i]);
}

// The mean of each box of that many pixels a side; those at the right and below may have fewer.
std::vector<std::uint8_t> boxed(const Raster& in, int box, Raster& out) {
  const auto boxes = [box](int pixels) { return (pixels + box - 1) / box; };
  out = {boxes(in.width), boxes(in.height), in.extentX / box, in.extentY / box, nullptr};
  std::vector<std::uint8_t> bytes(out.rowBytes() * static_cast<std::size_t>(out.height));
  out.bytes = bytes.data();
  std::vector<std::uint16_t> sums(in.rowBytes());
  std::uint8_t* write = bytes.data();
  for (int y = 0; y < out.height; ++y) {
    const int rows = std::min(box, in.height - y * box);
    std::fill(sums.begin(), sums.end(), std::uint16_t{0});
    for (int i = 0; i < rows; ++i) addRow(in.row(y * box + i), in.rowBytes(), sums.data());
    const std::uint16_t* read = sums.data();
    for (int left = in.width; left > 0; left -= box) {
      const int columns = std::min(box, left);
      std::uint64_t four = 0;  // the sums of the four parts side by side
      for (int i = 0; i < columns; ++i, read += 4) {
        std::uint64_t pixel;
        std::memcpy(&pixel, read, sizeof pixel);
        four += pixel;
      }
      const auto count = static_cast<std::uint32_t>(rows * columns);
      const std::uint64_t reciprocal = kOne[count];
      for (int part = 0; part < 4; ++part, four >>= 16) {
        const std::uint64_t sum = (four & 0xffff) + count / 2;
        *write++ = static_cast<std::uint8_t>(std::min<std::uint64_t>(sum * reciprocal >> 24, 255));
      }
    }
  }
  return bytes;
}

// --- The exact areas of what is left ---

// The pixels that make one of the result, and how much of each.
struct Span {
  int first;
  std::vector<float> parts;
};

// Of an extent that so many pixels show.
std::vector<Span> spans(double extent, int from, int to) {
  const double scale = extent / to;
  std::vector<Span> all(static_cast<std::size_t>(to));
  for (int i = 0; i < to; ++i) {
    const double begin = i * scale, end = begin + scale;
    Span& own = all[static_cast<std::size_t>(i)];
    own.first = std::min(static_cast<int>(begin), from - 1);
    for (int k = own.first; k < from && k < end - 1e-9; ++k) {
      const double covered = std::min(k + 1.0, end) - std::max<double>(k, begin);
      own.parts.push_back(static_cast<float>(covered / (end - begin)));
    }
  }
  return all;
}

void addRow(const std::uint8_t* row, float part, std::vector<float>& sums) {
  for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += part * static_cast<float>(row[i]);
}

QRgb pixelOf(const std::vector<float>& row, const Span& span) {
  float sums[4] = {0.5F, 0.5F, 0.5F, 0.5F};
  const float* read = row.data() + std::size_t{4} * static_cast<std::size_t>(span.first);
  for (const float part : span.parts) {
    for (int c = 0; c < 4; ++c) sums[c] += part * read[c];
    read += 4;
  }
  const auto byte = [&](int c) { return static_cast<int>(std::min(sums[c], 255.0F)); };
  return qRgba(byte(0), byte(1), byte(2), byte(3));
}

QImage averaged(const Raster& in, QSize pixels) {
  QImage result(pixels, QImage::Format_ARGB32_Premultiplied);
  if (result.isNull()) return result;
  const std::vector<Span> columns = spans(in.extentX, in.width, pixels.width());
  const std::vector<Span> rows = spans(in.extentY, in.height, pixels.height());
  std::vector<float> sums(in.rowBytes());
  for (int y = 0; y < pixels.height(); ++y) {
    const Span& span = rows[static_cast<std::size_t>(y)];
    std::fill(sums.begin(), sums.end(), 0.0F);
    for (std::size_t i = 0; i < span.parts.size(); ++i) {
      addRow(in.row(span.first + static_cast<int>(i)), span.parts[i], sums);
    }
    auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
    for (const Span& column : columns) *line++ = pixelOf(sums, column);
  }
  return result;
}

}  // namespace

QImage reducedPicture(const ZQImage& picture, QSize pixels) {
  const int width = picture.width(), height = picture.height();
  Raster raster{width, height, static_cast<double>(width), static_cast<double>(height),
                picture.pixels().rgba.data()};
  std::vector<std::uint8_t> smaller;
  while (true) {
    // The rest is reduced by two to four: less would let the edges of boxes be seen.
    const int times = std::min(raster.width / pixels.width(), raster.height / pixels.height());
    const int box = std::min(times / 2, kLargestBox);
    if (box < 2) return averaged(raster, pixels);
    Raster next{};
    std::vector<std::uint8_t> made = boxed(raster, box, next);
    smaller.swap(made);  // what was read from goes at the end of this turn
    raster = next;
  }
}

}  // namespace zq::qt
