// ZQSwiftUI, MIT licence; see LICENSE.
#include "pictures.hpp"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <algorithm>
#include <atomic>
#include <thread>

// A bare decode on all cores, with nothing shown; and the maker of the files.
namespace bench {
namespace {

std::vector<QImage> decoded(const Wall& wall, const std::vector<std::string>& files) {
  std::vector<QImage> images(files.size());
  std::atomic<std::size_t> next{0};
  const auto work = [&] {
    for (std::size_t i; (i = next++) < files.size();) {
      // Read in one piece, for the reader would ask the system for each few kilobytes.
      QFile file(QString::fromStdString(files[i]));
      check(file.open(QIODevice::ReadOnly), "picture opened");
      QByteArray bytes = file.readAll();
      QBuffer buffer(&bytes);
      QImageReader reader(&buffer);
      if (wall.reduced) reader.setScaledSize({wall.cellWidth, wall.cellHeight});
      images[i] = reader.read();
    }
  };
  std::vector<std::thread> threads;
  for (unsigned i = 0; i < std::max(1u, std::thread::hardware_concurrency()); ++i) {
    threads.emplace_back(work);
  }
  for (std::thread& thread : threads) thread.join();
  return images;
}

void decodeAll(const Wall& wall, const std::string& folder, int n) {
  decoded(wall, warmUps(wall, folder));
  const std::vector<std::string> files = filesOf(wall, folder, n);
  const Timer timer;
  const std::vector<QImage> images = decoded(wall, files);
  const double ms = timer.ms();
  for (const QImage& image : images) {
    check(image.width() == (wall.reduced ? wall.cellWidth : wall.fileWidth), "picture decoded");
  }
  reportWall(wall, n, ms, nullptr);
}

// Slow gradients with grain, as a camera leaves it: neither blank nor noise alone.
QImage made(const Wall& wall, int seed) {
  QImage image(wall.fileWidth, wall.fileHeight, QImage::Format_RGB32);
  std::uint32_t s = static_cast<std::uint32_t>(seed) * 747796405u + 2891336453u;
  for (int y = 0; y < wall.fileHeight; ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < wall.fileWidth; ++x) {
      s ^= s << 13;
      s ^= s >> 17;
      s ^= s << 5;
      const auto grain = [&](int shift) { return static_cast<int>(s >> shift & 7); };
      const int slow = wall.fileWidth / 256;
      line[x] =
          qRgb((x / slow + seed * 5) % 256 ^ grain(0), (y / slow + seed * 11) % 256 ^ grain(8),
               ((x + y) / slow / 2 + seed * 17) % 256 ^ grain(16));
    }
  }
  return image;
}

// Photographs are ten, each under many names: making them takes longer than reading them.
void make(const Wall& wall, const std::string& folder) {
  const int distinct = wall.reduced ? 10 : wall.pictures + kWarmUps;
  for (int i = 0; i < wall.pictures + kWarmUps; ++i) {
    const QString file = QString::fromStdString(fileOf(wall, folder, i));
    const bool done =
        i < distinct
            ? made(wall, i).save(file, nullptr, wall.reduced ? 90 : -1)
            : QFile::copy(QString::fromStdString(fileOf(wall, folder, i % distinct)), file);
    check(done, "picture written");
  }
}

}  // namespace

bool pictures(const Arguments& arguments) {
  if (arguments.mode() != "make") return runWall(arguments, decodeAll);
  for (const Wall& wall : {kPictures, kPhotographs}) make(wall, arguments.dir());
  return true;
}

}  // namespace bench
