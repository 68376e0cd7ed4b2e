// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <algorithm>
#include <cctype>
#include <cmath>
#include <string>
#include <vector>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/services/platform.hpp>

// What of a window cannot be read or hit: for pages and panes as a whole.
namespace zq::fitting {

constexpr double kRounding = 0.5;

inline bool isWithin(const Rect& inner, const Rect& outer) {
  return inner.x >= outer.x - kRounding && inner.y >= outer.y - kRounding &&
         inner.maxX() <= outer.maxX() + kRounding && inner.maxY() <= outer.maxY() + kRounding;
}

struct Placed {
  AccessibilityNode node;
  Rect within;  // of what scrolls around it, and of the window
  bool scrolled = false;
  Point middle() const { return {node.bounds.midX(), node.bounds.midY()}; }
  double distance(Point p) const { return std::hypot(p.x - middle().x, p.y - middle().y); }
  bool small() const {
    return std::min(node.bounds.width, node.bounds.height) < kLeastTarget - kRounding;
  }
};

inline void collect(const AccessibilityNode& node, Placed place, std::vector<Placed>& all) {
  place.scrolled = place.scrolled || node.role == Role::scrollArea;
  place.node = node;
  all.push_back(place);
  if (node.role == Role::scrollArea) place.within = intersection(place.within, node.bounds);
  for (const AccessibilityNode& child : node.children) collect(child, place, all);
}

inline std::vector<Placed> elementsOf(Harness& screen) {
  std::vector<Placed> all;
  const AccessibilityNode root = screen.host().accessibilityTree();
  collect(root, {root, root.bounds}, all);
  return all;
}

// The longest run of letters and digits, which no line may break.
inline double longestWord(const DrawText& text) {
  const auto parts = [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x80 && std::isalnum(byte) == 0;
  };
  double longest = 0;
  std::string word;
  for (const char c : text.content->text + ' ') {
    if (!parts(c)) {
      word += c;
      continue;
    }
    longest =
        std::max(longest, Platform::current().textMeasurer().lineWidth(word, text.content->font));
    word.clear();
  }
  return longest;
}

struct TextFault {
  std::string text;
  bool shortened = false;  // it has a number of lines, and tells with dots that it goes on
  std::string what;
};

// The texts that do not show whole. What scrolls may begin and end anywhere, and fields move what
// is written in them.
inline std::vector<TextFault> textFaults(Harness& screen) {
  const std::vector<Placed> all = elementsOf(screen);
  const auto anyAround = [&](const Rect& text, auto kind) {
    return std::any_of(all.begin(), all.end(),
                       [&](const Placed& p) { return kind(p) && p.node.bounds.intersects(text); });
  };
  const auto field = [](const Placed& p) { return p.node.role == Role::textField; };
  const auto scrolled = [](const Placed& p) { return p.scrolled; };
  std::vector<TextFault> faults;
  for (const DrawnCommand& drawn : screen.drawn()) {
    const auto* text = std::get_if<DrawText>(&drawn.command);
    if (!text || drawn.opacity <= 0 || anyAround(drawn.bounds, field)) continue;
    std::string what;
    if (!isWithin(drawn.bounds, drawn.visible) && !anyAround(drawn.bounds, scrolled)) {
      what = "is clipped to " + zq::describe(drawn.visible);
    }
    const TextSize wanted = Platform::current().textMeasurer().wrapped(
        text->content->text, text->content->font, text->rect.width + kRounding, 0);
    if (wanted.width > text->rect.width + kRounding ||
        wanted.height > text->rect.height + kRounding) {
      what = "wants " + zq::describe(Rect{0, 0, wanted.width, wanted.height}) + " and has " +
             zq::describe(drawn.bounds);
    }
    if (!text->singleLine && longestWord(*text) > text->rect.width + kRounding) {
      what = "is broken within a word in " + zq::describe(drawn.bounds);
    }
    if (!what.empty()) faults.push_back({text->content->text, text->maxLines > 0, what});
  }
  return faults;
}

// How near another target comes to the middle of a small one: its middle where it is small as well,
// else its edge.
inline double distanceOf(const Placed& other, Point middle) {
  if (other.small()) return other.distance(middle);
  const Rect& o = other.node.bounds;
  return std::hypot(std::max({o.x - middle.x, middle.x - o.maxX(), 0.0}),
                    std::max({o.y - middle.y, middle.y - o.maxY(), 0.0}));
}

// The small targets that others crowd: as the criterion says, a circle of kLeastTarget around the
// middle of each meets no other target, nor the circle of another small one.
inline std::vector<std::string> crowdedTargets(Harness& screen) {
  const std::vector<Placed> all = elementsOf(screen);
  std::vector<std::string> crowded;
  for (const Placed& target : all) {
    if (!target.node.pressable || !target.small()) continue;
    for (const Placed& other : all) {
      if (!other.node.pressable || isWithin(target.node.bounds, other.node.bounds)) continue;
      const double least = other.small() ? kLeastTarget : kLeastTarget / 2;
      if (distanceOf(other, target.middle()) >= least) continue;
      crowded.push_back(target.node.name + ' ' + zq::describe(target.node.bounds) + " beside " +
                        other.node.name + ' ' + zq::describe(other.node.bounds));
    }
  }
  return crowded;
}

// Where a press 11 points from the middle of a small target misses it, and meets neither another
// one exactly nor one that is nearer.
inline std::vector<std::string> targetFaults(Harness& screen) {
  constexpr double kAside = kLeastTarget / 2 - 1;
  const std::vector<Placed> all = elementsOf(screen);
  const auto takesPresses = [](const AccessibilityNode& n) {
    return n.pressable || n.focusable || n.adjustable || n.role == Role::textField;
  };
  const auto taken = [&](const Placed& target, Point p) {
    const std::uint64_t pressed = screen.host().pressTarget(p);
    return pressed == target.node.id ||
           std::any_of(all.begin(), all.end(), [&](const Placed& other) {
             if (&other == &target || !takesPresses(other.node)) return false;
             const bool met =
                 other.node.bounds.contains(p) && !isWithin(target.node.bounds, other.node.bounds);
             const bool nearer = other.small() && other.distance(p) <= target.distance(p);
             const bool around = other.node.pressable && other.node.bounds.contains(p);
             return met || around || (nearer && pressed == other.node.id);
           });
  };
  std::vector<std::string> faults;
  for (const Placed& target : all) {
    if (!target.node.pressable || !target.small()) continue;
    const Point at = target.middle();
    for (const Point p : {Point{at.x - kAside, at.y}, Point{at.x + kAside, at.y},
                          Point{at.x, at.y - kAside}, Point{at.x, at.y + kAside}}) {
      if (!target.within.contains(p) || taken(target, p)) continue;
      faults.push_back(target.node.name + ' ' + zq::describe(target.node.bounds) + " missed at " +
                       zq::describe(Rect{p.x, p.y, 0, 0}));
    }
  }
  return faults;
}

}  // namespace zq::fitting
