// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <zqswiftui/images/picture_limits.hpp>
#include <zqswiftui/images/picture_model.hpp>
#include <zqswiftui/platform/base/share_app.hpp>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/base/task.hpp>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>

namespace zq {

namespace detail {
struct LoadedPicture;
class PictureTurn;
}  // namespace detail

// The picture of one item of a sharing record, which is downloaded first where it is missing.
// Decoded pictures are kept by the path of their file and outlive ZQSharedCachedImage::invalidate,
// by which alone a model is released. Once the file is there it is read and decoded in one turn of
// the interface thread; with a size, in the background. Looked up on the interface thread.
class ZQSharedCachedImageVM : public PictureModel,
                              public std::enable_shared_from_this<ZQSharedCachedImageVM> {
 public:
  enum class Status : unsigned char { startup, loading, ready, failed };

  // The one of that id and size, whatever the record: the first one that is given for an id is
  // asked. Without an id, and where the record has no such item, it stays at startup.
  static std::shared_ptr<ZQSharedCachedImageVM> lookup(const std::optional<std::string>& id,
                                                       const ZQShareApp& shareApp,
                                                       const DecodeSize& size = {});

  const std::optional<std::string> id;
  // Set on the interface thread, the picture before ready. Observers are told once the load has
  // ended, well or badly, and of nothing else.
  Unpublished<Status> status{Status::startup};
  Unpublished<std::optional<ZQImage>> image_;

 private:
  friend class ZQSharedCachedImage;
  using Weak = std::weak_ptr<ZQSharedCachedImageVM>;
  static auto& list();
  static Task<void> resolve(Weak weak, ZQShareApp shareApp, std::string id,
                            std::shared_ptr<detail::PictureTurn> turn);
  static Task<void> fetch(Weak weak, ZQShareApp shareApp, std::string id,
                          std::shared_ptr<detail::PictureTurn> turn);
  static void loadOnMain(const Weak& weak, const Url& url);
  ZQSharedCachedImageVM(std::optional<std::string> item, int maxSide);
  void load(const Url& url);
  void loadHere(const Url& url);
  void loadSmall(const Url& url);
  std::optional<ZQImage> pictureOf(detail::LoadedPicture loaded);
  void take(std::optional<ZQImage> image);

  const int maxSide_;
};

// The picture of an item: a clear area without an id, nothing as long as there is no picture, then
// the picture, fitted or filling, or stretched where aspectRatio is not given. The corner radius is
// kept for whoever draws around it, and rounds nothing. Interface thread only.
//   ZQSharedCachedImage({.id = "cover", .shareApp = record, .aspectRatio = ContentMode::fit})
class ZQSharedCachedImage : public ViewModifiers<ZQSharedCachedImage> {
 public:
  struct Parameters {
    std::optional<std::string> id = std::nullopt;
    Required<ZQShareApp> shareApp;  // not kept
    double cornerRadius = 0;
    std::optional<ContentMode> aspectRatio = std::nullopt;
    DecodeSize decodeSize = {};  // by itself: all the pixels that it has
  };
  explicit ZQSharedCachedImage(const Parameters& parameters);

  // Views of that id which are built from now on ask their record again; a file that was decoded
  // before is not read again.
  static void invalidate(const std::string& id);

  View body(Context& context) const;
  bool operator==(const ZQSharedCachedImage&) const = default;

 private:
  std::optional<std::string> id_;
  double cornerRadius_;
  std::optional<ContentMode> aspectRatio_;
  Shared<ZQSharedCachedImageVM> image_;
};

}  // namespace zq
