// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A symbol in the size of a font, or a picture at one point a pixel unless it is resizable.
// Nothing is decoded or loaded here: pictures come in memory.
//   Image::symbol("star.fill").font(Font::title2()).foregroundColor(Color::yellow())
class Image : public ViewModifiers<Image> {
 public:
  // An unknown name draws nothing, and says so once on standard error.
  static Image symbol(std::string name);
  explicit Image(ZQImage picture);
  // A picture of the application's own resources; nothing where there is none of that name.
  static Image named(const std::string& name);

  Image font(Font font) const;                              // the size of a symbol
  Image foregroundColor(std::optional<Color> color) const;  // none: as it was
  // Fills the room that is offered; aspectFit keeps the proportions inside of it.
  Image resizable(bool aspectFit = true) const;
  Image accessibilityLabel(std::string label) const;
  operator View() const;  // NOLINT(google-explicit-constructor)

  bool operator==(const Image&) const = default;

 private:
  friend class ImageNode;
  Image() = default;
  std::string symbol_;
  std::optional<ZQImage> picture_;
  std::optional<Font> font_;
  std::optional<Color> color_;
  std::string label_;
  bool resizable_ = false;
  bool aspectFit_ = true;
};

}  // namespace zq
