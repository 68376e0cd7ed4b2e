// ZQSwiftUI, MIT licence; see LICENSE.
// Every page at texts of twice the size, and from right to left: no text is cut off, and what is
// pressed is large enough for a finger or a hand that is not steady. What is written or drawn
// stands out in light and in dark.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <apps/gallery/gallery_page.hpp>
#include <set>
#include <tests/toolkit/contrast.hpp>
#include <tests/toolkit/fitting.hpp>
#include <zqswiftui/controls/hover_opacity.hpp>
#include <zqswiftui/platform/headless/harness.hpp>

namespace zq::gallery {
namespace {

// What stands out less than texts must, each for a reason of its own, and what is asked of it.
double askedOf(const std::string& page, const DrawnCommand& drawn) {
  constexpr double kLeastOfGraphics = 3;  // WCAG 2.2, success criterion 1.4.11
  const Color& ink = *contrasts::inkOf(drawn.command);
  const bool onLight = drawn.state.scheme == ColorScheme::light;
  const auto* symbol = std::get_if<DrawSymbol>(&drawn.command);
  const auto shows = [&](const char* name, const Color& color, double opacity) {
    return symbol && symbol->name == name && ink == color && drawn.opacity == opacity;
  };
  // A favourite's star is yellow, and a yellow that stands out from white is none.
  if (onLight && shows("star.fill", Color::yellow(), kRestingOpacity)) return 1.5;
  // Where a picture is to be loaded, the symbol is faint until the picture comes.
  if (shows("icloud.and.arrow.down", Color::primary(), 0.5)) return kLeastOfGraphics;
  // A symbol in a tint that its caller gives rests at three quarters of it, and is whole under the
  // pointer.
  const bool tinted = ink == Color::blue() || ink == Color::purple() || ink == Color::red();
  if (symbol && tinted && drawn.opacity == kRestingOpacity) return kLeastOfGraphics;
  // A ZQButton is white on what lets the window through: it is made for dark windows, and one
  // example shows it in a light one.
  const bool button = page == "ZQButton" && ink == Color::white().opacity(0.8);
  if (onLight && button) return 1.9;
  return contrasts::kLeastContrast;
}

constexpr double kPageWidth = 900;
constexpr double kBesideCode = 552;  // beside its code, in the window as large texts leave it

// A page with just the height that it asked for.
class PagesFit : public testing::TestWithParam<std::size_t> {
 protected:
  void show(const AppearanceValues& appearance, double width = kPageWidth) {
    screen_.emplace(galleryPages()[GetParam()].content(), Size{width, 100});
    screen_->setAppearance(appearance);
    const Size wanted = screen_->host().sizeThatFits({width, std::nullopt});
    EXPECT_LE(wanted.width, width + fitting::kRounding);  // a page scrolls up and down alone
    screen_->resize({width, wanted.height});
  }
  Harness& screen() { return *screen_; }

 private:
  std::optional<Harness> screen_;
};

TEST_P(PagesFit, showEachTextWholeAtTwiceTheSizeAndMirrored) {
  std::set<std::string> shortened;  // at the usual size: on purpose
  for (const AppearanceValues& appearance :
       {AppearanceValues{}, AppearanceValues{.textScale = 2},
        AppearanceValues{.layoutDirection = LayoutDirection::rightToLeft, .textScale = 2}}) {
    for (const double width : {kPageWidth, kBesideCode}) {
      show(appearance, width);
      for (const fitting::TextFault& fault : fitting::textFaults(screen())) {
        const bool first = appearance == AppearanceValues{};
        if (first && fault.shortened) shortened.insert(fault.text);
        EXPECT_TRUE(shortened.contains(fault.text))
            << fault.text << ' ' << fault.what << ", texts at " << appearance.textScale
            << " in a width of " << width;
      }
    }
  }
}

TEST_P(PagesFit, haveTargetsThatReactWhereAHandThatIsNotSteadyPresses) {
  for (const LayoutDirection direction :
       {LayoutDirection::leftToRight, LayoutDirection::rightToLeft}) {
    show({.layoutDirection = direction});
    EXPECT_THAT(fitting::targetFaults(screen()), testing::IsEmpty());
    EXPECT_THAT(fitting::crowdedTargets(screen()), testing::IsEmpty());
  }
}

TEST_P(PagesFit, writeAndDrawWhatStandsOut) {
  for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
    SCOPED_TRACE(scheme == ColorScheme::dark ? "dark" : "light");
    show({.colorScheme = scheme});
    contrasts::expectReadable(screen(), scheme, [&](const DrawnCommand& drawn) {
      return askedOf(galleryPages()[GetParam()].title, drawn);
    });
  }
}

INSTANTIATE_TEST_SUITE_P(All, PagesFit, testing::Range(std::size_t{0}, galleryPages().size()),
                         [](const auto& place) {
                           std::string name = pageSlug(galleryPages()[place.param].title);
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

}  // namespace
}  // namespace zq::gallery
