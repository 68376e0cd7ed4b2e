// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>
#include <zqswiftui/platform/toolkit/display_list.hpp>
#include <zqswiftui/platform/toolkit/font.hpp>

namespace zq {

// Sizes of texts, each measured once for a font, a width and a number of lines. Bounded: when
// it is full, what was not asked for lately goes. Interface thread.
class TextCache {
 public:
  // The number of a font at a scale, the same for equal ones.
  int fontNumber(const Font& font, double scale = 1);
  const FontSpec& resolved(int fontNumber) const {
    return fonts_[static_cast<std::size_t>(fontNumber)].resolved;
  }
  double lineHeight(int fontNumber) const {
    return fonts_[static_cast<std::size_t>(fontNumber)].lineHeight;
  }
  double ascent(int fontNumber) const {
    return fonts_[static_cast<std::size_t>(fontNumber)].ascent;
  }

  // Wrapped to the width; infinity for lines that end at line feeds only.
  TextSize measure(std::string_view text, int fontNumber, double width, int maxLines);
  // Measures everything anew when it is asked for again; numbers of fonts stay.
  void forget();
  std::uint64_t measured() const { return measured_; }

 private:
  struct Entry {
    std::string text;
    double width;
    int font;
    int maxLines;
    TextSize size;
  };
  struct KnownFont {
    Font font;
    double scale;
    FontSpec resolved;
    double lineHeight;
    double ascent;
  };
  static KnownFont known(const Font& font, double scale);
  using Map = std::unordered_multimap<std::size_t, Entry>;
  TextSize compute(std::string_view text, int font, double width, int maxLines);
  static const Entry* find(const Map& map, std::size_t hash, std::string_view text, int font,
                           double width, int maxLines);

  std::vector<KnownFont> fonts_;
  Map young_;
  Map old_;
  std::uint64_t measured_ = 0;
};

}  // namespace zq
