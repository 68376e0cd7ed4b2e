// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <zqswiftui/images/picture_limits.hpp>
#include <zqswiftui/images/picture_model.hpp>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/base/sub_files.hpp>
#include <zqswiftui/platform/base/task.hpp>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>

namespace zq {

namespace detail {
struct LoadedPicture;
class PictureTurn;
}  // namespace detail

// The picture of one item of a store of files, read once for all who ask for it, in the background,
// and decoded on the interface thread; with a size, in the background too. Looked up on the
// interface thread; never released but by ZQSubFileCachedImageView::invalidate.
class ZQSubFileCachedImageVM : public PictureModel,
                               public std::enable_shared_from_this<ZQSubFileCachedImageVM> {
 public:
  enum class Status : unsigned char { startup, loading, ready, failed };

  // The one of that id and size, whatever the store: the first one that is given for an id is
  // read. Without an id it stays at startup.
  static std::shared_ptr<ZQSubFileCachedImageVM> lookup(const std::optional<std::string>& id,
                                                        const ZQSubFiles& subFiles,
                                                        const DecodeSize& size = {});

  const std::optional<std::string> id;
  // The picture is set before ready, both on the interface thread. Observers are told once there
  // is a picture, and of nothing else: not of a failure.
  Unpublished<Status> status{Status::startup};
  Unpublished<std::optional<ZQImage>> image_;

 private:
  friend class ZQSubFileCachedImageView;
  using Weak = std::weak_ptr<ZQSubFileCachedImageVM>;
  static auto& list();
  static auto& reads();
  template <class Source>
  static Task<void> read(std::shared_ptr<Source> source, ZQSubFiles store, std::string id,
                         std::shared_ptr<detail::PictureTurn> turn);
  ZQSubFileCachedImageVM(std::optional<std::string> item, int maxSide);
  void begin();
  void take(const detail::LoadedPicture& picture);

  const int maxSide_;
  bool begun_ = false;  // any thread, as an atomic
};

// The picture of an item of a store: a clear area without an id, nothing as long as there is no
// picture, then the picture, fitted or filling, or stretched where aspectRatio is not given. The
// corner radius is kept for whoever draws around it, and rounds nothing. Interface thread only.
//   ZQSubFileCachedImageView({.id = note.picture, .subFiles = document->files})
class ZQSubFileCachedImageView : public ViewModifiers<ZQSubFileCachedImageView> {
 public:
  struct Parameters {
    std::optional<std::string> id = std::nullopt;
    Required<ZQSubFiles> subFiles;  // not kept
    double cornerRadius = 0;
    std::optional<ContentMode> aspectRatio = std::nullopt;
    DecodeSize decodeSize = {};  // by itself: all the pixels that it has
  };
  explicit ZQSubFileCachedImageView(const Parameters& parameters);

  // Views of that id which are built from now on read it afresh from their store.
  static void invalidate(const std::string& id);

  View body(Context& context) const;
  bool operator==(const ZQSubFileCachedImageView&) const = default;

 private:
  std::optional<std::string> id_;
  double cornerRadius_;
  std::optional<ContentMode> aspectRatio_;
  Shared<ZQSubFileCachedImageVM> image_;
};

}  // namespace zq
