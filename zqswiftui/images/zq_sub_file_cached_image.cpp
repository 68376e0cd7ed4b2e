// ZQSwiftUI, MIT licence; see LICENSE.
#include <atomic>
#include <cstdio>
#include <utility>
#include <vector>
#include <zqswiftui/images/picture_list.hpp>
#include <zqswiftui/images/picture_loading.hpp>
#include <zqswiftui/images/shared_reads.hpp>
#include <zqswiftui/images/stored_picture.hpp>
#include <zqswiftui/images/zq_sub_file_cached_image.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>

namespace zq {

ZQSubFileCachedImageVM::ZQSubFileCachedImageVM(std::optional<std::string> item, int maxSide)
    : id(std::move(item)), maxSide_(maxSide) {}

auto& ZQSubFileCachedImageVM::list() {
  static detail::PictureList<std::string, ZQSubFileCachedImageVM> models;
  return models;
}

auto& ZQSubFileCachedImageVM::reads() {
  static detail::SharedReads<Weak> all;
  return all;
}

std::shared_ptr<ZQSubFileCachedImageVM> ZQSubFileCachedImageVM::lookup(
    const std::optional<std::string>& id, const ZQSubFiles& subFiles, const DecodeSize& size) {
  const int maxSide = size.pixels();
  return list().find(id, maxSide, [&] {
    std::shared_ptr<ZQSubFileCachedImageVM> model(new ZQSubFileCachedImageVM(id, maxSide));
    if (id) {
      detail::PictureOrder::shared().add(
          detail::PictureLane::local(), model,
          [weak = Weak(model), subFiles, source = reads().join(*id, model)](auto turn) {
            const auto alive = weak.lock();
            if (!alive) return;
            alive->begin();
            if (reads().begin(*source)) detach(read(source, subFiles, *alive->id, std::move(turn)));
          });
    }
    return model;
  });
}

// Before its turn where another one's size was read first.
void ZQSubFileCachedImageVM::begin() {
  if (std::atomic_ref(begun_).exchange(true)) return;
  std::puts("loadImage");
  status = Status::loading;
}

template <class Source>
Task<void> ZQSubFileCachedImageVM::read(std::shared_ptr<Source> source, ZQSubFiles store,
                                        std::string id, std::shared_ptr<detail::PictureTurn> turn) {
  std::optional<Bytes> found = co_await store.read(id);
  auto bytes = std::make_shared<const Result<Bytes>>(found ? Result<Bytes>(std::move(*found))
                                                           : Error{"the store has no item " + id});
  std::vector<Weak> whole;
  for (const Weak& weak : reads().end(source)) {
    // What nobody waits for any more is not decoded.
    const auto model = weak.lock();
    if (!model) continue;
    model->begin();
    if (model->maxSide_ == 0) {
      whole.push_back(weak);
    } else {
      detail::decodeInTurn(model, bytes, model->maxSide_, id,
                           [weak](const detail::LoadedPicture& picture) {
                             XMain::post([weak, picture] {
                               if (const auto alive = weak.lock()) alive->take(picture);
                             });
                           });
    }
  }
  if (whole.empty()) co_return;
  // The turn lasts until then, so that few pictures at a time wait for the interface thread.
  const auto held = std::move(turn);
  co_await onMain();
  for (const Weak& weak : whole) {
    if (const auto model = weak.lock()) model->take(detail::decodePicture(bytes, 0, id));
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
  ZQSubFileCachedImageVM::reads().forget(id);
}

View ZQSubFileCachedImageView::body(Context& context) const {
  const auto picture = context.observe(image_).image_.get();
  return id_ ? detail::storedPicture(picture, aspectRatio_) : View(Color::clear());
}

}  // namespace zq
