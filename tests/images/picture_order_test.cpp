// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tests/images/picture_sources.hpp>
#include <vector>
#include <zqswiftui/images/zq_cached_image.hpp>
#include <zqswiftui/images/zq_url_image.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

class PictureOrderTest : public PictureSources {
 protected:
  std::string name(int i) { return address("n" + std::to_string(i)); }
  // Downloads that take a second each are asked for, from one number to below another.
  void ask(int from, int end) {
    for (int i = from; i < end; ++i) {
      remote("n" + std::to_string(i), 1, 1);
      held_.push_back(ZQURLImage::lookup(name(i)));
    }
  }
  View shown(const std::vector<int>& numbers) {
    std::vector<View> views;
    views.reserve(numbers.size());
    for (const int i : numbers) views.emplace_back(ZQURLImageView(name(i)));
    return HStack(std::move(views));
  }
  // The numbers of the downloads that have begun since the last call.
  std::vector<int> begun() {
    std::vector<int> numbers;
    const auto all = platform.downloads().fetched();
    for (; seen_ < all.size(); ++seen_) {
      numbers.push_back(std::stoi(all[seen_].substr(all[seen_].rfind("/n") + 2)));
    }
    return numbers;
  }

 private:
  std::vector<std::shared_ptr<ZQURLImage>> held_;
  std::size_t seen_ = 0;
};

TEST_F(PictureOrderTest, whatIsShownGoesFirstAsLongAsItIsShown) {
  ask(0, 30);
  platform.runUntilIdle();
  EXPECT_EQ(begun(), (std::vector{0, 1, 2, 3, 4, 5})) << "so many at once, as they came";
  Harness screen(shown({25, 20, 29}));
  screen.setRoot(shown({25, 28, 29}));
  screen.advance(1);
  EXPECT_EQ(begun(), (std::vector{25, 29, 28, 6, 7, 8}));
  screen.setRoot(View());
  screen.advance(1);
  EXPECT_EQ(begun(), (std::vector{9, 10, 11, 12, 13, 14}));
  screen.setRoot(shown({20}));
  screen.advance(1);
  EXPECT_EQ(begun(), (std::vector{20, 15, 16, 17, 18, 19})) << "shown again, it goes first again";
}

TEST_F(PictureOrderTest, serversThatHangKeepNoFileWaiting) {
  ask(0, 20);
  const auto model = ZQCachedImageVM::lookup(file("near.png", 2));
  platform.runUntilIdle();
  EXPECT_EQ(model->status, ZQCachedImageVM::Status::ready);
  EXPECT_EQ(begun().size(), 6U);
}

TEST_F(PictureOrderTest, serversThatHangKeepNoOtherServerWaiting) {
  std::vector<std::shared_ptr<ZQURLImage>> held;
  const auto of = [&](int server, int number) {
    const std::string url = "http://s" + std::to_string(server) + "." + host + "/n" +
                            std::to_string(100 * server + number);
    platform.downloads().setAnswer(url, {HeadlessImageCodec::file(1, 1, 0, 0, 0), ""}, 1);
    return url;
  };
  for (int i = 0; i < 20; ++i) held.push_back(ZQURLImage::lookup(of(0, i)));
  platform.runUntilIdle();
  EXPECT_EQ(begun().size(), 6U);
  held.push_back(ZQURLImage::lookup(of(1, 0)));
  platform.runUntilIdle();
  EXPECT_EQ(begun(), std::vector{100});
  for (int i = 2; i < 90; ++i) held.push_back(ZQURLImage::lookup(of(i, 0)));
  platform.runUntilIdle();
  EXPECT_EQ(begun().size(), 57U) << "so many sockets in all";
  Harness screen{ZQURLImageView(of(88, 0))};
  platform.advance(0.5);
  EXPECT_TRUE(begun().empty());
  platform.advance(0.5);
  EXPECT_EQ(begun().front(), 8800) << "of the servers that wait the one whose picture is shown";
  platform.advance(10);
  for (const auto& model : held) EXPECT_EQ(model->status, ZQURLImage::Status::ready);
}

TEST_F(PictureOrderTest, otherWorkGetsItsTurnAmongHundredsOfPictures) {
  std::vector<std::shared_ptr<ZQCachedImageVM>> models;
  for (int i = 0; i < 100; ++i) {
    models.push_back(ZQCachedImageVM::lookup(file("many" + std::to_string(i), 1)));
  }
  std::size_t before = 0;
  Queue::execute(false, [&] { before = decoded().size(); });
  platform.runUntilIdle();
  EXPECT_LE(before, 4U);
  EXPECT_EQ(before + decoded().size(), 100U);
}

TEST(PictureOrderAtTheEnd, whatWaitsGoesWithThePlatformAndTheNextOneBeginsAfresh) {
  std::vector<std::weak_ptr<ZQURLImage>> waited;
  std::weak_ptr<ZQCachedImageVM> forgotten;
  const std::string host = ZQId::newId("http://host", "", true);
  {
    HeadlessPlatform platform;
    for (int i = 0; i < 20; ++i) {
      const std::string url = host + "/" + std::to_string(i);
      platform.downloads().setAnswer(url, {{'x'}, ""}, 10);
      waited.push_back(ZQURLImage::lookup(url));
    }
    platform.advance(1);
    forgotten = ZQCachedImageVM::lookup(Url::parse(host));
    ZQCachedImage::invalidate(*Url::parse(host));
    EXPECT_FALSE(forgotten.expired());
  }
  EXPECT_TRUE(forgotten.expired()) << "nothing of the platform holds it any more";
  for (const auto& model : waited) EXPECT_EQ(model.lock()->status, ZQURLImage::Status::downloading);
  HeadlessPlatform next;
  std::vector<std::shared_ptr<ZQURLImage>> models;
  for (int i = 20; i < 40; ++i) {
    const std::string url = host + "/" + std::to_string(i);
    next.downloads().setAnswer(url, {HeadlessImageCodec::file(1, 1, 0, 0, 0), ""}, 1);
    models.push_back(ZQURLImage::lookup(url));
  }
  next.advance(4);
  for (const auto& model : models) EXPECT_EQ(model->status, ZQURLImage::Status::ready);
}

}  // namespace
}  // namespace zq
