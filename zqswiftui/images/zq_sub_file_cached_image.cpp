// ZQSwiftUI, MIT licence; see LICENSE.
#include <cstdio>
#include <utility>
#include <zqswiftui/images/picture_list.hpp>
#include <zqswiftui/images/picture_loading.hpp>
#include <zqswiftui/images/stored_picture.hpp>
#include <zqswiftui/images/zq_sub_file_cached_image.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>

namespace zq {

auto& ZQSubFileCachedImageVM::list() {
  static detail::PictureList<std::string, ZQSubFileCachedImageVM> models;
  return models;
}

std::shared_ptr<ZQSubFileCachedImageVM> ZQSubFileCachedImageVM::lookup(
    const std::optional<std::string>& id, const ZQSubFiles& subFiles,
    const std::optional<DecodeSize>& size) {
  const int maxSide = detail::maxSideOf(size);
  return list().find(id, maxSide, [&] {
    std::shared_ptr<ZQSubFileCachedImageVM> model(new ZQSubFileCachedImageVM(id, maxSide));
    if (id) {
      detail::PictureOrder::shared().add(
          detail::PictureLane::local, model,
          [weak = Weak(model), subFiles](std::shared_ptr<detail::PictureTurn> turn) {
            if (const auto alive = weak.lock()) alive->load(subFiles, std::move(turn));
          });
    }
    return model;
  });
}

void ZQSubFileCachedImageVM::load(const ZQSubFiles& store,
                                  std::shared_ptr<detail::PictureTurn> turn) {
  if (!id) return;
  std::puts("loadImage");
  status = Status::loading;
  detach(read(weak_from_this(), store, *id, maxSide_, std::move(turn)));
}

Task<void> ZQSubFileCachedImageVM::read(Weak weak, ZQSubFiles store, std::string id, int maxSide,
                                        std::shared_ptr<detail::PictureTurn> turn) {
  std::optional<Bytes> bytes = co_await store.read(id);
  // What nobody waits for any more is not decoded.
  if (weak.expired()) co_return;
  if (bytes && maxSide > 0) {
    detail::decodeInTurn(weak.lock(), std::move(*bytes), maxSide, id,
                         [weak](detail::LoadedPicture picture) {
                           XMain::post([weak, picture = std::move(picture)] {
                             if (const auto model = weak.lock()) model->take(picture);
                           });
                         });
    co_return;
  }
  // The turn lasts until then, so that few pictures at a time wait for the interface thread.
  const auto held = std::move(turn);
  co_await onMain();
  const auto model = weak.lock();
  if (!model) co_return;
  if (bytes) {
    model->take(detail::decodePicture(std::move(*bytes), 0, id));
  } else {
    model->take({std::nullopt, {}, "the store has no item " + id});
  }
}

void ZQSubFileCachedImageVM::take(const detail::LoadedPicture& picture) {
  if (picture.image) {
    image_ = picture.image;
    status = Status::ready;
    XMain::post([weak = weak_from_this()] {
      if (const auto model = weak.lock()) model->willChange.send();
    });
    return;
  }
  noteFailure(picture.failure);
  XMain::post([weak = weak_from_this()] {
    if (const auto model = weak.lock()) model->status = Status::failed;
  });
}

ZQSubFileCachedImageView::ZQSubFileCachedImageView(const Parameters& parameters)
    : id_(parameters.id),
      cornerRadius_(parameters.cornerRadius),
      aspectRatio_(parameters.aspectRatio),
      image_(ZQSubFileCachedImageVM::lookup(id_, parameters.subFiles, parameters.decodeSize)) {}

void ZQSubFileCachedImageView::invalidate(const std::string& id) {
  ZQSubFileCachedImageVM::list().forget(id);
}

View ZQSubFileCachedImageView::body(Context& context) const {
  const auto picture = context.observe(image_).image_.get();
  return id_ ? detail::storedPicture(picture, aspectRatio_) : View(Color::clear());
}

}  // namespace zq
