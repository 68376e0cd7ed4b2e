// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <zqswiftui/images/picture_limits.hpp>
#include <zqswiftui/images/picture_model.hpp>
#include <zqswiftui/platform/base/result.hpp>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

namespace detail {
struct LoadedPicture;
}

// The picture of one address, normally remote, downloaded once a process for all who ask for it.
// What was downloaded is kept as it came in the folder Vendel/ZQURLImage of the user's cache, under
// the MD5 digest of the address, and shown by the next process until its own download ends: it is
// read and decoded at once, by who asks for the model; with a size in the background. A file there
// that is damaged is ignored and replaced; a folder that cannot be written is harmless. Looked up
// on the interface thread; never released.
class ZQURLImage : public PictureModel, public std::enable_shared_from_this<ZQURLImage> {
 public:
  // cacheTemp: a picture of an earlier process is shown while the download goes on.
  enum class Status : unsigned char { startup, cacheTemp, downloading, ready, failed };

  // The one of that address and size. Blanks in the address are escaped, nothing else is. A new
  // one begins to download at once; without an address it never does.
  static std::shared_ptr<ZQURLImage> lookup(const std::optional<std::string>& url,
                                            const DecodeSize& size = {});

  const std::optional<std::string> url;
  // Set on the interface thread, the picture before cacheTemp and ready. A download that fails
  // leaves the picture that is there.
  Published<Status> status{this, Status::startup};
  Published<std::optional<ZQImage>> image_;

 private:
  ZQURLImage(std::optional<std::string> address, int maxSide);
  void begin();
  void showKeptPicture();
  void showUntilReady(const std::optional<ZQImage>& image);
  void download();
  void take(detail::LoadedPicture picture);
  void fail(std::string reason);
  void keep(std::shared_ptr<const Result<Bytes>> bytes);
  std::optional<Url> keptFile() const;

  const int maxSide_;
};

// The picture of an address, as large as it fits in the room that is offered, in its middle. As
// long as there is none, the symbol "icloud.and.arrow.down", dimmed, in a square of 40 % of the
// shorter side and at most 64 points. Interface thread only.
//   ZQURLImageView("https://example.org/cover art.jpg").frame(120, 90)
class ZQURLImageView : public ViewModifiers<ZQURLImageView> {
 public:
  struct Parameters {
    DecodeSize decodeSize = {};  // by itself: all the pixels that it has
  };
  explicit ZQURLImageView(std::optional<std::string> url);
  ZQURLImageView(std::optional<std::string> url, const Parameters& parameters);

  View body(Context& context) const;
  bool operator==(const ZQURLImageView&) const = default;

 private:
  std::optional<std::string> url_;
  Shared<ZQURLImage> image_;
};

}  // namespace zq
