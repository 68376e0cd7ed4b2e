// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <string>
#include <vector>
#include <zqswiftui/platform/headless/headless_text_measurer.hpp>
#include <zqswiftui/platform/headless/recording_canvas.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/font.hpp>
#include <zqswiftui/platform/toolkit/path.hpp>
#include <zqswiftui/platform/toolkit/region.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>

namespace zq {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(Region, coversAllThatWasAddedWithFewRectanglesAndLittleWaste) {
  std::mt19937 random(3);
  const auto below = [&](int end) {
    return std::uniform_int_distribution<int>(0, end - 1)(random);
  };
  for (int run = 0; run < 200; ++run) {
    Region region;
    std::vector<Rect> added;
    Rect all;
    for (int i = below(40); i >= 0; --i) {
      const Rect r{static_cast<double>(below(90)), static_cast<double>(below(90)),
                   static_cast<double>(below(12)), static_cast<double>(below(12))};
      added.push_back(r);
      region.add(r);
      if (!r.empty()) all = unite(all, r);
    }
    EXPECT_LE(region.rects().size(), 12u);
    EXPECT_EQ(describe(region.bounds()), describe(all)) << "never more than around all";
    for (const Rect& r : added) {
      for (double x = r.x; x < r.maxX(); ++x) {
        for (double y = r.y; y < r.maxY(); ++y) {
          EXPECT_TRUE(region.intersects({x, y, 1, 1})) << x << ',' << y;
        }
      }
    }
  }
}

TEST(Region, farCornersStayApartAndWhatIsNoAreaIsLeftOut) {
  Region region;
  region.add({0, 0, 5, 5});
  region.add({95, 95, 5, 5});
  EXPECT_EQ(region.rects().size(), 2u);
  EXPECT_FALSE(region.intersects({40, 40, 20, 20}));
  region.add({1, 1, 3, 3});
  region.add({50, 50, 0, 9});
  region.add({50, 50, -4, 9});
  region.add({kNan, 0, kNan, 3});
  EXPECT_EQ(region.rects().size(), 2u);
  EXPECT_FALSE(region.intersects({5, 0, 5, 5})) << "touching is not meeting";
  region.clear();
  EXPECT_TRUE(region.bounds().empty());
}

TEST(Rects, intersectionAndUnionAgreeWithTheirPoints) {
  const Rect some[] = {{0, 0, 4, 4}, {2, 2, 4, 4}, {4, 0, 2, 2},
                       {1, 1, 1, 1}, {9, 9, 1, 1}, {3, 3, 0, 0}};
  for (const Rect& a : some) {
    for (const Rect& b : some) {
      const Rect both = intersection(a, b), around = unite(a, b);
      EXPECT_EQ(both, intersection(b, a));
      EXPECT_EQ(around, unite(b, a));
      EXPECT_EQ(!both.empty(), a.intersects(b) && !a.empty() && !b.empty());
      for (double x = 0.5; x < 10; ++x) {
        for (double y = 0.5; y < 10; ++y) {
          const Point p{x, y};
          EXPECT_EQ(both.contains(p), a.contains(p) && b.contains(p));
          EXPECT_TRUE(around.contains(p) || !(a.contains(p) || b.contains(p)));
        }
      }
    }
  }
  EXPECT_TRUE((Rect{0, 0, 10, 10}.insetBy(6).empty())) << "an inset past the middle";
}

// --- Outlines ---

Point last(const Path& path) {
  Point p;
  for (const Path::Element& e : path.elements()) {
    if (e.verb != Path::Verb::close) p = e.p3;
  }
  return p;
}

TEST(Paths, roundedCornersStayInsideAndMeetTheirSides) {
  const Rect rects[] = {{0, 0, 40, 20}, {5, 7, 20, 40}, {0, 0, 1, 30}, {3, 3, 0, 9}, {0, 0, 0, 0}};
  for (const Rect& r : rects) {
    for (const double radius : {0.0, 3.0, 9.9, 10.0, 25.0, 1e9, -4.0, kNan, kInfinity}) {
      for (const bool continuous : {false, true}) {
        Path path;
        path.addRoundedRect(r, radius, continuous);
        EXPECT_EQ(describe(path.bounds()), describe(r)) << radius << continuous;
        // Along each side the outline goes on and never back.
        ASSERT_GE(path.elements().size(), 5u);
        EXPECT_LE(path.elements()[0].p3.x, path.elements()[1].p3.x + 1e-9) << radius << continuous;
        EXPECT_EQ(path.elements().back().verb, Path::Verb::close);
      }
    }
  }
  // A circular corner passes through the middle of its arc, a continuous one nearer to it.
  for (const bool continuous : {false, true}) {
    Path path;
    path.addRoundedRect({0, 0, 100, 100}, 20, continuous);
    const Path::Element& bend = path.elements()[2];
    const Point from = path.elements()[1].p3;
    const Point middle{(from.x + 3 * bend.p1.x + 3 * bend.p2.x + bend.p3.x) / 8,
                       (from.y + 3 * bend.p1.y + 3 * bend.p2.y + bend.p3.y) / 8};
    const double distance = std::hypot(middle.x - 80, middle.y - 20);
    EXPECT_NEAR(distance, 20, continuous ? 1.5 : 0.02);
  }
}

TEST(Paths, arcsKeepTheirDistanceWhateverTheSweep) {
  for (const double sweep : {0.1, 1.5, 3.0, -2.0, 2 * std::numbers::pi, 100.0, -100.0}) {
    Path path;
    path.addArc({50, 50}, 30, 0.3, 0.3 + sweep);
    Point from = path.elements()[0].p3;
    for (std::size_t i = 1; i < path.elements().size(); ++i) {
      const Path::Element& e = path.elements()[i];
      for (const double t : {0.25, 0.5, 1.0}) {
        const double s = 1 - t;
        const Point p{s * s * s * from.x + 3 * s * s * t * e.p1.x + 3 * s * t * t * e.p2.x +
                          t * t * t * e.p3.x,
                      s * s * s * from.y + 3 * s * s * t * e.p1.y + 3 * s * t * t * e.p2.y +
                          t * t * t * e.p3.y};
        EXPECT_NEAR(std::hypot(p.x - 50, p.y - 50), 30, 0.05) << sweep;
      }
      from = e.p3;
    }
    const double whole = std::clamp(sweep, -2 * std::numbers::pi, 2 * std::numbers::pi);
    EXPECT_NEAR(last(path).x, 50 + 30 * std::cos(0.3 + whole), 1e-9);
    EXPECT_NEAR(last(path).y, 50 + 30 * std::sin(0.3 + whole), 1e-9);
  }
}

TEST(Paths, leaveOutWhatIsNotFiniteAndMoveAsAWhole) {
  Path path;
  path.close().lineTo({kNan, 1}).moveTo({1, kInfinity}).curveTo({0, 0}, {kNan, 0}, {1, 1});
  path.addArc({0, kNan}, 1, 0, 1).addArc({0, 0}, kInfinity, 0, 1);
  EXPECT_TRUE(path.empty());
  EXPECT_TRUE(path.bounds().empty());
  path.lineTo({2, 3}).lineTo({4, 9});
  EXPECT_EQ(path.elements()[0].verb, Path::Verb::move) << "a line from nowhere begins there";
  EXPECT_EQ(describe(path.transformed(2, 0.5, {10, 0}).bounds()), "14,1.5 4x3");
  Path twice = path;
  twice.append(twice);
  EXPECT_EQ(twice.elements().size(), 4u);
  EXPECT_EQ(twice.bounds(), path.bounds());
  for (const double bad : {kNan, kInfinity}) {
    Path rect;
    rect.addRect({0, 0, bad, 5});
    rect.addEllipse({0, bad, 5, 5});
    rect.addRoundedRect({0, 0, 10, bad}, 4, true);
    for (const Path::Element& e : rect.elements()) {
      EXPECT_TRUE(std::isfinite(e.p3.x) && std::isfinite(e.p3.y));
    }
  }
}

TEST(Shapes, outlinesFillTheirRectangle) {
  const Rect room{10, 20, 30, 50};
  const ShapeView filling[] = {Rectangle(), RoundedRectangle(7), RoundedRectangle(1e9), Capsule(),
                               Capsule(CornerStyle::circular)};
  for (const ShapeView& shape : filling) EXPECT_EQ(shape.outline(room).bounds(), room);
  EXPECT_EQ(Circle().outline(room).bounds(), (Rect{10, 30, 30, 30}));
  const PathShape free(Path().addRect({1, 2, 3, 4}));
  EXPECT_EQ(free.outline(room).bounds(), (Rect{11, 22, 3, 4}));
  EXPECT_EQ(PathShape(Path().addRect({1, 2, 3, 4})), free) << "by what it is, not where it is kept";
  EXPECT_FALSE(PathShape(Path()) == free);
}

// --- Colours and fonts ---

// The relative luminance of the web's guidelines.
double luminance(const RGBA& c) {
  const auto linear = [](float v) {
    const auto x = static_cast<double>(v);
    return x <= 0.04045 ? x / 12.92 : std::pow((x + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(c.red) + 0.7152 * linear(c.green) + 0.0722 * linear(c.blue);
}
RGBA over(const RGBA& top, const RGBA& under) {
  const auto mix = [&](float a, float b) { return a * top.alpha + b * (1 - top.alpha); };
  return {mix(top.red, under.red), mix(top.green, under.green), mix(top.blue, under.blue), 1};
}

TEST(Colors, textsAndTheAccentCanBeReadInBothSchemes) {
  for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
    const RGBA window = Color::background().resolve(scheme);
    EXPECT_EQ(window.alpha, 1);
    const auto contrast = [&](const Color& color) {
      const double a = luminance(over(color.resolve(scheme), window)), b = luminance(window);
      return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
    };
    EXPECT_GE(contrast(Color::primary()), 7);
    EXPECT_GE(contrast(Color::secondary()), 4.5);
    EXPECT_GE(contrast(Color::accent()), 3);
  }
}

TEST(Colors, opacityMultipliesAndBadComponentsAreClamped) {
  EXPECT_EQ(Color::rgb(2, -1, kNan, kInfinity).resolve(ColorScheme::dark), (RGBA{1, 0, 0, 1}));
  EXPECT_EQ(Color::hex(0x336699), Color::rgb(0x33 / 255.0, 0x66 / 255.0, 0x99 / 255.0));
  EXPECT_EQ(Color::hex(0xff336699), Color::hex(0x336699)) << "what is above the colour is left out";
  const Color dim = Color::hex(0x336699).opacity(0.5).opacity(0.5);
  EXPECT_FLOAT_EQ(dim.resolve(ColorScheme::light).alpha, 0.25F);
  EXPECT_EQ(dim.description(), "#336699 0.25");
  EXPECT_EQ(Color::red().opacity(kNan).resolve(ColorScheme::light).alpha, 0);
  EXPECT_EQ(Color::red().opacity(7), Color::red());
  const float whole = Color::primary().resolve(ColorScheme::light).alpha;
  EXPECT_FLOAT_EQ(Color::primary().opacity(0.5).resolve(ColorScheme::light).alpha, whole / 2);
  EXPECT_FALSE(Color::black() == Color::hex(0)) << "a name is not the colour that it has today";
  const LinearGradient one = LinearGradient::of({Color::red()});
  ASSERT_EQ(one.stops.size(), 1u);
  EXPECT_EQ(one.stops[0].location, 0);
  EXPECT_EQ(LinearGradient::of({Color::red(), Color::blue(), Color::red()}).stops[1].location, 0.5);
  EXPECT_TRUE(LinearGradient::of({}).stops.empty());
}

TEST(Fonts, badSizesAreThoseOfTheBodyAndTraitsAddUp) {
  const HeadlessTextMeasurer measurer;
  const double body = Font().resolve(measurer).size;
  for (const double bad : {0.0, -3.0, kNan, kInfinity}) {
    EXPECT_EQ(Font::system(bad).resolve(measurer).size, body);
    EXPECT_EQ(Font::custom("DejaVu Sans", bad).resolve(measurer).family, "DejaVu Sans");
  }
  const FontSpec font = Font::custom("Mono", 9).bold().italic().monospaced().resolve(measurer);
  EXPECT_EQ(describe(font), "Mono 9 bold italic monospaced");
  EXPECT_EQ(Font::custom("Mono", 9), Font::custom(std::string("Mo") + "no", 9));
  EXPECT_FALSE(Font::custom("Mono", 9) == Font::custom("mono", 9));
  EXPECT_EQ(Font::caption().weight(Font::Weight::semibold).resolve(measurer).weight, 600);
  EXPECT_GT(Font::largeTitle().resolve(measurer).size, Font::title().resolve(measurer).size);
}

TEST(Recording, scalesAboutAPointAndClipsWithinEachOther) {
  RecordingCanvas canvas({100, 100});
  const FillRect square{{0, 0, 10, 10}, Color::red()};
  canvas.pushScale(2, 2, {10, 10});
  canvas.pushClip(Rect{0, 0, 15, 40});
  canvas.pushScale(0.5, 0.5, {0, 0});
  canvas.draw(square, {.origin = {20, 20}});
  canvas.pop();
  canvas.pushOpacity(0.5, {});
  canvas.draw(square, {.origin = {10, 10}, .opacity = 0.5});
  canvas.pop();
  canvas.pop();
  canvas.pop();
  canvas.pop();  // one more than was pushed
  canvas.draw(square, {.origin = {95, 95}});
  const auto& all = canvas.commands();
  EXPECT_EQ(describe(all[0].bounds), "10,10 10x10");
  EXPECT_EQ(describe(all[1].bounds), "10,10 20x20");
  EXPECT_EQ(describe(all[1].visible), "10,10 10x20");
  EXPECT_EQ(all[1].opacity, 0.25);
  EXPECT_EQ(describe(all[2].visible), "95,95 5x5");
}

}  // namespace
}  // namespace zq
