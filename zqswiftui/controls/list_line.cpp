// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/controls/list_line.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr double kMarkWidth = 16;
constexpr double kBeforeMark = 2;
constexpr double kAroundLines = 5;

Color colorOf(LineGround ground) {
  switch (ground) {
    case LineGround::hovered:
      return Color::primary().opacity(0.06);
    case LineGround::chosenElsewhere:
      return Color::accent().opacity(0.16);
    case LineGround::lit:
      return Color::accent().opacity(0.25);
    case LineGround::chosen:
      return Color::accent().opacity(0.3);
    case LineGround::none:
      break;
  }
  return Color::clear();
}

}  // namespace

View lineGround(LineGround ground) {
  return RoundedRectangle(kControlRadius).fill(colorOf(ground));
}

Color prominentGround(bool hovered) {
  return Color::hex(hovered ? 0x0a56d0 : 0x0a64f0);
}

View listLine(const ListLine& line) {
  const View mark = Image::symbol("checkmark").font(Font::caption()).opacity(line.checked ? 1 : 0);
  std::vector<View> parts{
      mark.frame({.width = kMarkWidth, .growsWithText = true}),
      View(Text(line.title).lineLimit(1))
          .flexFrame({.maxWidth = kInfinity, .alignment = Alignment::leading()})};
  // What stands behind is not cut for the sake of a title that could give way.
  if (!line.behind.empty()) parts.push_back(line.behind.layoutPriority(1));
  return HStack({.spacing = 4}, std::move(parts))
      .padding({.leading = kBeforeMark, .trailing = kListLinePadding})
      .frame({.height = kListLineHeight, .growsWithText = true})
      .background(lineGround(line.lit ? LineGround::lit : LineGround::none));
}

View listOfLines(std::vector<View> lines) {
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 0}, std::move(lines))
      .padding(kAroundLines);
}

}  // namespace zq
