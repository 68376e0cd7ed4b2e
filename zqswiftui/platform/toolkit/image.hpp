// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// Whether a picture keeps its proportions inside of the room that it is offered, or covers all of
// it, reaching out of it on two sides.
enum class ContentMode : unsigned char { fit, fill };

// A symbol in the size of a font, or a picture at one point a pixel unless it is resizable.
// Pictures come in memory, but for those of a name or a URL, which the calling thread reads.
//   Image::symbol("star.fill").font(Font::title2()).foregroundColor(Color::yellow())
class Image : public ViewModifiers<Image> {
 public:
  // An unknown name draws nothing, and says so once on standard error.
  static Image symbol(std::string name);
  explicit Image(ZQImage picture);
  // A picture of the application's own resources; nothing where there is none of that name.
  static Image named(const std::string& name);

  // What a file or something remote holds; nothing where it cannot be read or is no picture.
  // Any thread, which waits: on the interface thread only for small files that are near.
  static std::optional<Image> fromUrl(const Url& url);
  // The same, scaled so that the longer side has that many pixels; nothing below 1, and as it is
  // where that is more than 16384 and than it has. There is no time limit for what is remote.
  static std::optional<Image> fromUrl(const Url& url, int andResizeTo);

  Image font(Font font) const;                              // the size of a symbol
  Image foregroundColor(std::optional<Color> color) const;  // none: as it was
  // Fills the room that is offered; aspectFit keeps the proportions inside of it.
  Image resizable(bool aspectFit = true) const;
  Image resizable(ContentMode mode) const;
  Image accessibilityLabel(std::string label) const;
  operator View() const;  // NOLINT(google-explicit-constructor)

  bool operator==(const Image&) const = default;

 private:
  friend class ImageNode;
  Image() = default;
  std::string symbol_;
  std::optional<ZQImage> picture_;
  Font font_;
  std::optional<Color> color_;
  std::string label_;
  bool ownFont_ = false;  // else that of the environment
  bool resizable_ = false;
  std::optional<ContentMode> mode_ = ContentMode::fit;  // none: stretched
};

// The picture that the bytes of an image file hold; nothing where they are none. Any thread.
std::optional<Image> swiftUIImage(std::span<const std::uint8_t> bytes);

}  // namespace zq
