// ZQSwiftUI, MIT licence; see LICENSE.
// Every page as a user meets it: what can be pressed has a name and is reached by the keyboard,
// every scheme and direction can be shown, and a page that stands still asks for nothing.
#include <gtest/gtest.h>

#include <apps/gallery/gallery_page.hpp>
#include <set>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/zqswiftui.hpp>

namespace zq::gallery {
namespace {

constexpr Size kTallWindow{900, 4000};

View shown(const GalleryPage& page) {
  return page.content();
}

void checkNames(const AccessibilityNode& node, std::set<std::uint64_t>& stops) {
  const bool control = node.pressable || node.role == Role::textField;
  EXPECT_FALSE(control && node.name.empty())
      << "without a name, at " << node.bounds.x << "," << node.bounds.y;
  if (node.focusable) stops.insert(node.id);
  for (const AccessibilityNode& child : node.children) checkNames(child, stops);
}

class Pages : public testing::TestWithParam<std::size_t> {
 protected:
  const GalleryPage& page() const { return galleryPages()[GetParam()]; }
};

TEST_P(Pages, nameWhatCanBePressedAndLetTheKeyboardReachIt) {
  Harness screen(shown(page()), kTallWindow);
  std::set<std::uint64_t> stops;
  checkNames(screen.host().accessibilityTree(), stops);
  std::set<std::uint64_t> reached;
  for (std::size_t i = 0; i <= stops.size() && screen.tab(); ++i) {
    reached.insert(screen.focused().id);
  }
  EXPECT_EQ(reached, stops);
}

TEST_P(Pages, surviveEveryPressInBothSchemesAndDirections) {
  for (const bool other : {false, true}) {
    Harness screen(shown(page()), kTallWindow);
    screen.setAppearance(
        {.colorScheme = other ? ColorScheme::dark : ColorScheme::light,
         .layoutDirection = other ? LayoutDirection::rightToLeft : LayoutDirection::leftToRight,
         .reducedMotion = other});
    for (const Role role : {Role::button, Role::toggle}) {
      for (std::size_t i = 0; i < screen.all(role).size(); ++i) {
        const Element control = screen.all(role)[i];
        if (control.enabled) screen.host().accessibilityPress(control.id);
        screen.settle();
        screen.key(Key::escape);  // whatever bubble came up
      }
    }
    screen.advance(1);
    EXPECT_FALSE(screen.drawn().empty());
  }
}

TEST_P(Pages, fitTheNarrowestAndTheEmptyWindow) {
  Harness screen(shown(page()), {320, 480});
  for (const Size size : {Size{1, 1}, Size{0, 0}, Size{320, 480}}) screen.resize(size);
  EXPECT_FALSE(screen.drawn().empty());
}

TEST_P(Pages, showTheCodeThatTheyAreMadeOf) {
  EXPECT_NE(page().code.find("View body(Context&"), std::string::npos);
  EXPECT_EQ(page().code.find("#include"), std::string::npos);
  EXPECT_FALSE(page().summary.empty());
}

INSTANTIATE_TEST_SUITE_P(All, Pages, testing::Range(std::size_t{0}, galleryPages().size()),
                         [](const auto& place) {
                           std::string name;
                           for (const char c : galleryPages()[place.param].title) {
                             if (std::isalnum(static_cast<unsigned char>(c)) != 0) name += c;
                           }
                           return name;
                         });

TEST(GalleryPages, areFoundByTitleAndBySlugAndHaveOneNameEach) {
  std::set<std::string> slugs;
  for (const GalleryPage& page : galleryPages()) {
    EXPECT_TRUE(slugs.insert(pageSlug(page.title)).second) << page.title;
    EXPECT_EQ(findPage(page.title), &page);
    EXPECT_EQ(findPage(pageSlug(page.title)), &page);
  }
  EXPECT_EQ(findPage("no such page"), nullptr);
}

}  // namespace
}  // namespace zq::gallery
