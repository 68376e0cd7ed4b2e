// ZQSwiftUI, MIT licence; see LICENSE.
// The gallery's own window: pages are searched, gone through, shown in other ways and copied.
#include <gtest/gtest.h>

#include <apps/gallery/gallery_window.hpp>
#include <apps/gallery/options.hpp>
#include <apps/gallery/sidebar.hpp>
#include <tests/toolkit/contrast.hpp>
#include <zqswiftui/platform/headless/harness.hpp>

namespace zq::gallery {
namespace {

constexpr Size kNarrow{900, 700};

// The title of the page is the only text in that font that is drawn.
std::string shownTitle(Harness& window) {
  double largest = 0;
  std::string title;
  for (const Element& text : window.texts()) {
    if (text.bounds.y > 60 || text.font.size <= largest) continue;
    largest = text.font.size;
    title = text.text;
  }
  return title;
}

TEST(GalleryWindow, searchesPagesByTitleSummaryAndGroup) {
  Harness window(GalleryWindow{}, kNarrow);
  const std::string first = shownTitle(window);
  EXPECT_TRUE(window.host().key({.text = "f", .modifiers = {.control = true}}));
  window.settle();
  EXPECT_EQ(window.focused().name, "Search pages");

  window.type("SCROLL view");
  EXPECT_TRUE(window.button("ScrollView"));
  EXPECT_FALSE(window.button("Text"));
  EXPECT_EQ(shownTitle(window), first);  // until it is asked for
  window.key(Key::enter);
  EXPECT_NE(shownTitle(window), first);
  EXPECT_TRUE(window.key(Key::escape));
  EXPECT_EQ(window.focused().value, "");
  EXPECT_TRUE(window.button("Text"));
  EXPECT_FALSE(window.key(Key::escape));

  window.type("no page at all");
  EXPECT_TRUE(window.findText("No page has these words."));
  EXPECT_FALSE(pagesFound(galleryPages().front().group).empty());
}

TEST(GalleryWindow, upAndDownGoThroughThePagesFoundAndKeepThemInSight) {
  Harness window(GalleryWindow{}, kNarrow);
  const auto& pages = galleryPages();
  EXPECT_FALSE(window.key(Key::up));
  for (std::size_t i = 1; i < pages.size(); ++i) window.key(Key::down);
  EXPECT_EQ(shownTitle(window), pages.back().title);
  EXPECT_FALSE(window.findId(pageSlug(pages.back().title)).visible.empty());
  EXPECT_FALSE(window.key(Key::down));

  const std::vector<std::size_t> found = pagesFound("progress");
  ASSERT_GE(found.size(), 2U);
  window.click(window.find(Role::textField, "Search pages"));
  window.type("progress");
  window.key(Key::up);
  EXPECT_EQ(shownTitle(window), pages[found.back()].title);
  window.key(Key::up);
  EXPECT_EQ(shownTitle(window), pages[found[found.size() - 2]].title);
}

TEST(GalleryWindow, copiesTheCodeAndSaysSoForAMoment) {
  Harness window(GalleryWindow{3, {}}, kNarrow);
  window.click(window.button("Copy the code"));
  EXPECT_TRUE(window.findText("Copied"));
  std::string text;
  window.platform().pasteboard().readText(
      [&](std::optional<std::string> read) { text = read.value_or(""); });
  window.advance(3);
  EXPECT_EQ(text, galleryPages()[3].code);
  EXPECT_FALSE(window.findText("Copied"));
}

double heightOf(Harness& window, const std::string& text) {
  return window.findText(text).bounds.height;
}

TEST(GalleryWindow, showsAPageWithOtherTextsAndZoomAndInOtherDirections) {
  Harness window(GalleryWindow{}, kNarrow);
  const GalleryPage& page = galleryPages().front();
  std::string inPage;
  for (const Element& text : Harness(page.content(), kNarrow).texts()) {
    if (inPage.empty()) inPage = text.text;
  }
  const double before = heightOf(window, inPage);
  const auto choose = [&](const std::string& what, const std::string& value) {
    window.click(window.button("Appearance"));
    window.click(window.button(what));
    window.click(window.button(value));
    window.key(Key::escape);
    window.key(Key::escape);
  };
  choose("Text size of the page", "200 %");
  const double larger = heightOf(window, inPage);
  EXPECT_GT(larger, 1.5 * before);
  choose("Zoom of the page", "50 %");
  EXPECT_NEAR(heightOf(window, inPage), larger / 2, 0.01);

  const double x = window.findText(page.title).bounds.x;
  window.click(window.button("Appearance"));
  window.click(window.find(Role::toggle, "Mirrored"));
  window.advance(1);
  EXPECT_NE(window.findText(page.title).bounds.x, x);
  window.click(window.button("As the desktop"));
  EXPECT_EQ(window.findText(page.title).bounds.x, x);
  EXPECT_EQ(heightOf(window, inPage), before);
}

TEST(GalleryWindow, fitsNineHundredPointsAndLetsTheKeyboardReachTheHeader) {
  Harness window(GalleryWindow{}, kNarrow);
  for (const char* name : {"Page after", "Appearance", "Copy the code"}) {
    const Element found = window.button(name);
    ASSERT_TRUE(found) << name;
    EXPECT_LE(found.bounds.maxX(), kNarrow.width) << name;
    EXPECT_TRUE(found.focusable) << name;
  }
  EXPECT_EQ(window.find(Role::toggle, "Code").visible, window.find(Role::toggle, "Code").bounds);
}

TEST(GalleryWindow, writesCodeAndDrawsItsControlsSoThatTheyStandOut) {
  Harness window(GalleryWindow{}, {1400, 900});
  window.click(window.button("Text"));
  for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
    window.setAppearance({.colorScheme = scheme});
    contrasts::expectReadable(window, scheme);
  }
}

TEST(GalleryOptions, takeTheLooksOfPicturesWithinBounds) {
  const auto read = [](std::vector<std::string_view> arguments) { return readOptions(arguments); };
  const Result<Options> options = read({"--text-scale=2", "--right-to-left"});
  ASSERT_TRUE(options.ok());
  EXPECT_EQ(options.value().textScale, 2);
  EXPECT_TRUE(options.value().rightToLeft);
  for (const char* wrong : {"0.4", "5", "nan", "2x", ""}) {
    EXPECT_FALSE(read({"--text-scale", wrong}).ok()) << wrong;
  }
}

}  // namespace
}  // namespace zq::gallery
