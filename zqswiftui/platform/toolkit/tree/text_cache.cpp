// ZQSwiftUI, MIT licence; see LICENSE.
#include <bit>
#include <cmath>
#include <functional>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/toolkit/tree/text_cache.hpp>

namespace zq {
namespace {

constexpr std::size_t kGeneration = 32768;
// A longer text is measured each time rather than kept.
constexpr std::size_t kLongest = 4096;

}  // namespace

int TextCache::fontNumber(const Font& font, double scale) {
  for (std::size_t i = 0; i < fonts_.size(); ++i) {
    if (fonts_[i].font == font && fonts_[i].scale == scale) return static_cast<int>(i);
  }
  fonts_.push_back(known(font, scale));
  return static_cast<int>(fonts_.size()) - 1;
}

TextCache::KnownFont TextCache::known(const Font& font, double scale) {
  const TextMeasurer& measurer = Platform::current().textMeasurer();
  FontSpec resolved = font.resolve(measurer);
  resolved.size *= scale;
  const FontMetrics metrics = measurer.metrics(resolved);
  return {font, scale, resolved, std::ceil(metrics.lineHeight), metrics.ascent};
}

void TextCache::forget() {
  young_.clear();
  old_.clear();
  for (KnownFont& font : fonts_) font = known(font.font, font.scale);
}

const TextCache::Entry* TextCache::find(const Map& map, std::size_t hash, std::string_view text,
                                        int font, double width, int maxLines) {
  const auto [begin, end] = map.equal_range(hash);
  for (auto it = begin; it != end; ++it) {
    const Entry& e = it->second;
    if (e.font == font && e.width == width && e.maxLines == maxLines && e.text == text) return &e;
  }
  return nullptr;
}

TextSize TextCache::measure(std::string_view text, int font, double width, int maxLines) {
  if (text.size() > kLongest) return compute(text, font, width, maxLines);
  const std::size_t hash = std::hash<std::string_view>()(text) ^
                           (static_cast<std::size_t>(font) * 0x9e3779b97f4a7c15u) ^
                           (std::bit_cast<std::uint64_t>(width) * 0xff51afd7ed558ccdu) ^
                           static_cast<std::size_t>(maxLines);
  if (const Entry* known = find(young_, hash, text, font, width, maxLines)) return known->size;
  TextSize size;
  if (const Entry* known = find(old_, hash, text, font, width, maxLines)) {
    size = known->size;
  } else {
    size = compute(text, font, width, maxLines);
  }
  if (young_.size() >= kGeneration) {
    old_ = std::move(young_);
    young_.clear();
  }
  young_.emplace(hash, Entry{std::string(text), width, font, maxLines, size});
  return size;
}

TextSize TextCache::compute(std::string_view text, int font, double width, int maxLines) {
  ++measured_;
  const KnownFont& known = fonts_[static_cast<std::size_t>(font)];
  const TextMeasurer& measurer = Platform::current().textMeasurer();
  if (std::isinf(width) && text.find('\n') == std::string_view::npos) {
    return {std::ceil(measurer.lineWidth(text, known.resolved)), known.lineHeight, 1};
  }
  return measurer.wrapped(text, known.resolved, width, maxLines);
}

}  // namespace zq
