// ZQSwiftUI, MIT licence; see LICENSE.
// Files and servers as they come, from the address to the pixels of a view.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QTemporaryDir>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <tests/qt/local_server.hpp>
#include <tests/qt/pictures.hpp>
#include <tests/qt/support.hpp>
#include <vector>
#include <zqswiftui/images/zq_local_url_image.hpp>
#include <zqswiftui/images/zq_url_image.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/thread_pool.hpp>
#include <zqswiftui/platform/base/zq_id.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq::qt {
namespace {

QByteArray encoded(const QImage& image, const char* format) {
  QByteArray data;
  QBuffer buffer(&data);
  buffer.open(QIODevice::WriteOnly);
  EXPECT_TRUE(image.save(&buffer, format)) << format;
  return data;
}

QImage plain(int width, int height, QRgb color = qRgb(200, 30, 40)) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(color);
  return image;
}

// 8 by 8 of full magenta and yellow in inks, as print shops send them.
QByteArray inkJpeg() {
  return QByteArray::fromHex(
      "ffd8ffee000e41646f626500640000000002ffdb0043001b12141714111b1716171e1c1b2028422b28252528"
      "513a3d3042605565645f555d5b6a7899816a7190735b5d85b586909ea3abadab6780bcc9baa6c799a8aba4ff"
      "db0043011c1e1e2823284e2b2b4ea46e5d6ea4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4"
      "a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4a4ffc0001408000800080401220002110103110104"
      "2200ffc400160001010100000000000000000000000000000406ffc400141001000000000000000000000000"
      "00000000ffc4001501010100000000000000000000000000000406ffc4001411010000000000000000000000"
      "0000000000ffda000e040100021103110400003f00bc03134d300fffd9");
}

// A red and a blue pixel.
QByteArray gif() {
  return QByteArray::fromHex(
      "47494638396102000100f00000ff00000000ff21f90400000000002c0000000002000100000202440a003b");
}

std::uint32_t crcOf(const QByteArray& bytes) {
  std::uint32_t crc = 0xffffffffU;
  for (const char byte : bytes) {
    crc ^= static_cast<std::uint8_t>(byte);
    for (int i = 0; i < 8; ++i) crc = (crc >> 1) ^ (0xedb88320U & (0U - (crc & 1U)));
  }
  return ~crc;
}
void put(QByteArray& file, qsizetype at, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) file[at + i] = static_cast<char>(value >> (24 - 8 * i));
}

// A file in which all is right but that it claims another size.
QByteArray claiming(std::uint32_t width, std::uint32_t height) {
  QByteArray file = encoded(plain(8, 8), "PNG");
  put(file, 16, width);
  put(file, 20, height);
  put(file, 29, crcOf(file.mid(12, 17)));
  return file;
}

// One whose checksums are right though its compressed pixels are none; with a chunk before them.
QByteArray misPacked(const QByteArray& chunk = {}) {
  QByteArray file = encoded(toQImage(noise(30, 20)), "PNG");
  const qsizetype name = file.indexOf("IDAT");
  const auto number = [&](qsizetype at) { return file.mid(at, 4).toHex().toLong(nullptr, 16); };
  const qsizetype length = number(name - 4);
  for (qsizetype i = 40; i < 60; ++i) file[name + 4 + i] = '\xff';
  put(file, name + 4 + length, crcOf(file.mid(name, 4 + length)));
  return file.insert(33, chunk);
}

// A chunk that is whole: its length, its name and content, and their sum.
QByteArray chunkOf(const QByteArray& named) {
  QByteArray chunk(4, 0);
  put(chunk, 0, static_cast<std::uint32_t>(named.size() - 4));
  chunk += named + QByteArray(4, 0);
  put(chunk, chunk.size() - 4, crcOf(named));
  return chunk;
}

bool reads(const char* format) {
  return QImageReader::supportedImageFormats().contains(format);
}

// What the process has held at most, in kilobytes.
long peakMemory() {
  QFile status(QStringLiteral("/proc/self/status"));
  if (!status.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& line : status.readAll().split('\n')) {
    if (line.startsWith("VmHWM:")) return line.mid(6).trimmed().split(' ')[0].toLong();
  }
  return 0;
}

