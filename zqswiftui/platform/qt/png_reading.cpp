// ZQSwiftUI, MIT licence; see LICENSE.
#include <png.h>

#include <QBuffer>
#include <QImage>
#include <algorithm>
#include <array>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/qt/png_reading.hpp>
#include <zqswiftui/platform/qt/quiet_reading.hpp>

namespace zq::qt {
namespace {

using File = std::span<const std::uint8_t>;

constexpr std::array<std::uint8_t, 8> kMark{0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
constexpr std::size_t kHeaderEnd = kMark.size() + 12 + 13;

std::uint32_t numberAt(File file, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) number = number << 8 | file[at + i];
  return number;
}

// The library's own reader into memory, which keeps its complaints to itself.
class Reader {
 public:
  explicit Reader(File file) {
    image.version = PNG_IMAGE_VERSION;
    isOpen = png_image_begin_read_from_memory(&image, file.data(), file.size()) != 0;
  }
  ~Reader() { png_image_free(&image); }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  std::int64_t declaredPixels() const { return std::int64_t{image.width} * image.height; }
  bool read(Bytes& rgba) {
    // Deep pixels are taken for linear ones otherwise.
    image.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;
    image.format = PNG_FORMAT_RGBA;
    rgba.resize(4 * static_cast<std::size_t>(declaredPixels()));
    return png_image_finish_read(&image, nullptr, rgba.data(), 0, nullptr) != 0;
  }

  png_image image{};
  bool isOpen = false;
};

struct Chunks {
  bool whole = false;         // to the one at the end
  std::size_t packed = 0;     // bytes of the pixels as they are in the file
  bool hasProfile = false;    // or other colours than sRGB
  std::vector<File> colours;  // the chunks that tell of them, whole
};

Chunks chunksOf(File file) {
  Chunks found;
  bool standard = false;
  for (std::size_t at = kMark.size(); at + 12 <= file.size();) {
    // Its length, its name, its content, and a checksum.
    const std::size_t length = numberAt(file, at);
    if (length > file.size() - at - 12) break;
    const std::string_view name(reinterpret_cast<const char*>(file.data()) + at + 4, 4);
    if (name == "IDAT") found.packed += length;
    if (found.packed == 0 && (name == "iCCP" || name == "sRGB" || name == "gAMA" || name == "cHRM"))
      found.colours.push_back(file.subspan(at, length + 12));
    standard = standard || name == "sRGB";
    found.hasProfile = found.hasProfile || name == "iCCP";
    at += length + 12;
    found.whole = name == "IEND";
    if (found.whole) break;
  }
  found.hasProfile = found.hasProfile || (!standard && !found.colours.empty());
  return found;
}

// What a file of that length can hold: its compression makes 1032 bytes of one at most.
bool canHold(File file, const Chunks& chunks) {
  const std::uint8_t depth = file[24], kind = file[25];
  const int parts = kind == 6 ? 4 : kind == 2 ? 3 : kind == 4 ? 2 : 1;
  const double bits = static_cast<double>(numberAt(file, 16)) * numberAt(file, 20) * depth * parts;
  return bits / 8 <= 1032 * static_cast<double>(chunks.packed);
}

void append(Bytes& bytes, File more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

// The library turns some colours to sRGB itself, others not. Without their chunks it leaves all.
Bytes without(File file, const std::vector<File>& chunks) {
  Bytes rest;
  rest.reserve(file.size());
  const std::uint8_t* from = file.data();
  for (const File chunk : chunks) {
    append(rest, {from, chunk.data()});
    from = chunk.data() + chunk.size();
  }
  append(rest, {from, file.data() + file.size()});
  return rest;
}

// As Qt understands the chunks: it reads them in a picture of one pixel.
QColorSpace coloursOf(File file, const std::vector<File>& chunks) {
  const bool gray = (file[25] & 2) == 0;
  QImage pixel(1, 1, gray ? QImage::Format_Grayscale8 : QImage::Format_RGB32);
  pixel.fill(0);
  QByteArray data;
  QBuffer buffer(&data);
  if (!buffer.open(QIODevice::WriteOnly) || !pixel.save(&buffer, "PNG")) return {};
  qsizetype at = kHeaderEnd;
  for (const File chunk : chunks) {
    const auto size = static_cast<qsizetype>(chunk.size());
    data.insert(at, reinterpret_cast<const char*>(chunk.data()), size);
    at += size;
  }
  const QuietReading quiet;
  return QImage::fromData(data, "PNG").colorSpace();
}

}  // namespace

bool isPng(File file) {
  return file.size() >= kMark.size() && std::equal(kMark.begin(), kMark.end(), file.begin());
}

std::optional<PngPicture> readPng(File file, std::int64_t maxPixels) {
  const Chunks chunks = chunksOf(file);
  if (!chunks.whole || file.size() < kHeaderEnd || !canHold(file, chunks)) return std::nullopt;
  Bytes plain;
  PngPicture picture;
  if (chunks.hasProfile) {
    picture.colours = coloursOf(file, chunks.colours);
    plain = without(file, chunks.colours);
    file = plain;
  }
  Reader reader(file);
  if (!reader.isOpen || reader.declaredPixels() > maxPixels) return std::nullopt;
  picture.opaque = (reader.image.format & PNG_FORMAT_FLAG_ALPHA) == 0;
  picture.pixels.width = static_cast<int>(reader.image.width);
  picture.pixels.height = static_cast<int>(reader.image.height);
  if (!reader.read(picture.pixels.rgba)) return std::nullopt;
  return picture;
}

std::int64_t declaredPngPixels(File file) {
  const Reader reader(file);
  return reader.isOpen ? reader.declaredPixels() : 0;
}

}  // namespace zq::qt
