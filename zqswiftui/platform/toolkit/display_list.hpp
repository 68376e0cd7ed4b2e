// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <string>
#include <variant>
#include <vector>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/services/text_measurer.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/font.hpp>
#include <zqswiftui/platform/toolkit/geometry.hpp>
#include <zqswiftui/platform/toolkit/path.hpp>
#include <zqswiftui/platform/toolkit/symbols/symbols.hpp>

namespace zq {

// The display list: what a node draws, as small structs in points of that node. Colours stay
// names until they are played, so that light and dark need no new recording.

// A text with its font, shared by all that draw it. `playerCache` belongs to the canvas that
// plays it: the shaped form is kept there between frames.
struct TextContent {
  std::string text;
  FontSpec font;
  mutable std::shared_ptr<void> playerCache;
};

struct FillRect {
  Rect rect;
  Paint paint;
};
// A radius of half the shorter side makes a capsule; continuous corners bend more slowly.
struct FillRoundedRect {
  Rect rect;
  double radius = 0;
  bool continuous = false;
  Paint paint;
};
struct FillPath {
  std::shared_ptr<const Path> path;
  Rect rect;
  Paint paint;
};
struct StrokePath {
  std::shared_ptr<const Path> path;
  Rect rect;  // with the width of the line
  StrokeStyle style;
  Paint paint;
  // Where the path is all of a rectangle with such corners, so that it need not be traced.
  double radius = 0;
  bool continuous = false;
};
// Drawn inside the rectangle from its top: wrapped to its width, at most maxLines lines (0: any
// number), the last one shortened with an ellipsis where the text does not fit. A text that is
// one line and fits is drawn without a new layout: `singleLine`.
struct DrawText {
  std::shared_ptr<const TextContent> content;
  Rect rect;
  TextAlignment alignment = TextAlignment::leading;
  int maxLines = 0;
  bool singleLine = true;
  bool elideMiddle = false;
  Color color;
};
// The symbol's unit square fills the rectangle.
struct DrawSymbol {
  const SymbolDrawing* drawing = nullptr;
  std::string name;
  Rect rect;
  Color color;
};
struct DrawPicture {
  ZQImage picture;
  Rect rect;
};

using DrawCommand = std::variant<FillRect, FillRoundedRect, FillPath, StrokePath, DrawText,
                                 DrawSymbol, DrawPicture>;

Rect boundsOf(const DrawCommand& command);

// One line for people: `text 8,4 40x16 "Save" system 13 primary`. The origin is added to the
// bounds; numbers have two decimals at most.
std::string describe(const DrawCommand& command, Point origin = {});
std::string describe(const Rect& rect);      // "8,4 40x16"
std::string describe(const FontSpec& font);  // "system 13 bold"

}  // namespace zq