class RealPictures : public testing::Test {
 protected:
  Url file(const std::string& name, const QByteArray& bytes) {
    const std::string path = folder_.filePath(QString::fromStdString(name)).toStdString();
    QFile written(QString::fromStdString(path));
    EXPECT_TRUE(written.open(QIODevice::WriteOnly));
    written.write(bytes);
    return Url::file(path);
  }
  static std::shared_ptr<ZQLocalURLImage> loaded(const Url& url, const DecodeSize& size = {}) {
    using Status = ZQLocalURLImage::Status;
    auto model = ZQLocalURLImage::lookup(url, size);
    EXPECT_TRUE(waitFor([&] {
      const Status now = model->status;
      return now == Status::ready || now == Status::failed;
    })) << url.text();
    return model;
  }

 private:
  QTemporaryDir folder_;
};

TEST_F(RealPictures, areReadByWhatTheyHoldAndWhateverTheyAreCalled) {
  QImage deep(3, 2, QImage::Format_RGBA64);
  deep.fill(QColor(200, 30, 40));
  const QByteArray svg =
      "<svg xmlns='http://www.w3.org/2000/svg' width='40' height='20'>"
      "<rect width='40' height='20' fill='#c81e28'/></svg>";
  struct Row {
    const char* name;
    QByteArray bytes;
    const char* format;  // that a plug-in may have to read
    int width, height;
    QRgb first;
    int tolerance;
  };
  const QRgb red = qRgb(200, 30, 40);
  const std::vector<Row> rows = {
      {"plain.png", encoded(plain(30, 20), "PNG"), "png", 30, 20, red, 0},
      {"one pixel.png", encoded(plain(1, 1), "PNG"), "png", 1, 1, red, 0},
      {"deep.png", encoded(deep, "PNG"), "png", 3, 2, red, 1},
      {"one pixel.jpg", encoded(plain(1, 1), "JPG"), "jpeg", 1, 1, red, 6},
      {"a photograph.png", encoded(plain(24, 16), "JPG"), "jpeg", 24, 16, red, 6},
      {"no extension", encoded(plain(5, 5), "PNG"), "png", 5, 5, red, 0},
      {"a # of 100%.png", encoded(plain(5, 4), "PNG"), "png", 5, 4, red, 0},
      {"\xC3\xA9\xE4\xB8\xAD.png", encoded(plain(4, 5), "PNG"), "png", 4, 5, red, 0},
      {"inks.jpg", inkJpeg(), "jpeg", 8, 8, qRgb(255, 0, 0), 60},
      {"two.gif", gif(), "gif", 2, 1, qRgb(255, 0, 0), 0},
      {"drawn.svg", svg, "svg", 40, 20, red, 0},
      {"small.webp", reads("webp") ? encoded(plain(16, 16), "WEBP") : QByteArray(), "webp", 16, 16,
       red, 12},
  };
  for (const Row& row : rows) {
    if (!reads(row.format)) continue;
    const auto model = loaded(file(row.name, row.bytes));
    const auto image = model->image_.get();
    ASSERT_TRUE(image) << row.name << ": " << model->failureReason();
    EXPECT_EQ(image->width(), row.width) << row.name;
    EXPECT_EQ(image->height(), row.height) << row.name;
    const QRgb pixel = toQImage(*image).pixel(0, 0);
    EXPECT_NEAR(qRed(pixel), qRed(row.first), row.tolerance) << row.name;
    EXPECT_NEAR(qGreen(pixel), qGreen(row.first), row.tolerance) << row.name;
    EXPECT_NEAR(qBlue(pixel), qBlue(row.first), row.tolerance) << row.name;
    EXPECT_EQ(qAlpha(pixel), 255) << row.name;
  }
}

