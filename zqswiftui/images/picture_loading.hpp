// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <zqswiftui/images/picture_limits.hpp>
#include <zqswiftui/images/picture_order.hpp>
#include <zqswiftui/platform/base/result.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

// Inside of images/ only.
namespace zq::detail {

// What was read, shared by those who asked for it.
using ReadBytes = std::shared_ptr<const Result<Bytes>>;

struct LoadedPicture {
  std::optional<ZQImage> image;
  ReadBytes bytes;      // also where they are no picture
  std::string failure;  // a sentence where there is no picture
};

// Within the limit on pixels, and scaled down to maxSide where that is not 0. What the picture is
// called in the sentence: its file, address or id. Bytes that could not be had are no picture.
// Waits for the decoder.
LoadedPicture decodePicture(ReadBytes bytes, int maxSide, const std::string& name);

// The same in a turn of its own among the files, in the background.
void decodeInTurn(const std::shared_ptr<PictureModel>& model, ReadBytes bytes, int maxSide,
                  const std::string& name, std::function<void(LoadedPicture)> answer);

// Reads or downloads what the URL names, decodes it and hands it over, on a background thread
// each, in the order of PictureOrder. Those who ask for one URL until it has been read, whatever
// their size, share the reading, and those of one size the picture. The answer does not come where
// the platform ends before.
void loadPicture(const std::shared_ptr<PictureModel>& model, const Url& url, int maxSide,
                 std::function<void(LoadedPicture)> answer);

// Who asks for it from now on does not share what was asked for before.
void forgetLoad(const Url& url);

}  // namespace zq::detail
