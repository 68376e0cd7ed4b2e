// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/gallery/pictures.hpp>
#include <filesystem>

namespace zq::gallery {
namespace {

// Names that are looked at; those of a larger folder come as its file system has them.
constexpr std::size_t kMostNames = 100'000;

}  // namespace

Result<Pictures> readPictures(const std::string& folder, std::size_t most) {
  namespace fs = std::filesystem;
  std::error_code fault;
  fs::directory_iterator entries(folder, fs::directory_options::skip_permission_denied, fault);
  if (fault) return Error{"Cannot read pictures from " + folder + ": " + fault.message() + "."};
  const fs::path whole = fs::absolute(folder, fault);
  Pictures pictures;
  for (std::size_t seen = 0; entries != fs::directory_iterator() && seen < kMostNames; ++seen) {
    const Url file = Url::file((whole / entries->path().filename()).string());
    std::error_code unknown;
    if (file.isA({"png", "jpg", "jpeg", "webp", "gif", "bmp", "svg"}) &&
        entries->is_regular_file(unknown)) {
      pictures.files.push_back(file);
    }
    entries.increment(fault);
    if (fault) break;
  }
  std::sort(pictures.files.begin(), pictures.files.end());
  pictures.cut = pictures.files.size() > most;
  if (pictures.cut)
    pictures.files.erase(pictures.files.begin() + static_cast<std::ptrdiff_t>(most),
                         pictures.files.end());
  if (pictures.files.empty()) return Error{"There are no pictures in " + folder + "."};
  return pictures;
}

}  // namespace zq::gallery
