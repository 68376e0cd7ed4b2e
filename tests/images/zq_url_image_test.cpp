// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <tests/images/picture_sources.hpp>
#include <vector>
#include <zqswiftui/images/zq_url_image.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

using VM = ZQURLImage;
constexpr const char* kLetters = "scdrf";

class ZQURLImageTest : public PictureSources {
 protected:
  std::string keptPath(const std::string& url) const {
    return folder.path("cache/Vendel/ZQURLImage/" + ZQId::md5(url));
  }
  // What an earlier process has left for an address.
  void keep(const std::string& url, const Bytes& bytes) {
    ASSERT_TRUE(fu_createParentFolderIfNeeded(Url::file(keptPath(url))));
    ASSERT_TRUE(replaceFile(keptPath(url), bytes).ok());
  }
  Bytes kept(const std::string& url) const {
    const auto bytes = readFile(keptPath(url));
    return bytes.ok() ? bytes.value() : Bytes{};
  }
  static Bytes picture(int width, int height = 1) {
    return HeadlessImageCodec::file(width, height, 0, 0, 0);
  }
};

TEST_F(ZQURLImageTest, goesThroughItsStatusesByWhatIsKeptAndWhatTheServerAnswers) {
  struct Case {
    const char* what;
    Bytes kept;
    Bytes answer;
    double afterSeconds;
    const char* heard;
    std::size_t width;  // of what is shown in the end; 0: nothing
    DecodeSize size = {};
  };
  const DecodeSize small{.points = 5000, .scale = 1};
  const std::vector<Case> cases{
      {"a first run", {}, picture(3), 1, "d+ r+", 3},
      {"a first run, answered at once", {}, picture(3), 0, "d+ r+", 3},
      {"a later run", picture(2), picture(3), 1, "d+ c+ c+ r+", 3},
      {"a later run, answered at once", picture(2), picture(3), 0, "d+ c+ c+ r+", 3},
      {"a later run, the server gone", picture(2), {}, 1, "d+ c+ f+", 2},
      {"a later run, the server changed", picture(2), {'x'}, 1, "d+ c+ f+", 2},
      {"a damaged file", {'Z', 'Q'}, picture(3), 1, "d+ r+", 3},
      {"a damaged file, the server gone", {'Z', 'Q'}, {}, 1, "f-", 0},
      {"a large file", picture(1100, 1000), picture(3), 0, "d+ c+ c+ r+", 3},
      {"a small one of it", picture(1100, 1000), picture(3), 1, "d+ c+ c+ r+", 3, small},
      {"a small one, the server gone", picture(1100, 1000), {}, 1, "d+ c+ f+", 1100, small},
      {"nothing at all", {}, {}, 1, "f-", 0},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.what);
    const std::string url = address(row.what);
    const std::string asked = searchAndReplace(url, " ", "%20", false);
    if (!row.kept.empty()) keep(url, row.kept);
    platform.downloads().setAnswer(asked, {row.answer, row.answer.empty() ? "gone" : ""},
                                   row.afterSeconds);
    const auto model = VM::lookup(url, row.size);
    EXPECT_EQ(model->status, VM::Status::downloading) << "at once";
    EXPECT_FALSE(model->image_.get()) << "never inside of the call";
    EXPECT_EQ(heard(*model, kLetters), row.heard);
    const auto image = model->image_.get();
    EXPECT_EQ(image ? static_cast<std::size_t>(image->width()) : 0U, row.width);
    EXPECT_EQ(model->status, row.answer == picture(3) ? VM::Status::ready : VM::Status::failed);
    EXPECT_EQ(kept(url), row.answer == picture(3) ? row.answer : row.kept);
    EXPECT_EQ(VM::lookup(url, row.size), model);
    EXPECT_EQ(heard(*model, kLetters), "") << "it is never loaded again";
  }
  EXPECT_EQ(platform.downloads().fetched().size(), cases.size());
}

TEST_F(ZQURLImageTest, blanksAreEscapedAndNothingElse) {
  const auto model = VM::lookup(address("a b%41+c d"));
  const auto twice = VM::lookup(address("a%20b"));
  const auto other = VM::lookup(address("a b"));
  EXPECT_NE(twice, other) << "of two texts, though one address";
  for (const std::string& bad :
       std::vector<std::string>{host + " no scheme", "http://h/\n" + host, ""}) {
    const auto failed = VM::lookup(bad);
    EXPECT_EQ(heard(*failed, kLetters), "f-");
    EXPECT_NE(failed->failureReason(), "");
  }
  EXPECT_EQ(platform.downloads().fetched(),
            (std::vector{address("a%20b%41+c%20d"), address("a%20b")}))
      << "one download of the address that both are";
  EXPECT_EQ(model->status, VM::Status::failed);
  const auto none = VM::lookup(std::nullopt);
  platform.runUntilIdle();
  EXPECT_EQ(none->status, VM::Status::startup);
  const auto local = VM::lookup(file("a b.png", 4).text());
  platform.runUntilIdle();
  EXPECT_EQ(local->status, VM::Status::ready);
}

TEST_F(ZQURLImageTest, aKeptPictureThatComesAfterTheFailureIsShownAllTheSame) {
  const std::string url = host + " is no address";
  keep(url, picture(1100, 1000));
  const auto model = VM::lookup(url, DecodeSize{.points = 5000});
  EXPECT_EQ(heard(*model, kLetters), "f- f+");
}