TEST_F(RealPictures, thatAreNoneFailWithAReasonAndTakeNoMemory) {
  constexpr long kBearable = 65'536;  // kilobytes
  const QByteArray png = encoded(plain(300, 200), "PNG");
  QByteArray damaged = encoded(toQImage(noise(30, 20)), "PNG");
  damaged[damaged.size() / 2] = static_cast<char>(~damaged[damaged.size() / 2]);
  const QByteArray cutWebp = encoded(toQImage(noise(30, 20)), "WEBP").left(200);
  testing::internal::CaptureStderr();
  const struct {
    const char* name;
    QByteArray bytes;
    const char* reason;  // a part of the sentence
  } rows[] = {
      {"empty.png", {}, "no whole picture"},
      {"a text.png", "Dear reader,\nthis is no picture.\n", "no whole picture"},
      {"a page.jpg", "<html><body>404</body></html>", "no whole picture"},
      {"cut.png", png.left(png.size() / 2), "no whole picture"},
      {"cut.jpg", encoded(plain(300, 200), "JPG").left(500), "no whole picture"},
      {"header.png", png.left(33), "no whole picture"},
      {"damaged.png", damaged, "no whole picture"},
      {"mispacked.png", misPacked(), "no whole picture"},
      {"mispacked, of other colours.png", misPacked(chunkOf(QByteArray("gAMA\0\1\x86\xa0", 8))),
       "no whole picture"},
      {"of no profile.png", misPacked(chunkOf("iCCPname")), "no whole picture"},
      {"nothing in it.png", claiming(11000, 12000), "no whole picture"},
      {"cut.gif", gif().left(gif().size() - 2), "no whole picture"},
      {"cut in its head.gif", gif().left(25), "no whole picture"},
      {"cut.webp", reads("webp") ? cutWebp : QByteArray(), "no whole picture"},
      {"cut.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><rect width='4'",
       "no whole picture"},
      {"cut between.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><g>",
       "no whole picture"},
      {"bomb.png", claiming(30000, 30000), "900000000 pixels"},
      {"just beyond.png", claiming(11586, 11586), "134235396 pixels"},
      {"flat.png", claiming(0, 8), "no whole picture"},
      {"none.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='30000' height='30000'/>", ""},
  };
  const long before = peakMemory();
  for (const auto& row : rows) {
    const Url url = file(row.name, row.bytes);
    for (const DecodeSize size : {DecodeSize{}, DecodeSize{.points = 64}}) {
      const auto model = loaded(url, size);
      EXPECT_EQ(model->status, ZQLocalURLImage::Status::failed) << row.name;
      EXPECT_FALSE(model->image_.get()) << row.name;
#ifndef NDEBUG
      EXPECT_NE(model->failureReason().find(row.reason), std::string::npos)
          << row.name << ": " << model->failureReason();
#endif
    }
  }
  EXPECT_LT(peakMemory() - before, kBearable);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "they are told of by their status alone";
  EXPECT_EQ(loaded(Url::file("/no/such/file.png"))->status, ZQLocalURLImage::Status::failed);
  EXPECT_EQ(loaded(Url::file("/tmp"))->status, ZQLocalURLImage::Status::failed);
}

TEST_F(RealPictures, standInTheMiddleOfTheirRoomInAWindow) {
  QImage image(60, 30, QImage::Format_RGB32);
  image.fill(qRgb(0, 0, 255));
  for (int y = 0; y < 30; ++y) {
    for (int x = 0; x < 30; ++x) image.setPixel(x, y, qRgb(255, 0, 0));
  }
  const Url url = file("half and half.png", encoded(image, "PNG"));
  HostWidget window(ZQLocalURLImageView(url).frame(100, 100));
  window.resize(100, 100);
  window.show();
  const auto pixel = [&](int x, int y) { return window.grab().toImage().pixel(x, y); };
  ASSERT_TRUE(waitFor([&] { return pixel(25, 50) == qRgb(255, 0, 0); }));
  EXPECT_EQ(pixel(75, 50), qRgb(0, 0, 255));
  EXPECT_EQ(pixel(50, 10), pixel(1, 1)) << "above it is what lies behind";
}

