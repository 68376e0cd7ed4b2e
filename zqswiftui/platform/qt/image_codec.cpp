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
#include <zqswiftui/platform/qt/png_reading.hpp>
#include <zqswiftui/platform/qt/quiet_reading.hpp>

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

// The first picture of the file is all that is shown of it; what comes after may be cut off.
bool isCutGif(std::span<const std::uint8_t> file) {
  if (file.size() < 13 || file[0] != 'G' || file[1] != 'I' || file[2] != 'F') return false;
  const auto colours = [](std::uint8_t flags) {
    return (flags & 0x80) != 0 ? std::size_t{3} << ((flags & 7) + 1) : 0;
  };
  std::size_t at = 13 + colours(file[10]);
  const auto skipBlocks = [&] {  // to the empty one at their end
    while (at < file.size() && file[at] != 0) at += 1 + std::size_t{file[at]};
    return at++ < file.size();
  };
  while (at < file.size()) {
    const std::uint8_t kind = file[at];
    if (kind == ',') {  // a picture: its place, its colours, the width of its codes
      if (at + 10 >= file.size()) return true;
      at += 11 + colours(file[at + 9]);
      return !skipBlocks();
    }
    if (kind != '!') return false;  // the end, or nothing that is known: the reader's affair
    at += 2;
    if (!skipBlocks()) return true;
  }
  return true;
}

bool isDamaged(std::span<const std::uint8_t> file) {
  return isCutJpeg(file) || isCutBmp(file) || isCutGif(file);
}

// Pixels that a reader may write into, as large as the picture is going to be. Each page that is
// touched anew costs as much as its pixels, so what needs no room of its own is much quicker. What
// only claims to be large gets none before it is read.
constexpr std::int64_t kMostAhead = std::int64_t{1} << 22;

Pixels roomFor(QSize size, QImage::Format format) {
  const bool fits = format == QImage::Format_RGB32 || format == QImage::Format_ARGB32;
  if (!fits || size.isEmpty() || pixelsOf(size) > kMostAhead) return {};
  return {size.width(), size.height(), Bytes(4 * static_cast<std::size_t>(pixelsOf(size)))};
}

// Whether the reader, and what came after it, have left the picture there.
bool holds(const Pixels& room, const QImage& image) {
  return !room.rgba.empty() && image.constBits() == room.rgba.data() &&
         (image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32);
}

void premultiply(Pixels& pixels) {
  auto* const all = reinterpret_cast<QRgb*>(pixels.rgba.data());
  for (std::size_t i = 0; i < pixels.rgba.size() / 4; ++i) all[i] = qPremultiply(all[i]);
}

// From one order of the four bytes to the other.
void turnAround(Pixels& pixels, bool opaque) {
  if (!opaque) premultiply(pixels);
  auto* const all = reinterpret_cast<QRgb*>(pixels.rgba.data());
  const QRgb alpha = opaque ? 0xff000000U : 0;
  for (std::size_t i = 0; i < pixels.rgba.size() / 4; ++i) {
    const QRgb p = all[i];
    all[i] = alpha | (p & 0xff00ff00U) | (p << 16 & 0xff0000U) | (p >> 16 & 0xffU);
  }
}

// In place where it can be, and copied once. Rows of four bytes a pixel have no gaps between them.
Pixels toPixels(QImage image) {
  const QImage rgba = std::move(image).convertToFormat(QImage::Format_RGBA8888_Premultiplied);
  return {rgba.width(), rgba.height(),
          Bytes(rgba.constBits(), rgba.constBits() + rgba.sizeInBytes())};
}

// Our pixels are sRGB; a file that says nothing of its colours has them already.
QImage toStandardColours(QImage image) {
  if (image.colorSpace().isValid()) image.convertToColorSpace(QColorSpace::SRgb);
  return image;
}

std::optional<Pixels> decodePng(std::span<const std::uint8_t> bytes, const DecodeLimits& limits) {
  std::optional<PngPicture> png = readPng(bytes, limits.maxPixels);
  if (!png) return std::nullopt;
  Pixels& pixels = png->pixels;
  const QSize size(pixels.width, pixels.height), wanted = fitted(size, limits.maxSide);
  if (wanted == size && !png->colours.isValid()) {
    if (!png->opaque) premultiply(pixels);
    return std::move(pixels);
  }
  QImage image(pixels.rgba.data(), size.width(), size.height(), qsizetype{4} * size.width(),
               png->opaque ? QImage::Format_RGBX8888 : QImage::Format_RGBA8888);
  if (wanted != size) image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  image.setColorSpace(png->colours);
  return toPixels(toStandardColours(std::move(image)));
}

}  // namespace

ImageCodec::ImageCodec() {
  makeRoomFor(DecodeLimits().maxPixels);
}

std::optional<Pixels> ImageCodec::decode(std::span<const std::uint8_t> bytes,
                                         const DecodeLimits& limits) const {
  if (isPng(bytes)) return decodePng(bytes, limits);
  QByteArray data = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                            static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&data);
  if (bytes.empty() || isDamaged(bytes) || !buffer.open(QIODevice::ReadOnly)) {
    return std::nullopt;
  }
  makeRoomFor(limits.maxPixels);
  const QuietReading quiet;
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QSize declared = reader.size();
  Pixels room;
  if (declared.isValid()) {
    if (declared.isEmpty() || exceeds(declared, limits)) return std::nullopt;
    // A scaled read leaves out most of the work of decoding.
    const QSize wanted = fitted(declared, limits.maxSide);
    if (wanted != declared) reader.setScaledSize(wanted);
    room = roomFor(wanted, reader.imageFormat());
  }
  QImage image;
  if (!room.rgba.empty()) {
    image = QImage(room.rgba.data(), room.width, room.height, qsizetype{4} * room.width,
                   reader.imageFormat());
  }
  if (!reader.read(&image) || image.isNull() || exceeds(image.size(), limits)) return std::nullopt;
  if (const QSize wanted = fitted(image.size(), limits.maxSide); wanted != image.size()) {
    image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  image = toStandardColours(std::move(image));
  if (!holds(room, image)) return toPixels(std::move(image));
  turnAround(room, image.format() == QImage::Format_RGB32);
  return room;
}

std::int64_t ImageCodec::declaredPixels(std::span<const std::uint8_t> bytes) const {
  if (isPng(bytes)) return declaredPngPixels(bytes);
  QByteArray data = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                            static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&data);
  if (bytes.empty() || isDamaged(bytes) || !buffer.open(QIODevice::ReadOnly)) return 0;
  const QuietReading quiet;
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
