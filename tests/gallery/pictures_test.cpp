// ZQSwiftUI, MIT licence; see LICENSE.
// A folder of pictures that a user names may hold anything.
#include <gtest/gtest.h>

#include <apps/gallery/pictures.hpp>
#include <filesystem>
#include <fstream>
#include <tests/base/temp_folder.hpp>

namespace zq::gallery {
namespace {

std::string namesOf(const Pictures& pictures) {
  std::string names;
  for (const Url& file : pictures.files) names += file.name() + ";";
  return names;
}

TEST(GalleryPictures, areThoseOfTheFolderByNameUpToTheMost) {
  const TempFolder folder;
  for (const char* name : {"b c.png", "a.JPG", "notes.txt", "c", "%41.webp", "png"}) {
    std::ofstream(folder.path(name)) << "x";
  }
  std::filesystem::create_directories(folder.path("folder.png"));
  std::filesystem::create_symlink("nowhere", folder.path("broken.png"));
  const auto all = readPictures(folder.path(""));
  ASSERT_TRUE(all.ok());
  EXPECT_EQ(namesOf(all.value()), "%41.webp;a.JPG;b c.png;");
  EXPECT_FALSE(all.value().cut);
  const auto few = readPictures(folder.path(""), 2);
  ASSERT_TRUE(few.ok());
  EXPECT_EQ(namesOf(few.value()), "%41.webp;a.JPG;");
  EXPECT_TRUE(few.value().cut);
  EXPECT_FALSE(readPictures(folder.path("folder.png")).ok()) << "an empty one";
  EXPECT_FALSE(readPictures(folder.path("notes.txt")).ok()) << "no folder";
  EXPECT_FALSE(readPictures(folder.path("missing")).ok());
}

}  // namespace
}  // namespace zq::gallery
