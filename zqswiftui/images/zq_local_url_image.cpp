// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/images/picture_list.hpp>
#include <zqswiftui/images/picture_loading.hpp>
#include <zqswiftui/images/zq_local_url_image.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {

ZQLocalURLImage::ZQLocalURLImage(std::optional<Url> source)
    : url(std::move(source)), image_(this) {}

std::shared_ptr<ZQLocalURLImage> ZQLocalURLImage::lookup(const std::optional<Url>& url,
                                                         const DecodeSize& size) {
  static detail::PictureList<Url, ZQLocalURLImage> models;
  const int maxSide = size.pixels();
  return models.find(url, maxSide, [&] {
    std::shared_ptr<ZQLocalURLImage> model(new ZQLocalURLImage(url));
    if (url) model->load(maxSide);
    return model;
  });
}

void ZQLocalURLImage::load(int maxSide) {
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
                        });
                      });
}

ZQLocalURLImageView::ZQLocalURLImageView(std::optional<Url> url)
    : ZQLocalURLImageView(std::move(url), {}) {}

ZQLocalURLImageView::ZQLocalURLImageView(std::optional<Url> url, const Parameters& parameters)
    : url_(std::move(url)), image_(ZQLocalURLImage::lookup(url_, parameters.decodeSize)) {}

View ZQLocalURLImageView::body(Context& context) const {
  const auto picture = context.observe(image_).image_.snapshot();
  if (!url_ || !*picture) return {};
  const View row = HStack({.spacing = 0}, {Spacer(), Image(**picture).resizable(), Spacer()});
  return VStack({.spacing = 0}, {Spacer(), row, Spacer()});
}

}  // namespace zq
