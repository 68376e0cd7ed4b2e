// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <utility>
#include <zqswiftui/images/picture_list.hpp>
#include <zqswiftui/images/picture_loading.hpp>
#include <zqswiftui/images/zq_url_image.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/base/zq_id.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/geometry_reader.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>

namespace zq {
namespace {

View placeholder(Size room) {
  const double side = std::min(std::min(room.width, room.height) * 0.4, 64.0);
  return Image::symbol("icloud.and.arrow.down")
      .resizable()
      .padding()
      .frame(side, side)
      .opacity(0.5);
}

}  // namespace

ZQURLImage::ZQURLImage(std::optional<std::string> address, int maxSide)
    : url(std::move(address)), image_(this), maxSide_(maxSide) {}

std::shared_ptr<ZQURLImage> ZQURLImage::lookup(const std::optional<std::string>& url,
                                               const DecodeSize& size) {
  static detail::PictureList<std::string, ZQURLImage> models;
  const int maxSide = size.pixels();
  return models.find(url, maxSide, [&] {
    std::shared_ptr<ZQURLImage> model(new ZQURLImage(url, maxSide));
    if (url) model->begin();
    return model;
  });
}

void ZQURLImage::begin() {
  showKeptPicture();
  status = Status::downloading;
  download();
}

std::optional<Url> ZQURLImage::keptFile() const {
  const Url folder = fu_getCacheFolderUrl(true);
  if (folder.path().empty()) return std::nullopt;
  return folder.appending("Vendel").appending("ZQURLImage").appending(ZQId::md5(*url));
}

// At once, so that it is there in the first frame; one with a size, of which there may be a wall,
// in its turn in the background.
void ZQURLImage::showKeptPicture() {
  const auto file = keptFile();
  if (!file) return;
  auto read = [self = shared_from_this(), path = file->path()] {
    const Result<Bytes> bytes = readFile(path);
    if (!bytes.ok()) return;
    auto image = zqImage(bytes.value(), {self->maxSide_, picturePixelLimit()});
    if (image) XMain::post([self, image] { self->showUntilReady(image); });
  };
  if (maxSide_ == 0) return read();
  detail::PictureOrder::shared().add(detail::PictureLane::local(), shared_from_this(),
                                     [read = std::move(read)](const auto&) { read(); });
}

void ZQURLImage::showUntilReady(const std::optional<ZQImage>& image) {
  const Status now = status;
  if (now == Status::ready) return;
  image_ = image;
  // A download that failed before the picture was read has failed all the same.
  if (now == Status::downloading) status = Status::cacheTemp;
}

void ZQURLImage::download() {
  const auto source = Url::parse(searchAndReplace(*url, " ", "%20", false));
  if (!source) {
    return XMain::post([self = shared_from_this()] { self->fail(*self->url + " is no address"); });
  }
  detail::loadPicture(shared_from_this(), *source, maxSide_,
                      [self = shared_from_this()](detail::LoadedPicture picture) {
                        self->take(std::move(picture));
                      });
}

void ZQURLImage::take(detail::LoadedPicture picture) {
  const auto self = shared_from_this();
  if (!picture.image) {
    return XMain::execute([self, reason = std::move(picture.failure)] { self->fail(reason); });
  }
  XMain::execute([self, image = std::move(picture.image)] {
    self->image_ = image;
    self->status = Status::ready;
  });
  keep(std::move(picture.bytes));
}

void ZQURLImage::fail(std::string reason) {
  noteFailure(std::move(reason));
  status = Status::failed;
}

void ZQURLImage::keep(std::shared_ptr<const Result<Bytes>> bytes) {
  Queue::execute(false, [weak = weak_from_this(), bytes = std::move(bytes)] {
    const auto self = weak.lock();
    const auto file = self && self->url ? self->keptFile() : std::nullopt;
    // A folder that is full or cannot be written costs the next process its first picture only.
    if (file && fu_createParentFolderIfNeeded(*file)) {
      (void)replaceFile(file->path(), bytes->value()).ok();
    }
  });
}

ZQURLImageView::ZQURLImageView(std::optional<std::string> url)
    : ZQURLImageView(std::move(url), {}) {}

ZQURLImageView::ZQURLImageView(std::optional<std::string> url, const Parameters& parameters)
    : url_(std::move(url)), image_(ZQURLImage::lookup(url_, parameters.decodeSize)) {}

View ZQURLImageView::body(Context& context) const {
  const auto picture = context.observe(image_).image_.snapshot();
  return GeometryReader([shown = url_.has_value(), picture](Size room) {
    const View content = shown && *picture ? View(Image(**picture).resizable()) : placeholder(room);
    return content.frame(room.width, room.height);
  });
}

}  // namespace zq
