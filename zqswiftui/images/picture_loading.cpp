// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/images/picture_loading.hpp>
#include <zqswiftui/platform/base/url_loader.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq::detail {
namespace {

struct Request {
  std::weak_ptr<PictureModel> model;  // whether it is kept until then is the answer's affair
  Url url;
  int maxSide;
  std::function<void(LoadedPicture)> answer;
};

LoadedPicture decoded(Result<Bytes> bytes, const Request& request) {
  return decodePicture(std::move(bytes), request.maxSide, request.url.text());
}

Task<void> download(Request request, std::shared_ptr<PictureTurn> turn) {
  Result<Bytes> bytes = co_await loadUrl(request.url);
  if (!bytes.ok()) {
    request.answer(decoded(std::move(bytes), request));
    co_return;
  }
  // The next download need not wait for it.
  decodeInTurn(request.model.lock(), std::move(bytes).value(), request.maxSide, request.url.text(),
               std::move(request.answer));
  turn.reset();
}

}  // namespace

LoadedPicture decodePicture(Result<Bytes> bytes, int maxSide, const std::string& name) {
  if (!bytes.ok()) return {std::nullopt, {}, bytes.error().sentence};
  const DecodeLimits limits{maxSide, picturePixelLimit()};
  LoadedPicture picture{zqImage(bytes.value(), limits), std::move(bytes).value(), {}};
  if (picture.image) return picture;
  const std::int64_t declared = Platform::current().imageCodec().declaredPixels(picture.bytes);
  picture.failure = declared > limits.maxPixels
                        ? name + " has " + std::to_string(declared) + " pixels, more than the " +
                              std::to_string(limits.maxPixels) + " of setPicturePixelLimit"
                        : name + " is no whole picture of a known kind";
  return picture;
}

void decodeInTurn(const std::shared_ptr<PictureModel>& model, Bytes bytes, int maxSide,
                  std::string name, std::function<void(LoadedPicture)> answer) {
  PictureOrder::shared().add(PictureLane::local, model,
                             [maxSide, held = std::make_shared<Bytes>(std::move(bytes)),
                              name = std::move(name), answer = std::move(answer)](const auto&) {
                               answer(decodePicture(std::move(*held), maxSide, name));
                             });
}

void loadPicture(const std::shared_ptr<PictureModel>& model, const Url& url, int maxSide,
                 std::function<void(LoadedPicture)> answer) {
  const bool isFile = url.isFile();
  Request request{model, url, maxSide, std::move(answer)};
  PictureOrder::shared().add(
      isFile ? PictureLane::local : PictureLane::remote, model,
      [request = std::move(request), isFile](std::shared_ptr<PictureTurn> turn) {
        if (!isFile) return detach(download(request, std::move(turn)));
        request.answer(decoded(readFile(request.url.path()), request));
      });
}

}  // namespace zq::detail
