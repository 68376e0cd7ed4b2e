// ZQSwiftUI, MIT licence; see LICENSE.
// Services that read what others wrote: image files, the clipboard, settings on disk.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QClipboard>
#include <QColorSpace>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QImage>
#include <QImageReader>
#include <QMimeData>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <tests/qt/pictures.hpp>
#include <tests/qt/support.hpp>
#include <thread>
#include <vector>
#include <zqswiftui/platform/base/thread_pool.hpp>
#include <zqswiftui/platform/qt/image_codec.hpp>
#include <zqswiftui/platform/qt/main_queue.hpp>
#include <zqswiftui/platform/qt/platform.hpp>
#include <zqswiftui/platform/qt/preferences.hpp>

namespace zq::qt {
namespace {

Bytes encoded(const QImage& image, const char* format) {
  QByteArray data;
  QBuffer buffer(&data);
  buffer.open(QIODevice::WriteOnly);
  EXPECT_TRUE(image.save(&buffer, format)) << format;
  return Bytes(data.begin(), data.end());
}

QImage scene(int width, int height) {
  return toQImage(noise(width, height)).convertToFormat(QImage::Format_ARGB32);
}

TEST(QtImageFiles, everyFormatIsReadWholeAndRefusedWhenItIsCut) {
  const ImageCodec codec;
  for (const char* format : {"PNG", "JPG", "BMP", "WEBP"}) {
    const Bytes file = encoded(scene(60, 40), format);
    const auto whole = codec.decode(file, {});
    ASSERT_TRUE(whole) << format;
    EXPECT_EQ(whole->width, 60);
    EXPECT_EQ(whole->rgba.size(), std::size_t{60} * 40 * 4);
    for (const double part : {0.01, 0.2, 0.5, 0.8}) {
      const auto size = static_cast<std::size_t>(part * static_cast<double>(file.size()));
      EXPECT_FALSE(codec.decode(std::span(file).first(size), {})) << format << " cut at " << part;
    }
  }
}

TEST(QtImageFiles, damagedFilesNeverGiveMoreThanTheLimits) {
  const ImageCodec codec;
  std::mt19937 random(7);
  const DecodeLimits limits{.maxSide = 50, .maxPixels = 10000};
  for (const char* format : {"PNG", "JPG", "BMP", "WEBP"}) {
    const Bytes good = encoded(scene(60, 40), format);
    for (int i = 0; i < 60; ++i) {
      Bytes bad = good;
      for (int flips = 0; flips < 4; ++flips) {
        bad[random() % bad.size()] = static_cast<std::uint8_t>(random());
      }
      const auto pixels = codec.decode(bad, limits);
      if (!pixels) continue;
      EXPECT_LE(std::max(pixels->width, pixels->height), 50);
      EXPECT_EQ(pixels->rgba.size(), std::size_t{4} * static_cast<std::size_t>(pixels->width) *
                                         static_cast<std::size_t>(pixels->height));
    }
  }
}

TEST(QtImageFiles, aHeaderThatClaimsTheEarthIsRefusedByIt) {
  const ImageCodec codec;
  EXPECT_EQ(codec.declaredPixels(encoded(scene(60, 40), "JPG")), 2400);
  EXPECT_EQ(codec.declaredPixels({}), 0);
  EXPECT_EQ(codec.declaredPixels(Bytes{'x'}), 0);
  const std::string svg =
      "<svg xmlns='http://www.w3.org/2000/svg' width='2000000' height='2000000'/>";
  const Bytes drawing(svg.begin(), svg.end());
  EXPECT_FALSE(codec.decode(drawing, {}));
  EXPECT_EQ(codec.declaredPixels(drawing), std::int64_t{4000000000000});
}

// With and without transparency, which go into the pixels by ways of their own.
TEST(QtImageFiles, eachPixelComesAsItIs) {
  for (const bool transparent : {false, true}) {
    QImage image = toQImage(noise(37, 23)).convertToFormat(QImage::Format_ARGB32);
    for (int i = 0; transparent && i < 23; ++i) image.setPixel(i, i, qRgba(10 * i, 200, 90, 9 * i));
    if (!transparent) image.convertTo(QImage::Format_RGB32);
    const auto pixels = ImageCodec().decode(encoded(image, "PNG"), {});
    ASSERT_TRUE(pixels);
    EXPECT_EQ(toQImage(*ZQImage::fromPixels(*pixels)),
              image.convertToFormat(QImage::Format_RGBA8888_Premultiplied));
  }
}

TEST(QtImageFiles, coloursOfAWiderSpaceBecomeOurs) {
  QImage wide(4, 4, QImage::Format_RGB32);
  wide.fill(qRgb(200, 120, 60));
  wide.setColorSpace(QColorSpace::DisplayP3);
  const QRgb ours = wide.convertedToColorSpace(QColorSpace::SRgb).pixel(0, 0);
  ASSERT_NE(ours, wide.pixel(0, 0));
  const auto pixels = ImageCodec().decode(encoded(wide, "PNG"), {});
  ASSERT_TRUE(pixels);
  EXPECT_NEAR(pixels->rgba[0], qRed(ours), 1);
  EXPECT_NEAR(pixels->rgba[1], qGreen(ours), 1);
  EXPECT_NEAR(pixels->rgba[2], qBlue(ours), 1);
}

TEST(QtImageFiles, aPhotographMayBeFilledUpBeforeItsBlocks) {
  Bytes file = encoded(scene(16, 8), "JPG");
  file.insert(file.begin() + 2, 3, 0xff);
  EXPECT_TRUE(ImageCodec().decode(file, {}));
}

TEST(QtImageFiles, aHostMayRaiseTheLimitAboveThatOfTheReader) {
  ImageCodec().decode(encoded(scene(8, 8), "JPG"), {.maxPixels = std::int64_t{1} << 30});
  EXPECT_GE(QImageReader::allocationLimit(), 8192);
}

TEST(QtImageFiles, aDrawingIsReadAtItsSize) {
  const std::string svg =
      "<svg xmlns='http://www.w3.org/2000/svg' width='40' height='20'>"
      "<rect width='40' height='20' fill='#ff0000'/></svg>";
  const auto pixels = ImageCodec().decode(Bytes(svg.begin(), svg.end()), {.maxSide = 20});
  ASSERT_TRUE(pixels);
  EXPECT_EQ(pixels->width, 20);
  EXPECT_EQ(pixels->height, 10);
  EXPECT_EQ(pixels->rgba[std::size_t{4} * 105], 255);
}

// The file's Exif block, with nothing but the orientation.
Bytes turnedJpeg(const QImage& image, std::uint8_t orientation) {
  Bytes file = encoded(image, "JPG");
  const Bytes exif{0xff, 0xe1, 0, 34, 'E', 'x',         'i', 'f', 0, 0,    'M', 'M',
                   0,    42,   0, 0,  0,   8,           0,   1,   1, 0x12, 0,   3,
                   0,    0,    0, 1,  0,   orientation, 0,   0,   0, 0,    0,   0};
  file.insert(file.begin() + 2, exif.begin(), exif.end());
  return file;
}

TEST(QtImageFiles, photographsAreTurnedUprightAlsoWhenTheyAreReduced) {
  QImage image(80, 40, QImage::Format_RGB32);
  image.fill(Qt::white);
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 40; ++x) image.setPixel(x, y, qRgb(0, 0, 0));  // the top left quarter
  }
  const ImageCodec codec;
  const struct {
    std::uint8_t orientation;
    bool turned;
    double darkX, darkY;  // of the size
  } rows[] = {{1, false, 0.25, 0.25}, {3, false, 0.75, 0.75}, {6, true, 0.75, 0.25},
              {8, true, 0.25, 0.75},  {2, false, 0.75, 0.25}, {4, false, 0.25, 0.75},
              {5, true, 0.25, 0.25},  {7, true, 0.75, 0.75},  {99, false, 0.25, 0.25}};
  for (const auto& row : rows) {
    for (const int maxSide : {0, 20}) {
      const auto pixels = codec.decode(turnedJpeg(image, row.orientation), {.maxSide = maxSide});
      ASSERT_TRUE(pixels);
      const int longer = maxSide > 0 ? maxSide : 80;
      EXPECT_EQ(pixels->width, row.turned ? longer / 2 : longer) << int{row.orientation};
      EXPECT_EQ(pixels->height, row.turned ? longer : longer / 2) << int{row.orientation};
      const auto at = [&](double x, double y) {
        const auto column = static_cast<std::size_t>(x * pixels->width);
        const auto line = static_cast<std::size_t>(y * pixels->height);
        return pixels->rgba[4 * (line * static_cast<std::size_t>(pixels->width) + column)];
      };
      EXPECT_LT(at(row.darkX, row.darkY), 60) << int{row.orientation};
      EXPECT_GT(at(1 - row.darkX, 1 - row.darkY), 200) << int{row.orientation};
    }
  }
}

