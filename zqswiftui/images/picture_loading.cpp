// ZQSwiftUI, MIT licence; see LICENSE.
#include <atomic>
#include <map>
#include <utility>
#include <vector>
#include <zqswiftui/images/picture_loading.hpp>
#include <zqswiftui/images/shared_reads.hpp>
#include <zqswiftui/platform/base/url_loader.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq::detail {
namespace {

struct Request {
  std::weak_ptr<PictureModel> model;  // whether it is kept until then is the answer's affair
  int maxSide;
  std::function<void(LoadedPicture)> answer;
};

SharedReads<Request>& reads() {
  static SharedReads<Request> all;
  return all;
}
using Source = std::shared_ptr<SharedReads<Request>::Source>;

// What was downloaded and is not decoded yet. As long as it is little the next download begins at
// once; then each keeps its turn until it is decoded, so that servers which are quicker than the
// processors do not fill the memory.
class Undecoded {
 public:
  explicit Undecoded(std::size_t bytes) : bytes_(bytes) { all() += bytes_; }
  ~Undecoded() { all() -= bytes_; }
  Undecoded(const Undecoded&) = delete;
  Undecoded& operator=(const Undecoded&) = delete;

  static bool isMuch() { return all() > std::size_t{32} << 20; }

 private:
  static std::atomic<std::size_t>& all() {
    static std::atomic<std::size_t> bytes{0};
    return bytes;
  }
  std::size_t bytes_;
};

// The requests of one size, of which there is one picture.
using Sizes = std::map<int, std::vector<Request>>;

Sizes bySize(std::vector<Request> requests) {
  Sizes sizes;
  for (Request& request : requests) sizes[request.maxSide].push_back(std::move(request));
  return sizes;
}

void answerAll(const std::vector<Request>& requests, const LoadedPicture& picture) {
  for (const Request& request : requests) request.answer(picture);
}

// One that somebody looks at, if there is one: the picture goes first for its sake.
std::shared_ptr<PictureModel> shownOf(const std::vector<Request>& requests) {
  std::shared_ptr<PictureModel> found;
  for (const Request& request : requests) {
    auto model = request.model.lock();
    if (!model) continue;
    const bool shown = model->willChange.hasListeners();
    if (shown || !found) found = std::move(model);
    if (shown) break;
  }
  return found;
}

ReadBytes shared(Result<Bytes> bytes) {
  return std::make_shared<const Result<Bytes>>(std::move(bytes));
}

void read(const Url& file, const Source& source) {
  const ReadBytes bytes = shared(readFile(file.path()));
  for (const auto& [maxSide, requests] : bySize(reads().end(source))) {
    answerAll(requests, decodePicture(bytes, maxSide, file.text()));
  }
}

Task<void> download(Url url, Source source, std::shared_ptr<PictureTurn> turn) {
  const ReadBytes bytes = shared(co_await loadUrl(url));
  Sizes sizes = bySize(reads().end(source));
  if (!bytes->ok()) {
    for (const auto& [maxSide, requests] : sizes) {
      answerAll(requests, decodePicture(bytes, maxSide, url.text()));
    }
    co_return;
  }
  const auto held = std::make_shared<Undecoded>(bytes->value().size());
  const auto kept = Undecoded::isMuch() ? std::move(turn) : nullptr;
  turn.reset();
  for (auto& [maxSide, requests] : sizes) {
    const auto shown = shownOf(requests);
    decodeInTurn(shown, bytes, maxSide, url.text(),
                 [held, kept, requests = std::move(requests)](const LoadedPicture& picture) {
                   answerAll(requests, picture);
                 });
  }
}

}  // namespace

LoadedPicture decodePicture(ReadBytes bytes, int maxSide, const std::string& name) {
  if (!bytes->ok()) {
    std::string sentence = bytes->error().sentence;
    return {std::nullopt, std::move(bytes), std::move(sentence)};
  }
  const DecodeLimits limits{maxSide, picturePixelLimit()};
  LoadedPicture picture{zqImage(bytes->value(), limits), std::move(bytes), {}};
  if (picture.image) return picture;
  const std::int64_t declared =
      Platform::current().imageCodec().declaredPixels(picture.bytes->value());
  picture.failure = declared > limits.maxPixels
                        ? name + " has " + std::to_string(declared) + " pixels, more than the " +
                              std::to_string(limits.maxPixels) + " of setPicturePixelLimit"
                        : name + " is no whole picture of a known kind";
  return picture;
}

void decodeInTurn(const std::shared_ptr<PictureModel>& model, ReadBytes bytes, int maxSide,
                  const std::string& name, std::function<void(LoadedPicture)> answer) {
  PictureOrder::shared().add(PictureLane::local(), model,
                             [maxSide, bytes = std::move(bytes), name, answer = std::move(answer)](
                                 const auto&) { answer(decodePicture(bytes, maxSide, name)); });
}

void loadPicture(const std::shared_ptr<PictureModel>& model, const Url& url, int maxSide,
                 std::function<void(LoadedPicture)> answer) {
  const Source source = reads().join(url.text(), {model, maxSide, std::move(answer)});
  PictureOrder::shared().add(PictureLane::of(url), model,
                             [url, source](std::shared_ptr<PictureTurn> turn) {
                               if (!reads().begin(*source)) return;
                               if (url.isFile()) return read(url, source);
                               detach(download(url, source, std::move(turn)));
                             });
}

void forgetLoad(const Url& url) {
  reads().forget(url.text());
}

}  // namespace zq::detail