class PicturesOfAServer : public testing::Test {
 protected:
  using Status = ZQURLImage::Status;
  PicturesOfAServer() { EXPECT_TRUE(server_.start()); }
  ~PicturesOfAServer() override {
    for (const std::string& path : kept_) std::filesystem::remove(path);
  }
  std::string address(const char* path) {
    std::string url = server_.url(path);
    kept_.push_back(keptPath(url));
    return url;
  }
  static std::string keptPath(const std::string& url) {
    return fu_getCacheFolderUrl(true)
        .appending("Vendel")
        .appending("ZQURLImage")
        .appending(ZQId::md5(url))
        .path();
  }
  // The statuses on the way to the last, one after the other.
  std::vector<Status> run(const std::shared_ptr<ZQURLImage>& model) {
    std::vector<Status> seen;
    const auto note = [&] {
      const Status now = model->status;
      if (seen.empty() || seen.back() != now) seen.push_back(now);
    };
    note();
    const Subscription told = model->didChange.connect(note);
    EXPECT_TRUE(
        waitFor([&] { return seen.back() == Status::ready || seen.back() == Status::failed; }));
    return seen;
  }

  LocalServer server_;

 private:
  std::vector<std::string> kept_;
};

TEST_F(PicturesOfAServer, comeOrFailByWhatItAnswers) {
  const QByteArray picture = encoded(plain(30, 20), "PNG");
  const auto typed = [](const char* type, const QByteArray& body) {
    return QByteArray("HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Type: ") + type +
           "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
  };
  server_.set("/a%20b%20c.png", LocalServer::ok(picture));
  server_.set("/moved", "HTTP/1.1 302 Found\r\nLocation: /a%20b%20c.png\r\n\r\n");
  server_.set("/in-a-circle", "HTTP/1.1 302 Found\r\nLocation: /in-a-circle\r\n\r\n");
  server_.set("/missing", "HTTP/1.1 404 Not Found\r\nContent-Length: " +
                              QByteArray::number(picture.size()) + "\r\n\r\n" + picture);
  server_.set("/cut", "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(picture.size()) +
                          "\r\n\r\n" + picture.left(picture.size() / 2));
  server_.set("/said-to-be-text", typed("text/plain", picture));
  server_.set("/said-to-be-a-picture", typed("image/png", "<html>Sorry</html>"));
  server_.set("/bomb", typed("image/png", claiming(30000, 30000)));
  const struct {
    const char* path;
    bool comes;
  } rows[] = {{"/a b c.png", true},
              {"/moved", true},
              {"/in-a-circle", false},
              {"/missing", false},
              {"/cut", false},
              {"/said-to-be-text", true},
              {"/said-to-be-a-picture", false},
              {"/bomb", false}};
  for (const auto& row : rows) {
    const std::string url = address(row.path);
    const auto model = ZQURLImage::lookup(url);
    EXPECT_EQ(run(model), (std::vector<Status>{Status::downloading,
                                               row.comes ? Status::ready : Status::failed}))
        << row.path;
    EXPECT_EQ(model->image_.get().has_value(), row.comes) << row.path;
    if (row.comes) {
      EXPECT_TRUE(waitFor([&] { return readFile(keptPath(url)).ok(); })) << row.path;
    } else {
      EXPECT_FALSE(readFile(keptPath(url)).ok()) << row.path;
    }
  }
}

TEST_F(PicturesOfAServer, areShownFromTheDiskByTheNextRunUntilTheyComeAnew) {
  const std::string url = address("/changing.png");
  server_.set("/changing.png", LocalServer::ok(encoded(plain(30, 20), "PNG")));
  run(ZQURLImage::lookup(url));
  ASSERT_TRUE(waitFor([&] { return readFile(keptPath(url)).ok(); }));
  // One of another size is as new as one of another process.
  server_.hold("/changing.png", true);
  server_.set("/changing.png", LocalServer::ok(encoded(plain(60, 20), "PNG")));
  const auto next = ZQURLImage::lookup(url, DecodeSize{.points = 100});
  ASSERT_TRUE(waitFor([&] { return next->status == Status::cacheTemp; }));
  EXPECT_EQ(next->image_.get()->width(), 30);
  server_.hold("/changing.png", false);
  EXPECT_EQ(run(next), (std::vector<Status>{Status::cacheTemp, Status::ready}));
  EXPECT_EQ(next->image_.get()->width(), 60);
  // What is kept shows where the server is gone.
  server_.close();
  const auto later = ZQURLImage::lookup(url, DecodeSize{.points = 200});
  EXPECT_EQ(run(later).back(), Status::failed);
  EXPECT_TRUE(waitFor([&] { return later->image_.get().has_value(); }));
}