TEST(QtImageFiles, deepGrayAndTransparentPicturesBecomeEightBitsPremultiplied) {
  QImage deep(2, 1, QImage::Format_RGBA64);
  deep.setPixelColor(0, 0, QColor::fromRgba64(0x8080, 0, 0xffff, 0xffff));
  deep.setPixelColor(1, 0, QColor::fromRgba64(0xffff, 0xffff, 0xffff, 0x8080));
  EXPECT_EQ(ImageCodec().decode(encoded(deep, "PNG"), {})->rgba,
            (Bytes{128, 0, 255, 255, 128, 128, 128, 128}));
  QImage gray(1, 1, QImage::Format_Grayscale16);
  gray.setPixelColor(0, 0, QColor::fromRgba64(0x4040, 0x4040, 0x4040));
  EXPECT_EQ(ImageCodec().decode(encoded(gray, "PNG"), {})->rgba, (Bytes{64, 64, 64, 255}));
  QImage palette(1, 1, QImage::Format_Indexed8);
  palette.setColorTable({qRgba(1, 2, 3, 255)});
  palette.fill(0);
  EXPECT_EQ(ImageCodec().decode(encoded(palette, "PNG"), {})->rgba, (Bytes{1, 2, 3, 255}));
}

class QtClipboardOfOthers : public testing::Test {
 protected:
  ~QtClipboardOfOthers() override { QGuiApplication::clipboard()->clear(); }
  void offer(const std::vector<std::pair<const char*, QByteArray>>& contents) {
    auto* mime = new QMimeData;
    for (const auto& [type, bytes] : contents) mime->setData(QString::fromLatin1(type), bytes);
    QGuiApplication::clipboard()->setMimeData(mime);
  }
  void read() {
    Pasteboard& board = platform().pasteboard();
    int answers = 0;
    board.readText([&](auto answer) { text_ = std::move(answer), ++answers; });
    board.readImage([&](auto answer) { image_ = std::move(answer), ++answers; });
    board.readUrls([&](auto answer) { urls_ = std::move(answer), ++answers; });
    ASSERT_TRUE(waitFor([&] { return answers == 3; }));
  }
  std::optional<std::string> text_;
  std::optional<Bytes> image_;
  std::optional<std::vector<std::string>> urls_;
};

