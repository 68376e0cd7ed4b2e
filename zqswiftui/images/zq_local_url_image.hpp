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

// The picture of one file, read once a process for all who ask for it. Looked up on the interface
// thread; never released.
class ZQLocalURLImage : public PictureModel, public std::enable_shared_from_this<ZQLocalURLImage> {
 public:
  enum class Status : unsigned char { startup, loading, ready, failed };

  // The one of that URL and size. A new one begins to load at once; without a URL it never does.
  static std::shared_ptr<ZQLocalURLImage> lookup(const std::optional<Url>& url,
                                                 const DecodeSize& size = {});

  const std::optional<Url> url;
  // The picture is set before ready, both on the interface thread; failed on a background one.
  Published<Status> status{this, Status::startup};
  Published<std::optional<ZQImage>> image_;

 private:
  explicit ZQLocalURLImage(std::optional<Url> source);
  void load(int maxSide);
};

// The picture of a file, as large as it fits in the room that is offered, in its middle; nothing
// as long as there is none. Interface thread only.
//   ZQLocalURLImageView(Url::file(path))
class ZQLocalURLImageView : public ViewModifiers<ZQLocalURLImageView> {
 public:
  struct Parameters {
    DecodeSize decodeSize = {};  // by itself: all the pixels that it has
  };
  explicit ZQLocalURLImageView(std::optional<Url> url);
  ZQLocalURLImageView(std::optional<Url> url, const Parameters& parameters);

  View body(Context& context) const;
  bool operator==(const ZQLocalURLImageView&) const = default;

 private:
  std::optional<Url> url_;
  Shared<ZQLocalURLImage> image_;
};

}  // namespace zq