// What the next case begins as a process of its own: it tells the statuses, each with the width of
// the picture that there is, and ends when what is kept is written.
TEST_F(PicturesOfAServer, areLoadedByAnotherProcess) {
  const QByteArray url = qgetenv("ZQ_TEST_PICTURE");
  if (url.isEmpty()) GTEST_SKIP() << "begun by another case";
  const auto model = ZQURLImage::lookup(url.toStdString());
  std::string told = "statuses:";
  const auto note = [&] {
    const auto image = model->image_.get();
    const std::string now = std::string(1, "scdrf"[static_cast<int>(model->status.get())]) +
                            (image ? std::to_string(image->width()) : "");
    if (!told.ends_with(" " + now)) told += " " + now;
  };
  const Subscription changes = model->didChange.connect(note);
  run(model);
  dynamic_cast<ThreadPool&>(zq::Platform::current().background()).waitUntilIdle();
  std::puts(told.c_str());
}

class PicturesOfRuns : public PicturesOfAServer {
 protected:
  // The statuses that another process tells, under a limit of the shell.
  std::string load(const std::string& url, const char* limit = "") {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", home_.path());
    environment.insert("ZQ_TEST_PICTURE", QString::fromStdString(url));
    process.setProcessEnvironment(environment);
    process.start("bash",
                  {"-c", QString(limit) + "exec \"$0\" --gtest_filter=*areLoadedByAnotherProcess",
                   QCoreApplication::applicationFilePath()});
    EXPECT_TRUE(waitFor([&] { return process.state() == QProcess::NotRunning; }));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    for (const QByteArray& line : process.readAllStandardOutput().split('\n')) {
      if (line.startsWith("statuses: ")) return line.mid(10).toStdString();
    }
    return "nothing";
  }
  // All files below the folder that pictures are kept in.
  QStringList kept() const {
    QStringList files;
    QDirIterator all(home_.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (all.hasNext()) {
      if (const QString file = all.next(); file.contains("/ZQURLImage/")) files.append(file);
    }
    return files;
  }
  QByteArray keptBytes() const {
    QFile file(kept().value(0));
    return kept().size() == 1 && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  QTemporaryDir home_;
};

TEST_F(PicturesOfRuns, areKeptFromOneToTheNextAsFarAsTheDiskLets) {
  const QByteArray first = encoded(toQImage(noise(30, 20)), "PNG");
  const QByteArray second = encoded(toQImage(noise(60, 20)), "PNG");
  ASSERT_GT(first.size(), 1024) << "more than the limit below";
  const std::string url = server_.url("/p.png");
  server_.set("/p.png", LocalServer::ok(first));
  EXPECT_EQ(load(url), "d30 r30");
  EXPECT_EQ(keptBytes(), first);
  server_.set("/p.png", LocalServer::ok(second));
  EXPECT_EQ(load(url), "d30 c30 c60 r60");
  EXPECT_EQ(keptBytes(), second);

  QFile file(kept().value(0));
  ASSERT_TRUE(file.resize(second.size() / 2));
  EXPECT_EQ(load(url), "d60 r60") << "a damaged file is none";
  EXPECT_EQ(keptBytes(), second) << "and replaced";
  server_.set("/p.png", "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n");
  EXPECT_EQ(load(url), "d60 c60 f60");
  EXPECT_EQ(keptBytes(), second);

  server_.set("/p.png", LocalServer::ok(first));
  EXPECT_EQ(load(url, "ulimit -f 1; trap '' XFSZ; "), "d60 c60 c30 r30") << "a disk that is full";
  EXPECT_EQ(keptBytes(), second) << "whole as it was, and nothing beside it";
  EXPECT_EQ(server_.connections, 5) << "each asked once";

  ASSERT_TRUE(QDir(home_.filePath(".qttest")).removeRecursively());
  QFile inTheWay(home_.filePath(".qttest"));
  ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
  EXPECT_EQ(load(url), "d30 r30") << "no folder can be made";
}

}  // namespace
}  // namespace zq::qt