TEST_F(QtClipboardOfOthers, eachKindIsFoundAmongTheFormatsOfferedForIt) {
  offer({{"text/plain;charset=utf-8", "\xC3\xA9"}});
  read();
  EXPECT_EQ(text_, "\xC3\xA9");
  EXPECT_FALSE(image_ || urls_);
  offer({{"text/html", "<b>x</b>"}});
  read();
  EXPECT_FALSE(text_ || image_ || urls_);
  const Bytes jpeg = encoded(scene(5, 5), "JPG");
  const QByteArray bytes(reinterpret_cast<const char*>(jpeg.data()),
                         static_cast<qsizetype>(jpeg.size()));
  offer({{"image/jpeg", bytes}, {"text/plain", "a caption"}});
  read();
  EXPECT_EQ(image_, jpeg);
  EXPECT_EQ(text_, "a caption");
  offer({{"text/uri-list", "#none\r\n"}});
  read();
  EXPECT_FALSE(urls_ && !urls_->empty());
}

TEST_F(QtClipboardOfOthers, aPictureOfThisProcessAndABrokenOne) {
  QGuiApplication::clipboard()->setImage(scene(6, 4));
  read();
  ASSERT_TRUE(image_);
  EXPECT_EQ(ImageCodec().decode(*image_, {})->width, 6);
  Pasteboard& board = platform().pasteboard();
  board.setImage({1, 2, 3});  // no image: what was there must not stay
  read();
  EXPECT_FALSE(image_);
  board.setImage(encoded(scene(6, 4), "JPG"));
  const std::uint64_t before = board.changeCount();
  const auto offers = [](const char* type) {
    return QGuiApplication::clipboard()->mimeData()->hasFormat(QLatin1String(type));
  };
  EXPECT_TRUE(offers("image/jpeg"));
  EXPECT_TRUE(waitFor([&] { return offers("image/png"); })) << "what every program takes";
  EXPECT_TRUE(offers("image/jpeg"));
  EXPECT_EQ(board.changeCount(), before) << "the same content";
  board.setImage(encoded(scene(6, 4), "JPG"));
  board.setText("words");  // what comes later stays
  dynamic_cast<ThreadPool&>(platform().background()).waitUntilIdle();
  settle();
  EXPECT_FALSE(offers("image/png"));
  QGuiApplication::clipboard()->clear();
  read();
  EXPECT_GT(board.changeCount(), before);
  EXPECT_FALSE(text_ || image_ || urls_);
}

