// ZQSwiftUI, MIT licence; see LICENSE.
// Many pictures on real threads: what the race detector is to look at.
#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <tests/images/picture_sources.hpp>
#include <thread>
#include <utility>
#include <vector>
#include <zqswiftui/images/zq_cached_image.hpp>
#include <zqswiftui/images/zq_local_url_image.hpp>
#include <zqswiftui/images/zq_shared_cached_image.hpp>
#include <zqswiftui/images/zq_sub_file_cached_image.hpp>
#include <zqswiftui/images/zq_url_image.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

constexpr int kSources = 2000;
constexpr int kRounds = 8;
constexpr int kFiles = 20;

// Is asked for frames, from any thread, and gives none.
class QuietWindow : public HostDelegate {
 public:
  void frameRequested() override { ++asked_; }

 private:
  std::atomic<int> asked_{0};
};

// Five kinds of sources in turn, some of them missing or no pictures.
class PictureThreads : public PictureSources {
 protected:
  PictureThreads() : PictureSources(BackgroundMode::threads) {
    std::vector<ZQShareApp::Item> items;
    for (int i = 0; i < kFiles; ++i) {
      const std::string name = "f" + std::to_string(i);
      if (i % 5 == 4) {
        write(name, {'x'});
      } else {
        file(name, i + 1);
      }
      remote(name, i + 1);
    }
    for (int i = 0; i < kSources; ++i)
      items.push_back({id(i), "f" + std::to_string(i % kFiles), ""});
    record = std::make_unique<ZQShareApp>(missing(""), std::move(items));
  }

  std::string id(int i) const { return host + "-" + std::to_string(i); }
  // Ids of a store are names of files, of which there are few.
  static std::string item(int i) { return "f" + std::to_string(i % kFiles); }
  // Half of them are decoded on the interface thread.
  static DecodeSize sizeOf(int i) {
    return i % 2 == 0 ? DecodeSize{} : DecodeSize{static_cast<double>(1 + i), 1};
  }
  Url url(int i) const {
    // Sources of their own, of few files: what follows the mark is no part of the path.
    const std::string path = folder.path("f" + std::to_string(i % (kFiles + 1)));
    return *Url::parse(Url::file(path).text() + "?" + std::to_string(i));
  }
  View view(int i) {
    const ZQSubFiles store(missing(""));
    switch (i % 5) {
      case 0:
        return ZQCachedImage(url(i));
      case 1:
        return ZQSharedCachedImage({.id = id(i), .shareApp = *record, .decodeSize = sizeOf(i)});
      case 2:
        return ZQSubFileCachedImageView(
            {.id = item(i), .subFiles = store, .decodeSize = sizeOf(i)});
      case 3:
        return ZQURLImageView(address("f" + std::to_string(i % kFiles)),
                              {.decodeSize = DecodeSize{static_cast<double>(1 + i), 1}});
      default:
        return ZQLocalURLImageView(url(i));
    }
  }
  // A window that runs some frames and closes while its pictures are still on their way.
  static void showAndClose(const std::vector<View>& views) {
    QuietWindow window;
    ViewHost host(HStack(std::vector<View>(views.begin(), views.begin() + 100)), window);
    host.setSize({800, 60});
    for (int i = 0; i < 5; ++i) host.frame();
  }
  // Of every third source.
  void invalidateSome(int from, int end) {
    for (int i = from; i < end; i += 3) {
      ZQCachedImage::invalidate(url(i));
      ZQSharedCachedImage::invalidate(id(i));
      ZQSubFileCachedImageView::invalidate("f" + std::to_string(i % kFiles));
    }
  }

  std::unique_ptr<ZQShareApp> record;
};

// Eight threads that look at models, and follow them for a while, as long as they live.
class Watchers {
 public:
  using Look = std::function<void(std::atomic<int>&)>;

  explicit Watchers(std::vector<Look> models) : models_(std::move(models)) {
    for (std::size_t i = 0; i < 8; ++i) threads_.emplace_back([this, i] { watch(i); });
  }
  ~Watchers() {
    end_ = true;
    for (std::thread& thread : threads_) thread.join();
  }
  Watchers(const Watchers&) = delete;
  Watchers& operator=(const Watchers&) = delete;

  template <class Model>
  static Look lookAt(std::shared_ptr<Model> model) {
    return [model](std::atomic<int>& changes) {
      const Subscription told = model->willChange.connect([&changes] { ++changes; });
      const auto status = model->status.get();
      EXPECT_TRUE(status != Model::Status::ready || model->image_.get());
      EXPECT_TRUE(status != Model::Status::failed || !model->image_.get());
    };
  }

 private:
  void watch(std::size_t i) {
    while (!end_) {
      models_[i++ % models_.size()](changes_);
      std::this_thread::yield();
    }
  }

  const std::vector<Look> models_;
  std::atomic<bool> end_{false};
  std::atomic<int> changes_{0};
  std::vector<std::thread> threads_;
};

TEST_F(PictureThreads, thousandsAreLoadedInvalidatedAndClosedMeanwhile) {
  std::atomic<int> told{0};
  std::vector<Subscription> observers;
  for (int round = 0; round < kRounds; ++round) {
    const int from = round * kSources / kRounds, end = (round + 1) * kSources / kRounds;
    std::vector<View> views;
    for (int i = from; i < end; ++i) views.push_back(view(i));
    for (int i = from; i < end; i += 5) {
      const auto model = ZQCachedImageVM::lookup(url(i));
      observers.push_back(model->didChange.connect([&told, weak = std::weak_ptr(model)] {
        const auto alive = weak.lock();
        if (alive && (alive->image_.get() || alive->status == ZQCachedImageVM::Status::failed)) {
          ++told;
        }
      }));
    }
    std::vector<Watchers::Look> watched;
    for (int i = from; i < end; i += 5) {
      watched.push_back(Watchers::lookAt(ZQCachedImageVM::lookup(url(i))));
      watched.push_back(
          Watchers::lookAt(ZQSharedCachedImageVM::lookup(id(i + 1), *record, sizeOf(i + 1))));
      watched.push_back(Watchers::lookAt(
          ZQSubFileCachedImageVM::lookup(item(i + 2), ZQSubFiles(missing("")), sizeOf(i + 2))));
    }
    const Watchers watchers(std::move(watched));
    invalidateSome(from, end);
    showAndClose(views);
    invalidateSome(from, end);
    if (round % 2 == 0) observers.clear();
  }
  platform.advance(5);
  EXPECT_GT(told, 0);
  for (int i = 0; i < kSources; i += 5) {
    const auto model = ZQCachedImageVM::lookup(url(i));
    platform.runUntilIdle();
    const int file = i % (kFiles + 1);
    EXPECT_EQ(model->status == ZQCachedImageVM::Status::failed, file % 5 == 4 || file == kFiles);
  }
}

TEST_F(PictureThreads, aPlatformThatEndsInTheMiddleOfItWaitsForNothing) {
  std::vector<View> views;
  for (int i = 0; i < kSources; ++i) views.push_back(view(i));
  platform.mainQueue().dropAll();
  EXPECT_FALSE(views.empty());
}

}  // namespace
}  // namespace zq
