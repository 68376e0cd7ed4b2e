// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <deque>
#include <mutex>
#include <zqswiftui/platform/toolkit/font.hpp>

namespace zq {
namespace {

constexpr std::array kStyleNames{"largeTitle", "title",   "title2",  "title3",
                                 "headline",   "body",    "callout", "subheadline",
                                 "footnote",   "caption", "caption2"};

// Family names live as long as the program, so that a Font stays a small plain value.
class Families {
 public:
  static Families& shared() {
    static Families families;
    return families;
  }
  int indexOf(std::string_view name) {
    const std::scoped_lock lock(mutex_);
    for (std::size_t i = 0; i < names_.size(); ++i) {
      if (names_[i] == name) return static_cast<int>(i);
    }
    names_.emplace_back(name);
    return static_cast<int>(names_.size()) - 1;
  }
  const std::string& name(int index) {
    const std::scoped_lock lock(mutex_);
    return names_[static_cast<std::size_t>(index)];
  }

 private:
  std::mutex mutex_;
  std::deque<std::string> names_{std::string()};
};

}  // namespace

Font Font::system(double size) {
  return custom({}, size);
}

Font Font::custom(std::string_view family, double size) {
  Font font;
  font.size_ = std::isfinite(size) && size > 0 ? size : 0;
  font.family_ = Families::shared().indexOf(family);
  return font;
}

Font Font::weight(Weight weight) const {
  Font font = *this;
  font.weight_ = static_cast<short>(weight);
  return font;
}

Font Font::italic() const {
  Font font = *this;
  font.italic_ = true;
  return font;
}

Font Font::monospaced() const {
  Font font = *this;
  font.monospaced_ = true;
  return font;
}

FontSpec Font::resolve(const TextMeasurer& measurer) const {
  FontSpec resolved = measurer.styleFont(style_);
  if (size_ > 0) resolved.size = size_;
  if (family_ != 0) resolved.family = Families::shared().name(family_);
  if (weight_ != 0) resolved.weight = weight_;
  resolved.italic = resolved.italic || italic_;
  resolved.monospaced = resolved.monospaced || monospaced_;
  return resolved;
}

double boundedTextScale(double scale) {
  constexpr double kLeast = 0.5, kMost = 4, kParts = 100;
  if (std::isnan(scale)) return 1;
  return std::round(std::clamp(scale, kLeast, kMost) * kParts) / kParts;
}

std::string Font::description() const {
  std::string text;
  if (size_ > 0) {
    std::array<char, 32> size{};
    std::snprintf(size.data(), size.size(), "%g", size_);
    text = (family_ != 0 ? Families::shared().name(family_) : std::string("system")) + ' ' +
           size.data();
  } else {
    text = kStyleNames[static_cast<std::size_t>(style_)];
  }
  if (weight_ >= 600) text += " bold";
  if (italic_) text += " italic";
  if (monospaced_) text += " monospaced";
  return text;
}

}  // namespace zq
