// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/platform/toolkit/path.hpp>

namespace zq::gallery {
namespace {

// [code]
Path heart() {
  Path path;
  path.moveTo({32, 58});
  path.curveTo({4, 36}, {4, 8}, {20, 8})
      .curveTo({28, 8}, {32, 16}, {32, 20});
  path.curveTo({32, 16}, {36, 8}, {44, 8})
      .curveTo({60, 8}, {60, 36}, {32, 58});
  return path.close();
}

View sized(View shape) {
  return shape.frame(88, 64);
}

struct Shapes {
  View body(Context&) const {
    const View filled = samples(
        {sample("Rectangle", sized(Rectangle().fill(Color::blue()))),
            sample("RoundedRectangle",
                sized(RoundedRectangle(14).fill(Color::green()))),
            sample("Capsule", sized(Capsule().fill(Color::orange()))),
            sample("Circle", sized(Circle().fill(Color::pink()))),
            sample("PathShape",
                PathShape(heart()).fill(Color::red()).frame(64, 64))});
    const StrokeStyle dashed{
        .lineWidth = 2, .roundCap = true, .dash = {6, 5}};
    const View stroked = samples({sized(RoundedRectangle(14).stroke(
                                      Color::blue(), {.lineWidth = 3})),
        sized(Capsule().stroke(Color::purple(), dashed)),
        sized(Circle().stroke(Color::teal())),
        PathShape(heart())
            .stroke(Color::red(), {.lineWidth = 2})
            .frame(64, 64)});
    const View gradients =
        samples({sized(RoundedRectangle(14).fill(
                     LinearGradient::of({Color::pink(), Color::orange()}))),
            sized(Capsule().fill(
                LinearGradient::of({Color::teal(), Color::indigo()},
                    UnitPoint::leading(), UnitPoint::trailing())))});
    return cards({
        card("Filled", filled),
        card("Stroked, inside the edge", stroked),
        card("Gradients", gradients),
        card("Clipped", samples({Rectangle()
                                     .fill(LinearGradient::of(
                                         {Color::cyan(), Color::blue()}))
                                     .frame(96, 64)
                                     .clipShape(Circle()),
                            Text("Clipped to a capsule")
                                .padding(12)
                                .background(Color::yellow())
                                .clipShape(Capsule())
                                .foregroundColor(Color::black())})),
        card("Light and dark",
            lightAndDark(HStack({sized(Capsule().fill(Color::mint())),
                sized(Capsule().fill(Color::indigo()))}))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::shapes() {
  return page<Shapes>("Toolkit", "Shapes",
      "Outlines that fill the room they are offered: filled, stroked, "
      "or used to clip.");
}

}  // namespace zq::gallery
