// ZQSwiftUI, MIT licence; see LICENSE.
#include <cstdio>
#include <utility>
#include <zqswiftui/images/picture_list.hpp>
#include <zqswiftui/images/picture_loading.hpp>
#include <zqswiftui/images/stored_picture.hpp>
#include <zqswiftui/images/zq_shared_cached_image.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/base/zq_cache.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>

namespace zq {
namespace {

ZQCache& pictures() {
  static ZQCache cache;
  return cache;
}

std::string cacheKey(const Url& url, int maxSide) {
  // No path holds a zero byte, so a key of a size is none of a path.
  return url.path() + '\0' + std::to_string(maxSide);
}

}  // namespace

ZQSharedCachedImageVM::ZQSharedCachedImageVM(std::optional<std::string> item, int maxSide)
    : id(std::move(item)), maxSide_(maxSide) {}

auto& ZQSharedCachedImageVM::list() {
  static detail::PictureList<std::string, ZQSharedCachedImageVM> models;
  return models;
}

std::shared_ptr<ZQSharedCachedImageVM> ZQSharedCachedImageVM::lookup(
    const std::optional<std::string>& id, const ZQShareApp& shareApp, const DecodeSize& size) {
  const int maxSide = size.pixels();
  return list().find(id, maxSide, [&] {
    std::shared_ptr<ZQSharedCachedImageVM> model(new ZQSharedCachedImageVM(id, maxSide));
    if (id) {
      detail::PictureOrder::shared().add(detail::PictureLane::local(), model,
                                         [weak = Weak(model), shareApp, id](auto turn) {
                                           detach(resolve(weak, shareApp, *id, std::move(turn)));
                                         });
    }
    return model;
  });
}

// Its turn ends with it, so that few files at a time wait for the interface thread to read them.
Task<void> ZQSharedCachedImageVM::resolve(Weak weak, ZQShareApp shareApp, std::string id,
                                          std::shared_ptr<detail::PictureTurn> turn) {
  const auto held = std::move(turn);
  const std::optional<Url> local = co_await shareApp.urlForId(id, false);
  if (!local) {
    const auto remote = shareApp.remoteUrl(id);
    if (!remote) co_return;
    // Only what is missing waits among the downloads.
    detail::PictureOrder::shared().add(
        detail::PictureLane::of(*remote), weak.lock(),
        [weak, shareApp, id](std::shared_ptr<detail::PictureTurn> another) {
          detach(fetch(weak, shareApp, id, std::move(another)));
        });
    co_return;
  }
  co_await onMain();
  loadOnMain(weak, *local);
}

Task<void> ZQSharedCachedImageVM::fetch(Weak weak, ZQShareApp shareApp, std::string id,
                                        std::shared_ptr<detail::PictureTurn> turn) {
  const std::optional<Url> local = co_await shareApp.urlForId(id, true);
  turn.reset();
  if (!local) co_return;
  co_await onMain();
  loadOnMain(weak, *local);
}

void ZQSharedCachedImageVM::loadOnMain(const Weak& weak, const Url& url) {
  if (const auto model = weak.lock()) model->load(url);
}

void ZQSharedCachedImageVM::load(const Url& url) {
  std::puts("loadImage");
  status = Status::loading;
  if (maxSide_ == 0) {
    loadHere(url);
  } else {
    loadSmall(url);
  }
}

// The interface thread waits for a file that is not kept.
void ZQSharedCachedImageVM::loadHere(const Url& url) {
  take(pictures().getCachedOrExecute<ZQImage>(url.path(), [&] {
    auto bytes = std::make_shared<const Result<Bytes>>(readFile(url.path()));
    return pictureOf(detail::decodePicture(std::move(bytes), 0, url.text()));
  }));
}

// A picture that is kept is there at once. One that is not is read and decoded in the background,
// with the same steps in the same order for who looks.
void ZQSharedCachedImageVM::loadSmall(const Url& url) {
  const std::string key = cacheKey(url, maxSide_);
  auto kept = pictures().getCachedOrExecute<ZQImage>(key, [] { return std::optional<ZQImage>(); });
  if (kept) return take(std::move(kept));
  detail::loadPicture(
      shared_from_this(), url, maxSide_,
      [weak = weak_from_this(), key](const detail::LoadedPicture& picture) {
        XMain::execute([weak, key, image = picture.image, failure = picture.failure] {
          pictures().getCachedOrExecute<ZQImage>(key, [&] { return image; });
          const auto model = weak.lock();
          if (model) model->take(model->pictureOf({image, nullptr, failure}));
        });
      });
}

// What it answers may be kept.
std::optional<ZQImage> ZQSharedCachedImageVM::pictureOf(detail::LoadedPicture loaded) {
  if (!loaded.image) {
    noteFailure(std::move(loaded.failure));
    status = Status::failed;
  }
  return std::move(loaded.image);
}

// Something else that is kept under the key is no picture, and no failure either.
void ZQSharedCachedImageVM::take(std::optional<ZQImage> image) {
  if (image) {
    image_ = std::move(image);
    status = Status::ready;
  }
  XMain::post([weak = weak_from_this()] {
    if (const auto model = weak.lock()) model->willChange.send();
  });
}

ZQSharedCachedImage::ZQSharedCachedImage(const Parameters& parameters)
    : id_(parameters.id),
      cornerRadius_(parameters.cornerRadius),
      aspectRatio_(parameters.aspectRatio),
      image_(ZQSharedCachedImageVM::lookup(id_, parameters.shareApp, parameters.decodeSize)) {}

void ZQSharedCachedImage::invalidate(const std::string& id) {
  ZQSharedCachedImageVM::list().forget(id);
}

View ZQSharedCachedImage::body(Context& context) const {
  const auto picture = context.observe(image_).image_.get();
  return id_ ? detail::storedPicture(picture, aspectRatio_) : View(Color::clear());
}

}  // namespace zq
