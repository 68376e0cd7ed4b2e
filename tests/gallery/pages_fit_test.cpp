// ZQSwiftUI, MIT licence; see LICENSE.
// Every page at texts of twice the size, and from right to left: no text is cut off, and what is
// pressed is large enough for a finger or a hand that is not steady.
#include <gtest/gtest.h>

#include <algorithm>
#include <apps/gallery/gallery_page.hpp>
#include <cmath>
#include <set>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/zqswiftui.hpp>

namespace zq::gallery {
namespace {

constexpr double kPageWidth = 900;
constexpr double kMoreRoom = 1000;  // as a page that scrolls has
constexpr double kRounding = 0.5;
constexpr double kLeastTarget = 24;  // points, WCAG 2.2, success criterion 2.5.8

// A page with all of its height, so that it need not scroll.
class PagesFit : public testing::TestWithParam<std::size_t> {
 protected:
  void show(const AppearanceValues& appearance) {
    screen_.emplace(galleryPages()[GetParam()].content(), Size{kPageWidth, 100});
    screen_->setAppearance(appearance);
    const Size wanted = screen_->host().sizeThatFits({kPageWidth, std::nullopt});
    screen_->resize({kPageWidth, wanted.height + kMoreRoom});
  }
  Harness& screen() { return *screen_; }

 private:
  std::optional<Harness> screen_;
};

void collectElements(const AccessibilityNode& node, bool scrolls,
                     std::vector<AccessibilityNode>& targets, std::vector<Rect>& scrolled) {
  scrolls = scrolls || node.role == Role::scrollArea || node.role == Role::textField;
  if (scrolls) scrolled.push_back(node.bounds);
  if (node.pressable) targets.push_back(node);
  for (const AccessibilityNode& child : node.children) {
    collectElements(child, scrolls, targets, scrolled);
  }
}

bool isWithin(const Rect& inner, const Rect& outer) {
  return inner.x >= outer.x - kRounding && inner.y >= outer.y - kRounding &&
         inner.maxX() <= outer.maxX() + kRounding && inner.maxY() <= outer.maxY() + kRounding;
}

// Why not all of a text can be read; empty where it can.
std::string faultOf(const DrawnCommand& drawn) {
  const auto* text = std::get_if<DrawText>(&drawn.command);
  if (!text || drawn.opacity <= 0) return {};
  if (!isWithin(drawn.bounds, drawn.visible)) {
    return "is clipped to " + zq::describe(drawn.visible);
  }
  const TextSize wanted = Platform::current().textMeasurer().wrapped(
      text->content->text, text->content->font, text->rect.width + kRounding, 0);
  const bool fits = wanted.width <= text->rect.width + kRounding &&
                    wanted.height <= text->rect.height + kRounding;
  return fits ? "" : "wants " + zq::describe(Rect{0, 0, wanted.width, wanted.height});
}

TEST_P(PagesFit, showEachTextWholeAtTwiceTheSizeAndMirrored) {
  std::set<std::string> shortened;  // at the usual size: on purpose
  for (const AppearanceValues& appearance :
       {AppearanceValues{}, AppearanceValues{.textScale = 2},
        AppearanceValues{.layoutDirection = LayoutDirection::rightToLeft, .textScale = 2}}) {
    show(appearance);
    std::vector<AccessibilityNode> targets;
    std::vector<Rect> scrolled;  // what scrolls may begin and end anywhere
    collectElements(screen().host().accessibilityTree(), false, targets, scrolled);
    for (const DrawnCommand& drawn : screen().drawn()) {
      const std::string fault = faultOf(drawn);
      const auto around = [&](const Rect& rect) { return rect.intersects(drawn.bounds); };
      if (fault.empty() || std::any_of(scrolled.begin(), scrolled.end(), around)) continue;
      const auto& text = std::get<DrawText>(drawn.command);
      const bool first = appearance == AppearanceValues{};
      if (first && text.maxLines > 0) shortened.insert(text.content->text);
      EXPECT_TRUE(shortened.contains(text.content->text))
          << zq::describe(drawn.command, drawn.state.origin) << ' ' << fault << ", texts at "
          << appearance.textScale;
    }
  }
}

double distanceTo(const Rect& rect, Point p) {
  const double dx = std::max({rect.x - p.x, p.x - rect.maxX(), 0.0});
  const double dy = std::max({rect.y - p.y, p.y - rect.maxY(), 0.0});
  return std::hypot(dx, dy);
}

bool isSmall(const Rect& target) {
  return std::min(target.width, target.height) < kLeastTarget;
}

// As the criterion says: a smaller target stands alone. A circle of that width around its middle
// meets no other target, nor the circle of another small one.
TEST_P(PagesFit, haveTargetsThatAreLargeEnoughOrStandAlone) {
  show({});
  std::vector<AccessibilityNode> targets;
  std::vector<Rect> scrolled;
  collectElements(screen().host().accessibilityTree(), false, targets, scrolled);
  for (const AccessibilityNode& target : targets) {
    if (!isSmall(target.bounds)) continue;
    const Point middle{target.bounds.midX(), target.bounds.midY()};
    for (const AccessibilityNode& other : targets) {
      if (&other == &target || isWithin(target.bounds, other.bounds)) continue;
      const Rect& o = other.bounds;
      const Rect place = isSmall(o) ? Rect{o.midX(), o.midY(), 0, 0} : o;
      EXPECT_GE(distanceTo(place, middle), isSmall(o) ? kLeastTarget : kLeastTarget / 2)
          << target.name << ' ' << zq::describe(target.bounds) << " beside " << other.name << ' '
          << zq::describe(o);
    }
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
