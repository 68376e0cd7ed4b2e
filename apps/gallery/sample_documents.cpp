// ZQSwiftUI, MIT licence; see LICENSE.
#include <QColor>
#include <QImage>
#include <QString>
#include <apps/gallery/sample_documents.hpp>
#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <zqswiftui/platform/base/documents.hpp>
#include <zqswiftui/platform/base/prefs.hpp>
#include <zqswiftui/platform/base/zq_id.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq::gallery {
namespace {

namespace fs = std::filesystem;

struct Sample {
  const char* name;
  int bytes;  // about, of a text; of a picture its side
  int hoursAgo;
};
constexpr std::array<Sample, 14> kSamples = {{
    {"Minutes of the meeting.txt", 4'300, 2},
    {"Cover.png", 640, 3},
    {"Letter to all who have asked about the programme of the next summer.txt", 999, 5},
    {"Measurements.csv", 1'234'567, 20},
    {"Hills in the evening.png", 320, 26},
    {"Shopping list.txt", 120, 31},
    {"Résumé — très court.txt", 2'100, 50},
    {"Timetable.csv", 15'400, 77},
    {"Logo.png", 96, 120},
    {"Notes.txt", 0, 168},
    {"Addresses of the members with their telephone numbers.csv", 88'000, 400},
    {"Sketch of the garden and of the path that leads around it.png", 480, 700},
    {"Words for the speech.txt", 6'800, 900},
    {"History.txt", 2'750'000, 9'000},
}};

void writeText(const fs::path& path, int bytes) {
  constexpr std::string_view line = "A line of a document that stands for one of yours.\n";
  std::ofstream file(path, std::ios::binary);
  for (auto left = static_cast<std::size_t>(bytes); left > 0;) {
    const std::string_view piece = line.substr(0, left);
    file << piece;
    left -= piece.size();
  }
}

void writePicture(const fs::path& path, int side) {
  QImage image(side, side * 2 / 3, QImage::Format_RGB32);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < side; ++x) {
      image.setPixelColor(x, y, QColor::fromHsv((x * 360 / side + y) % 360, 90, 220));
    }
  }
  image.save(QString::fromStdString(path.string()));
}

}  // namespace

SampleDocuments::SampleDocuments()
    : folder_((fs::temp_directory_path() / ZQId::newId("zq-gallery", "", true)).string()) {
  std::error_code ignored;
  fs::create_directories(folder_, ignored);
  for (const Sample& sample : kSamples) {
    const fs::path path = fs::path(folder_) / sample.name;
    if (path.extension() == ".png") {
      writePicture(path, sample.bytes);
    } else {
      writeText(path, sample.bytes);
    }
    fs::last_write_time(
        path, fs::file_time_type::clock::now() - std::chrono::hours(sample.hoursAgo), ignored);
  }
}

SampleDocuments::~SampleDocuments() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

void SampleDocuments::remember() const {
  for (const Sample& sample : kSamples) {
    Documents::noteRecent(Url::file((fs::path(folder_) / sample.name).string()));
  }
  const char* open = "Recent Files Open";
  if (!Platform::current().preferences().value(open)) prefs_setValueBool(open, true);
}

}  // namespace zq::gallery