TEST_F(ZQURLImageTest, aFolderThatCannotBeWrittenIsHarmless) {
  write("cache", {'x'});
  const auto model = VM::lookup(remote("file for a folder", 3));
  platform.downloads().setAnswer(address("file%20for%20a%20folder"), {picture(3), ""});
  platform.advance(1);
  EXPECT_EQ(model->status, VM::Status::ready);
  platform.bundle().setCacheFolder("");
  const auto without = VM::lookup(remote("none", 3));
  platform.advance(1);
  EXPECT_EQ(without->status, VM::Status::ready);
  EXPECT_FALSE(std::filesystem::exists("Vendel"));
  // One that is there, and in which nobody may write, whoever runs this.
  platform.bundle().setCacheFolder(folder.path("there"));
  std::filesystem::create_directories(folder.path("there/Vendel"));
  std::filesystem::create_directory_symlink("/proc", folder.path("there/Vendel/ZQURLImage"));
  const auto forbidden = VM::lookup(remote("forbidden", 3));
  platform.advance(1);
  EXPECT_EQ(forbidden->status, VM::Status::ready);
}

TEST_F(ZQURLImageTest, whatIsKeptIsDecodedAtOnceAndAWallOfSmallOnesInTurnsThoseShownFirst) {
  for (int i = 0; i < 30; ++i) {
    keep(address(std::to_string(i)), picture(i + 1));
    platform.downloads().setAnswer(address(std::to_string(i)), {{}, "gone"}, 1);
  }
  const auto whole = VM::lookup(address("0"));
  EXPECT_EQ(decoded(), std::vector{1}) << "by who asks";
  EXPECT_EQ(decodedOnTheInterfaceThread(), 1U);
  const DecodeSize size{.points = 50, .scale = 1};
  for (int i = 0; i < 29; ++i) VM::lookup(address(std::to_string(i)), size);
  {
    Harness screen{ZQURLImageView(address("20"), {.decodeSize = size})};
    EXPECT_EQ(decoded().front(), 21);
  }
  platform.runUntilIdle();
  EXPECT_EQ(platform.imageCodec().decoded().size(), 30U);
  EXPECT_EQ(decodedOnTheInterfaceThread(), 1U);
}

TEST_F(ZQURLImageTest, aSmallPictureIsDecodedSmallAndItsFileKeptWhole) {
  const std::string url = address("large");
  platform.downloads().setAnswer(url, {picture(40, 20), ""});
  const auto small = VM::lookup(url, DecodeSize{.points = 5, .scale = 2});
  platform.advance(1);
  EXPECT_EQ(small->image_.get()->width(), 10);
  EXPECT_EQ(kept(url), picture(40, 20));
  const auto whole = VM::lookup(url);
  EXPECT_NE(whole, small);
  platform.advance(1);
  EXPECT_EQ(whole->image_.get()->width(), 40);
}

TEST_F(ZQURLImageTest, viewsOfOneAddressShareOneDownloadAlsoWhenTheirWindowCloses) {
  const std::string url = remote("shared", 5, 1);
  {
    Harness closing(HStack({ZQURLImageView(url), ZQURLImageView(url)}));
    closing.advance(0.5);
  }
  platform.advance(1);
  Harness screen{ZQURLImageView(url)};
  EXPECT_EQ(screen.symbols().size(), 0U);
  EXPECT_EQ(platform.downloads().fetched().size(), 1U);
  EXPECT_EQ(decoded(), std::vector{5});
}

TEST_F(ZQURLImageTest, theSymbolIsDimmedAndSizedByTheShorterSideAndThePictureFits) {
  struct Case {
    Size room;
    double side;  // of the square around the symbol and its padding of 8
  };
  for (const Case& row : std::vector<Case>{{{300, 200}, 64},
                                           {{100, 300}, 40},
                                           {{160, 160}, 64},
                                           {{150, 400}, 60},
                                           {{30, 30}, 12}}) {
    SCOPED_TRACE(row.side);
    for (const auto& url : {std::optional<std::string>(), std::optional(address("never"))}) {
      Harness screen(ZQURLImageView(url), row.room);
      const Element symbol = screen.findSymbol("icloud.and.arrow.down");
      if (row.side <= 16) {
        EXPECT_FALSE(symbol) << "the padding leaves nothing of it";
        continue;
      }
      ASSERT_TRUE(symbol);
      EXPECT_DOUBLE_EQ(symbol.bounds.width, row.side - 16);
      EXPECT_DOUBLE_EQ(symbol.bounds.height, row.side - 16);
      EXPECT_DOUBLE_EQ(symbol.center().x, row.room.width / 2);
      EXPECT_DOUBLE_EQ(symbol.center().y, row.room.height / 2);
      EXPECT_DOUBLE_EQ(symbol.opacity, 0.5);
    }
  }
  const std::string url = address("wide");
  platform.downloads().setAnswer(url, {picture(8, 4), ""}, 1);
  Harness screen(ZQURLImageView(url), {60, 60});
  EXPECT_TRUE(screen.findSymbol("icloud.and.arrow.down"));
  screen.advance(2);
  ASSERT_EQ(screen.drawn().size(), 1U);
  EXPECT_EQ(screen.drawn()[0].bounds, (Rect{0, 15, 60, 30}));
}

}  // namespace
}  // namespace zq