class QtSettingsFile : public testing::Test {
 protected:
  void write(const QByteArray& bytes) {
    QFile file(path_);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }

  QTemporaryDir folder_;
  QString path_ = folder_.filePath(QStringLiteral("p.ini"));
};

TEST_F(QtSettingsFile, aDamagedFileLosesAtMostItsDamagedValues) {
  write(
      "[General]\ngood=s:kept\nnumber=i:12x\nlist=l:, a, b\nreal=d:zero\nbare\n=\nx=q:?\nbool=b:7\n"
      "[broken\nother=s:lost?\n\xff\xfe=\x80\n");
  {
    Preferences preferences(platform().mainQueue(), path_);
    EXPECT_EQ(preferences.value("good"), PreferenceValue(std::string("kept")));
    EXPECT_EQ(preferences.value("list"), PreferenceValue(std::vector<std::string>{"a", "b"}));
    for (const char* key : {"number", "real", "x", "bare"}) {
      EXPECT_FALSE(preferences.value(key)) << key;
    }
    preferences.setValue("new", true);
  }
  const Preferences again(platform().mainQueue(), path_);
  EXPECT_EQ(again.value("new"), PreferenceValue(true));
  EXPECT_EQ(again.value("good"), PreferenceValue(std::string("kept")));
}

TEST_F(QtSettingsFile, bytesOfNoMeaningAreAnEmptyStart) {
  std::mt19937 random(3);
  QByteArray noiseBytes(20000, '\0');
  for (char& byte : noiseBytes) byte = static_cast<char>(random());
  write(noiseBytes);
  { Preferences(platform().mainQueue(), path_).setValue("key", std::int64_t{5}); }
  EXPECT_EQ(Preferences(platform().mainQueue(), path_).value("key"),
            PreferenceValue(std::int64_t{5}));
}

TEST_F(QtSettingsFile, extremeValuesAndKeysComeBackAsTheyWere) {
  using Limits = std::numeric_limits<double>;
  const std::pair<std::string, PreferenceValue> rows[] = {
      {"min", std::numeric_limits<std::int64_t>::min()},
      {"max", std::numeric_limits<std::int64_t>::max()},
      {"tiny", Limits::denorm_min()},
      {"huge", Limits::max()},
      {"inf", -Limits::infinity()},
      {"third", 1.0 / 3},
      {"[group]/key", std::string("s:")},
      {"General", std::string("@Invalid()")},
      {"a=b;c", std::string("x, y; \"z\" \\ \t\r\n")},
      {"%", std::string("\xF0\x9F\x98\x80")},
      {"%25", std::string()},
      {"\xC3\xA4", std::string(100000, 'x')},
      {"one of one", std::vector<std::string>{""}},
      {" lead", std::string(" blanks ")},
  };
  {
    Preferences first(platform().mainQueue(), path_);
    for (const auto& [key, value] : rows) first.setValue(key, value);
    first.setValue("nan", std::nan(""));
  }
  const Preferences second(platform().mainQueue(), path_);
  for (const auto& [key, value] : rows) EXPECT_EQ(second.value(key), value) << key;
  ASSERT_TRUE(second.value("nan"));
  EXPECT_TRUE(std::isnan(std::get<double>(*second.value("nan"))));
}

