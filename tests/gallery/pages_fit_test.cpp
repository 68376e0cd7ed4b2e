// ZQSwiftUI, MIT licence; see LICENSE.
// Every page at texts of twice the size, and from right to left: no text is cut off, and what is
// pressed is large enough for a finger or a hand that is not steady.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <apps/gallery/gallery_page.hpp>
#include <set>
#include <tests/toolkit/fitting.hpp>
#include <zqswiftui/platform/headless/harness.hpp>

namespace zq::gallery {
namespace {

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

INSTANTIATE_TEST_SUITE_P(All, PagesFit, testing::Range(std::size_t{0}, galleryPages().size()),
                         [](const auto& place) {
                           std::string name = pageSlug(galleryPages()[place.param].title);
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

}  // namespace
}  // namespace zq::gallery
