// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <optional>
#include <zqswiftui/images/picture_limits.hpp>
#include <zqswiftui/images/picture_model.hpp>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// The picture of one URL, of a file or remote, loaded once for all who ask for it. Looked up, and
// its views made, on the interface thread; it is never released but by ZQCachedImage::invalidate.
class ZQCachedImageVM : public PictureModel, public std::enable_shared_from_this<ZQCachedImageVM> {
 public:
  enum class Status : unsigned char { startup, loading, ready, failed };

  // The one of that URL and size. A new one begins to load at once; without a URL it never does.
  static std::shared_ptr<ZQCachedImageVM> lookup(const std::optional<Url>& url,
                                                 const DecodeSize& size = {});

  const std::optional<Url> url;
  // The picture is set before ready, both on the interface thread; failed on a background one.
  Published<Status> status{this, Status::startup};
  Published<std::optional<ZQImage>> image_;

 private:
  friend class ZQCachedImage;
  static auto& list();
  explicit ZQCachedImageVM(std::optional<Url> source);
  void load(int maxSide);
};

// The picture of a URL, stretched to the room that it is offered and clipped to round corners;
// while there is none yet, and for ever where it cannot be read, the symbol
// "icloud.and.arrow.down", and without a URL the symbol "photo". Interface thread only.
//   ZQCachedImage(Url::file(path), {.cornerRadius = 8}).frame(64, 64)
class ZQCachedImage : public ViewModifiers<ZQCachedImage> {
 public:
  struct Parameters {
    double cornerRadius = 0;     // points
    DecodeSize decodeSize = {};  // by itself: all the pixels that it has
  };
  explicit ZQCachedImage(std::optional<Url> url = std::nullopt);
  ZQCachedImage(std::optional<Url> url, const Parameters& parameters);

  // Views of that URL which are built from now on load it afresh. Those that stand keep what they
  // show, and what is being loaded is loaded to its end.
  static void invalidate(const Url& url);

  View body(Context& context) const;
  bool operator==(const ZQCachedImage&) const = default;

 private:
  std::optional<Url> url_;
  double cornerRadius_;
  Shared<ZQCachedImageVM> image_;
};

}  // namespace zq