TEST_F(QtSettingsFile, changesOfAMomentAreWrittenTogetherAndLeaveNoOtherFiles) {
  Preferences preferences(platform().mainQueue(), path_);
  std::vector<std::thread> threads;
  threads.reserve(4);
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&preferences, t] {
      for (int i = 0; i < 50; ++i) {
        preferences.setValue("k" + std::to_string(t) + "." + std::to_string(i), std::int64_t{i});
        preferences.remove("k" + std::to_string(t) + ".7");
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_FALSE(QFile::exists(path_)) << "nothing is written at once";
  ASSERT_TRUE(waitFor([&] { return QFile::exists(path_); }));
  const Preferences read(platform().mainQueue(), path_);
  EXPECT_EQ(read.value("k3.49"), PreferenceValue(std::int64_t{49}));
  EXPECT_FALSE(read.value("k0.7"));
  EXPECT_LE(QDir(QFileInfo(path_).path()).entryList(QDir::Files).size(), 2);
}

TEST(QtFileDialogRequests, reachTheDialogAsTheyWereAsked) {
  using Kind = FileDialogRequest::Kind;
  const QTemporaryDir folder;
  const std::string path = folder.path().toStdString();
  const struct {
    FileDialogRequest request;
    QFileDialog::FileMode mode;
    QString title;
    QStringList filters;
  } rows[] = {
      {{Kind::openFile, "Title", "Message", {"png", "jpg"}, path},
       QFileDialog::ExistingFile,
       QStringLiteral("Title"),
       {QStringLiteral("PNG, JPG files (*.png *.PNG *.jpg *.JPG)")}},
      {{Kind::openFiles, "", "Message", {}, path},
       QFileDialog::ExistingFiles,
       QStringLiteral("Message"),
       {QStringLiteral("All Files (*)")}},
      {{Kind::chooseFolder, "Where", "", {}, path},
       QFileDialog::Directory,
       QStringLiteral("Where"),
       {QStringLiteral("All Files (*)")}},
      {{Kind::openFile, "T", "", {}, path + "/no/such/folder/file"},
       QFileDialog::ExistingFile,
       QStringLiteral("T"),
       {QStringLiteral("All Files (*)")}},
  };
  for (const auto& row : rows) {
    std::optional<std::vector<std::string>> answer;
    platform().fileDialogs().show(row.request, [&](auto paths) { answer = std::move(paths); });
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->fileMode(), row.mode);
    EXPECT_EQ(dialog->windowTitle(), row.title);
    EXPECT_EQ(dialog->nameFilters(), row.filters);
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptOpen);
    dialog->close();
    ASSERT_TRUE(waitFor([&] { return answer.has_value(); }));
    EXPECT_TRUE(answer->empty());
    EXPECT_TRUE(waitFor([] { return QApplication::activeModalWidget() == nullptr; }));
  }
  platform().fileDialogs().show({}, nullptr);
  QApplication::activeModalWidget()->close();
  settle();
}

TEST(QtFileDialogRequests, aDialogWhoseWindowEndsEndsWithIt) {
  auto window = std::make_unique<QWidget>();
  window->show();
  window->activateWindow();
  settle();
  const auto alive = std::make_shared<int>(0);
  platform().fileDialogs().show({}, [alive](const auto&) {});
  EXPECT_EQ(alive.use_count(), 2);
  window.reset();
  settle();
  EXPECT_EQ(alive.use_count(), 1);
}

TEST(QtMainQueue, aModalLoopInsideWorkSeesWhatComesDueMeanwhile) {
  zq::MainQueue& queue = platform().mainQueue();
  bool due = false, seenInside = false, done = false;
  queue.post([&] {
    seenInside = waitFor([&] { return due; });
    done = true;
  });
  queue.postDelayed(0.01, [&] { due = true; });
  ASSERT_TRUE(waitFor([&] { return done; }));
  EXPECT_TRUE(seenInside);
}

TEST(QtMainQueue, workThatIsPostedWithinWorkComesAfterAllThatWaits) {
  zq::MainQueue& queue = platform().mainQueue();
  std::string order;
  queue.post([&] {
    order += 'a';
    queue.post([&] { order += 'c'; });
    order += 'A';
  });
  queue.post([&] { order += 'b'; });
  ASSERT_TRUE(waitFor([&] { return order.size() == 4; }));
  EXPECT_EQ(order, "aAbc");
}

TEST(QtMainQueue, whatIsPostedAndDroppedWhileItEndsIsFreed) {
  const auto alive = std::make_shared<int>(0);
  // Posts more of itself as it goes, a bounded number of times.
  struct Bomb {
    MainQueue* queue;
    std::shared_ptr<int> alive;
    int left;
    ~Bomb() {
      if (left == 0) return;
      auto next = std::make_shared<Bomb>(Bomb{queue, alive, 0});
      next->left = left - 1;
      queue->post([next] {});
      queue->postDelayed(1, [next] {});
    }
  };
  for (int i = 0; i < 50; ++i) {
    auto queue = std::make_unique<MainQueue>();
    std::vector<std::thread> threads;
    threads.reserve(8);
    for (int t = 0; t < 8; ++t) {
      threads.emplace_back([&queue, alive] {
        for (int n = 0; n < 20; ++n) {
          queue->post([alive] {});
          queue->cancel(queue->postDelayed(n % 3, [alive] {}));
          queue->postDelayed(0, [alive] {});
        }
      });
    }
    if (i % 2 == 0) settle();
    for (std::thread& thread : threads) thread.join();
    auto bomb = std::make_shared<Bomb>(Bomb{queue.get(), alive, 0});
    bomb->left = 3;
    queue->post([bomb] {});
    bomb.reset();
    queue.reset();
    EXPECT_EQ(alive.use_count(), 1);
  }
  settle();
}

}  // namespace
}  // namespace zq::qt
