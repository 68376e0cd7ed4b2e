// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <cmath>
#include <zqswiftui/layout/zq_canvas_range_rect_view.hpp>
#include <zqswiftui/layout/zq_canvas_rect_drawing_view.hpp>
#include <zqswiftui/layout/zq_draggable_rect.hpp>
#include <zqswiftui/platform/base/number_text.hpp>

namespace zq::gallery {
namespace {

// Ridges in the evening sun, the far ones in haze.
ZQImage evening() {
  constexpr int kWidth = 640, kHeight = 360, kRidges = 5;
  Pixels pixels{kWidth, kHeight, {}};
  const auto put = [&](double red, double green, double blue) {
    for (const double part : {red, green, blue, 255.0}) {
      pixels.rgba.push_back(
          static_cast<std::uint8_t>(std::clamp(part, 0.0, 255.0)));
    }
  };
  for (int i = 0; i < kWidth * kHeight; ++i) {
    const int row = i / kWidth;
    const double x = i % kWidth / double{kWidth}, y = row / double{kHeight};
    const double far = std::hypot((x - 0.68) * 16 / 9, y - 0.46);
    const double glow = std::exp(-5 * far), sun = far < 0.07 ? 80 : 0;
    int ridge = 0;
    while (ridge < kRidges &&
           y > 0.5 + 0.1 * ridge +
                   0.05 * std::sin(x * (6 + ridge) + 2 * ridge) +
                   0.018 * std::sin(x * (23 + 7 * ridge))) {
      ++ridge;
    }
    const double near = ridge / double{kRidges};
    if (ridge == 0) {
      put(46 + 170 * y + 150 * glow + sun,
          60 + 110 * y + 120 * glow + 0.5 * sun,
          118 + 30 * y + 40 * glow + 0.3 * sun);
    } else {
      put(150 - 132 * near + 50 * glow, 104 - 80 * near + 30 * glow,
          138 - 92 * near + 8 * glow);
    }
  }
  return *ZQImage::fromPixels(std::move(pixels));
}

const ZQImage& picture() {
  static const ZQImage kept = evening();
  return kept;
}

// [code]
using Bound = ZQCanvasRectDrawingView::Bound;

// The picture, and in its whole size what is drawn on it.
View canvas(View overlay, double width = 464) {
  return Image(picture())
      .resizable(ContentMode::fill)
      .frame(width, width * 9 / 16)
      .clipShape(RoundedRectangle(8))
      .overlay(std::move(overlay));
}

View number(const std::string& name, const std::string& value) {
  return sample(name, Text(value))
      .frame({.width = 64,
          .alignment = Alignment::leading(),
          .growsWithText = true});
}

std::vector<View> numbers(const Rect& rect, int decimals) {
  return {number("x", spokenNumber(rect.x, decimals)),
      number("y", spokenNumber(rect.y, decimals)),
      number("width", spokenNumber(rect.width, decimals)),
      number("height", spokenNumber(rect.height, decimals))};
}

View column(std::vector<View> all) {
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 12},
      std::move(all));
}

struct Crop {
  View body(Context& context) const {
    auto rect = context.state(Rect{1010, 300, 600, 380});
    auto bound = context.state(Bound::none);
    auto small = context.state(false);
    const auto choice = [&](const std::string& title,
                            const std::string& symbol, Bound value) {
      return Toggle(title, symbol,
          bound.binding().map<bool>(
              [value](const Bound& now) { return now == value; },
              [value](bool) { return value; }));
    };
    return column({
        samples({choice("Free", "rectangle", Bound::none),
            choice("Full width", "arrow.right", Bound::width),
            choice("Full height", "arrow.down", Bound::height),
            PushButton(*small ? "Zoom in" : "Zoom out",
                [small] { small.set(!*small); })}),
        canvas(ZQCanvasRectDrawingView({.rect = rect.binding(),
                   .targetSize = Size{1920, 1080},
                   .bound = *bound,
                   .color = Color::yellow()}),
            *small ? 304 : 464),
        samples(numbers(*rect, 0)),
    });
  }
};

struct Corners {
  View body(Context& context) const {
    auto rect = context.state(Rect{0.1, 0.5, 0.4, 0.35});
    auto times = context.state(0);
    std::vector<View> shown = numbers(*rect, 3);
    shown.push_back(number("changes", std::to_string(*times)));
    return column({
        canvas(ZQDraggableRect({.rect = rect.binding(),
            .rectColor = Color::white(),
            .valueChangedCallback =
                [times](const Rect&) { times.set(*times + 1); }})),
        samples(std::move(shown)),
    });
  }
};

struct Range {
  View body(Context& context) const {
    auto range = context.state(ZQTimeRange{18, 41});
    constexpr int kBars = 116;
    std::vector<View> bars;
    for (int i = 0; i < kBars; ++i) {
      const double second = 90.0 * i / kBars;
      const double loud =
          std::abs(std::sin(i * 0.31) * std::sin(i * 0.047 + 1)) * 40 + 4;
      const bool in = second >= range->start && second < range->end;
      bars.push_back(
          Capsule()
              .fill(in ? Color::orange() : Color::primary().opacity(0.25))
              .frame(2, loud));
    }
    return column({
        HStack({.spacing = 2}, std::move(bars))
            .frame(464, 56)
            .background(
                RoundedRectangle(6).fill(Color::primary().opacity(0.05)))
            .overlay(ZQCanvasRangeRectView(
                range.binding(), {0, 90}, Color::orange())),
        samples({number("from", spokenNumber(range->start, 1) + " s"),
            number("to", spokenNumber(range->end, 1) + " s")}),
    });
  }
};

struct CanvasRects {
  View body(Context&) const {
    return cards({
        card("Draw a rectangle on a picture of 1920 by 1080", Crop()),
        card("Move its corners, in fractions of the picture", Corners()),
        card("Mark a part of ninety seconds", Range()),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::canvas_rects() {
  return page<CanvasRects>("Layout", "Canvas rectangles",
      "Rectangles drawn and dragged on a picture, by hand or with the "
      "arrow "
      "keys.");
}

}  // namespace zq::gallery
