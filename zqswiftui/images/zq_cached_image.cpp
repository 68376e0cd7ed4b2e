// ZQSwiftUI, MIT licence; see LICENSE.
#include <cstdio>
#include <utility>
#include <zqswiftui/images/picture_list.hpp>
#include <zqswiftui/images/picture_loading.hpp>
#include <zqswiftui/images/zq_cached_image.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>

namespace zq {

ZQCachedImageVM::ZQCachedImageVM(std::optional<Url> source)
    : url(std::move(source)), image_(this) {}

auto& ZQCachedImageVM::list() {
  static detail::PictureList<Url, ZQCachedImageVM> models;
  return models;
}

std::shared_ptr<ZQCachedImageVM> ZQCachedImageVM::lookup(const std::optional<Url>& url,
                                                         const DecodeSize& size) {
  const int maxSide = size.pixels();
  return list().find(url, maxSide, [&] {
    std::shared_ptr<ZQCachedImageVM> model(new ZQCachedImageVM(url));
    model->load(maxSide);
    return model;
  });
}

void ZQCachedImageVM::load(int maxSide) {
  if (!url) return;
  std::puts("loadImage");
  status = Status::loading;
  detail::loadPicture(shared_from_this(), *url, maxSide,
                      [self = shared_from_this()](detail::LoadedPicture picture) {
                        if (!picture.image) {
                          self->noteFailure(std::move(picture.failure));
                          self->status = Status::failed;
                          return;
                        }
                        XMain::execute([self, image = std::move(picture.image)] {
                          self->image_ = image;
                          self->status = Status::ready;
                          std::puts("loadImage done");
                        });
                      });
}

ZQCachedImage::ZQCachedImage(std::optional<Url> url) : ZQCachedImage(std::move(url), {}) {}

ZQCachedImage::ZQCachedImage(std::optional<Url> url, const Parameters& parameters)
    : url_(std::move(url)),
      cornerRadius_(parameters.cornerRadius),
      image_(ZQCachedImageVM::lookup(url_, parameters.decodeSize)) {}

void ZQCachedImage::invalidate(const Url& url) {
  ZQCachedImageVM::list().forget(url);
  detail::forgetLoad(url);
}

View ZQCachedImage::body(Context& context) const {
  const auto picture = context.observe(image_).image_.snapshot();
  const Image image = !url_      ? Image::symbol("photo")
                      : *picture ? Image(**picture)
                                 : Image::symbol("icloud.and.arrow.down");
  return image.resizable(false).clipShape(RoundedRectangle(cornerRadius_));
}

}  // namespace zq
