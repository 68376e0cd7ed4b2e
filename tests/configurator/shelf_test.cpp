// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <apps/configurator/shelf.hpp>
#include <zqswiftui/platform/base/prefs.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>

namespace zq::configurator {
namespace {

Url shelved(const std::string& name) {
  return Url::file("/projects of mine/" + name + ".zquic");
}

std::string shownNames(const Shelf& shelf, bool withHidden = false, std::string_view query = "") {
  std::string names;
  for (const ShelfEntry& entry : shelf.shown(query, withHidden)) names += entry.name + ",";
  return names;
}

TEST(Shelf, keepsOrderAndMarksInThePreferences) {
  const HeadlessPlatform platform;
  Shelf shelf;
  for (const char* const name : {"d", "c", "b", "a"}) shelf.note(shelved(name), name);
  EXPECT_EQ(shownNames(shelf), "a,b,c,d,");
  shelf.note(shelved("c"), "c d");  // a new name, in its place
  shelf.move(shelved("a"), shelved("d"));
  shelf.move(shelved("b"), std::nullopt);
  shelf.move(shelved("b"), shelved("b"));
  shelf.move(shelved("unknown"), shelved("a"));
  EXPECT_EQ(shownNames(shelf), "c d,a,d,b,");
  shelf.edit(shelved("d"), [](ShelfEntry& entry) { entry.favorite = true; });
  shelf.edit(shelved("b"), [](ShelfEntry& entry) { entry.favorite = true; });
  shelf.edit(shelved("a"), [](ShelfEntry& entry) { entry.hidden = true; });
  shelf.edit(shelved("c"), [](ShelfEntry& entry) { entry.color = 7; });
  EXPECT_EQ(shownNames(shelf), "d,b,c d,");
  EXPECT_EQ(shownNames(shelf, true), "d,b,c d,a,");
  EXPECT_EQ(shownNames(shelf, true, "D"), "d,c d,");

  const Shelf again;
  EXPECT_EQ(again.entries(), shelf.entries());
  EXPECT_TRUE(again.hasHidden());
  shelf.remove(shelved("a"));
  EXPECT_FALSE(shelf.hasHidden());
  EXPECT_EQ(Shelf().entries(), shelf.entries());
}

TEST(Shelf, passesOverHostileLines) {
  const HeadlessPlatform platform;
  const std::string file = shelved("x").text();
  std::vector<std::string> lines{"",
                                 " ",
                                 "f",
                                 "--",
                                 "--0",
                                 "--0 ",
                                 "--0  ",
                                 "- " + file + " short",
                                 "--0 http://example.org/x x",
                                 "--0 file: x",
                                 "fh99999999999999999999999 " + file + " a  name ",
                                 "--1 " + file + " twice",
                                 "xyz-4 " + shelved("y").text() + " y",
                                 std::string("--0 \0\xff\xfe", 7)};
  for (int i = 0; i < 1000; ++i) {
    lines.push_back("--2 " + shelved("n" + std::to_string(i)).text() + " n");
  }
  prefs_setValueStringList("projects", lines);
  const auto entries = Shelf().entries();
  EXPECT_EQ(entries.size(), 500U);
  EXPECT_EQ(entries[0], (ShelfEntry{shelved("x"), "a  name ", true, true, 0}));
  EXPECT_EQ(entries[1].file, shelved("y"));
  for (const ShelfEntry& entry : entries) EXPECT_LT(entry.color, shelfColors().size());
}

}  // namespace
}  // namespace zq::configurator
