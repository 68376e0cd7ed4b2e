// ZQSwiftUI, MIT licence; see LICENSE.
#include <QString>
#include <algorithm>
#include <apps/gallery/gallery_window.hpp>
#include <apps/gallery/snapshots.hpp>
#include <cstdio>
#include <filesystem>
#include <zqswiftui/platform/qt/snapshot.hpp>

namespace zq::gallery {
namespace {

constexpr Size kLeastSheet{1000, 320};
constexpr Size kMostSheet{1800, 4000};
constexpr Size kWindowSize{1360, 860};

class NoWindow final : public HostDelegate {
 public:
  void frameRequested() override {}
};

struct Picture {
  std::string name;
  View view;
  std::optional<Size> size;  // none: what the view wants when it is painted
  double settles = 0;
};

Size sheetSize(const View& view, const AppearanceValues& appearance) {
  NoWindow window;
  ViewHost host(view, window);
  host.setAppearance(appearance);
  const Size wanted = host.sizeThatFits(ProposedSize::unspecified());
  return {std::clamp(wanted.width, kLeastSheet.width, kMostSheet.width),
          std::clamp(wanted.height, kLeastSheet.height, kMostSheet.height)};
}

std::vector<Picture> pictures(std::optional<std::size_t> only, const Given& given) {
  std::vector<Picture> all;
  const auto& pages = galleryPages();
  if (!only) all.push_back({"gallery", View(GalleryWindow{0, given}), kWindowSize});
  for (std::size_t i = 0; i < pages.size(); ++i) {
    if (only && *only != i) continue;
    const View sheet = PageSheet{i, given};
    all.push_back({pageSlug(pages[i].title), sheet, std::nullopt, pages[i].settles});
  }
  return all;
}

}  // namespace

Result<void> paintPages(const std::string& folder, std::optional<std::size_t> only,
                        const Given& given, AppearanceValues appearance) {
  std::error_code fault;
  std::filesystem::create_directories(folder, fault);
  if (!std::filesystem::is_directory(folder, fault)) {
    return Error{"Cannot make the folder " + folder + "."};
  }
  const std::vector<Picture> all = pictures(only, given);
  const std::size_t total = all.size() * 2;
  std::size_t done = 0;
  for (const Picture& picture : all) {
    const Size size = picture.size ? *picture.size : sheetSize(picture.view, appearance);
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
      const bool light = scheme == ColorScheme::light;
      const std::string name = picture.name + (light ? "-light.png" : "-dark.png");
      const std::string path = (std::filesystem::path(folder) / name).string();
      appearance.colorScheme = scheme;
      const QImage image = qt::renderView(picture.view, size, 1, appearance, picture.settles);
      if (image.isNull() || !image.save(QString::fromStdString(path))) {
        return Error{"Cannot write " + path + "."};
      }
      std::printf("[%2zu/%zu] %s\n", ++done, total, name.c_str());
      std::fflush(stdout);
    }
  }
  return {};
}

}  // namespace zq::gallery
