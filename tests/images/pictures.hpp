// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <tests/base/temp_folder.hpp>
#include <vector>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/headless/harness.hpp>

namespace zq {

// A picture of that size whose first pixel says which one it is.
inline ZQImage picture(int width = 4, int height = 4, std::uint8_t mark = 0) {
  const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  return *ZQImage::fromPixels({width, height, Bytes(pixels * 4, mark)});
}

inline int markOf(const ZQImage& image) {
  return image.pixels().rgba.front();
}

// What is drawn of pictures.
inline std::vector<DrawPicture> drawnPictures(Harness& screen) {
  std::vector<DrawPicture> all;
  for (const DrawnCommand& drawn : screen.drawn()) {
    if (const auto* one = std::get_if<DrawPicture>(&drawn.command)) {
      all.push_back({one->picture, drawn.bounds});
    }
  }
  return all;
}

// The mark of the only picture that is shown; absent where there is none.
inline std::optional<int> shownMark(Harness& screen) {
  const std::vector<DrawPicture> all = drawnPictures(screen);
  return all.size() == 1 ? std::optional(markOf(all.front().picture)) : std::nullopt;
}

// Gives the application a resource that is a picture of that mark.
inline void addPicture(HeadlessPlatform& platform, const TempFolder& folder,
                       const std::string& name, std::uint8_t mark) {
  const std::string path = folder.path(name + ".png");
  const Bytes file = HeadlessImageCodec::file(4, 4, mark, 0, 0);
  if (replaceFile(path, file).ok()) platform.bundle().addResource(name + ".png", path);
}

}  // namespace zq
