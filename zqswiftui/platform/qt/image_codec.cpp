// ZQSwiftUI, MIT licence; see LICENSE.
#include <QBuffer>
#include <QColorSpace>
#include <QImage>
#include <QImageReader>
#include <algorithm>
#include <climits>
#include <cmath>
#include <mutex>
#include <utility>
#include <zqswiftui/platform/qt/image_codec.hpp>

namespace zq::qt {
namespace {

// The limits of a call judge by the header; Qt's own, one for the process, stops formats whose
// header says nothing. It leaves room for eight bytes a pixel, and follows the largest call.
void makeRoomFor(std::int64_t pixels) {
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  const auto megabytes = static_cast<int>(std::min<std::int64_t>(pixels >> 17, INT_MAX - 1)) + 1;
  if (QImageReader::allocationLimit() < megabytes) QImageReader::setAllocationLimit(megabytes);
}

QSize fitted(QSize size, int maxSide) {
  const int longer = std::max(size.width(), size.height());
  if (maxSide <= 0 || longer <= maxSide) return size;
  const double factor = static_cast<double>(maxSide) / longer;
  const auto side = [&](int length) {
    return std::max(1, static_cast<int>(std::lround(length * factor)));
  };
  return {side(size.width()), side(size.height())};
}

std::int64_t pixelsOf(QSize size) {
  return std::int64_t{size.width()} * size.height();
}

bool exceeds(QSize size, const DecodeLimits& limits) {
  return pixelsOf(size) > limits.maxPixels;
}

// Some readers fill what a cut file lacks with gray instead of refusing it.
bool isCutJpeg(std::span<const std::uint8_t> file) {
  if (file.size() < 4 || file[0] != 0xff || file[1] != 0xd8) return false;
  // The blocks before the picture say how long they are, and may hold a whole smaller one.
  std::size_t at = 2;
  while (at + 4 <= file.size() && file[at] == 0xff && file[at + 1] != 0xda) {
    if (file[at + 1] == 0xff) {  // filled up before the next block
      ++at;
      continue;
    }
    at += 2 + std::size_t{file[at + 2]} * 256 + file[at + 3];
  }
  for (; at + 2 <= file.size(); ++at) {
    if (file[at] == 0xff && file[at + 1] == 0xd9) return false;
  }
  return true;
}

bool isCutBmp(std::span<const std::uint8_t> file) {
  if (file.size() < 6 || file[0] != 'B' || file[1] != 'M') return false;
  const auto part = [&](std::size_t i) { return std::size_t{file[2 + i]} << (8 * i); };
  return (part(0) | part(1) | part(2) | part(3)) > file.size();
}

// In place where it can be, and copied once: each page that is touched anew costs as much as its
// pixels. Rows of four bytes a pixel have no gaps between them.
Pixels toPixels(QImage image) {
  const QImage rgba = std::move(image).convertToFormat(QImage::Format_RGBA8888_Premultiplied);
  return {rgba.width(), rgba.height(),
          Bytes(rgba.constBits(), rgba.constBits() + rgba.sizeInBytes())};
}

}  // namespace

ImageCodec::ImageCodec() {
  makeRoomFor(DecodeLimits().maxPixels);
}

std::optional<Pixels> ImageCodec::decode(std::span<const std::uint8_t> bytes,
                                         const DecodeLimits& limits) const {
  QByteArray data = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                            static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&data);
  if (bytes.empty() || isCutJpeg(bytes) || isCutBmp(bytes) || !buffer.open(QIODevice::ReadOnly)) {
    return std::nullopt;
  }
  makeRoomFor(limits.maxPixels);
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QSize declared = reader.size();
  if (declared.isValid()) {
    if (declared.isEmpty() || exceeds(declared, limits)) return std::nullopt;
    // A scaled read leaves out most of the work of decoding.
    const QSize wanted = fitted(declared, limits.maxSide);
    if (wanted != declared) reader.setScaledSize(wanted);
  }
  QImage image = reader.read();
  if (image.isNull() || exceeds(image.size(), limits)) return std::nullopt;
  if (const QSize wanted = fitted(image.size(), limits.maxSide); wanted != image.size()) {
    image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  // Our pixels are sRGB; a file that says nothing of its colours has them already.
  if (image.colorSpace().isValid()) image.convertToColorSpace(QColorSpace::SRgb);
  return toPixels(std::move(image));
}

std::int64_t ImageCodec::declaredPixels(std::span<const std::uint8_t> bytes) const {
  QByteArray data = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                            static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&data);
  if (bytes.empty() || !buffer.open(QIODevice::ReadOnly)) return 0;
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  const QSize size = reader.size();
  return size.isValid() ? pixelsOf(size) : 0;
}

Bytes ImageCodec::encodePng(const Pixels& pixels) const {
  const auto row = std::int64_t{4} * pixels.width;
  if (pixels.width <= 0 || pixels.height <= 0 ||
      static_cast<std::int64_t>(pixels.rgba.size()) != row * pixels.height) {
    return {};
  }
  const QImage image(pixels.rgba.data(), pixels.width, pixels.height, row,
                     QImage::Format_RGBA8888_Premultiplied);
  QByteArray data;
  QBuffer buffer(&data);
  if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG")) return {};
  return Bytes(data.begin(), data.end());
}

}  // namespace zq::qt
