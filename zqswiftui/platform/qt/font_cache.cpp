// ZQSwiftUI, MIT licence; see LICENSE.
#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <functional>
#include <unordered_map>
#include <zqswiftui/platform/qt/font_cache.hpp>

namespace zq::qt {
namespace {

// Animated sizes could fill the cache without end.
constexpr std::size_t kMaxFonts = 256;
constexpr double kMaxSize = 4096;

struct SpecHash {
  std::size_t operator()(const FontSpec& spec) const {
    const std::size_t rest = std::hash<double>{}(spec.size) * 31 +
                             static_cast<std::size_t>(spec.weight) * 4 + (spec.italic ? 2U : 0U) +
                             (spec.monospaced ? 1U : 0U);
    return std::hash<std::string>{}(spec.family) ^ (rest << 1);
  }
};

struct FontCache {
  std::unordered_map<FontSpec, FontEntry, SpecHash> entries;
  const std::pair<const FontSpec, FontEntry>* last = nullptr;
  unsigned generation = 1;
};

FontCache& cache() {
  static FontCache fonts;
  return fonts;
}

QString familyOf(const FontSpec& spec) {
  if (!spec.family.empty()) return QString::fromStdString(spec.family);
  if (spec.monospaced) return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
  // The name behind an alias such as "Sans Serif", which may resolve to another one elsewhere.
  return QFontInfo(QApplication::font()).family();
}

QFont makeFont(const FontSpec& spec) {
  QFont font(familyOf(spec));
  const double size =
      std::isfinite(spec.size) && spec.size > 0 ? std::clamp(spec.size, 1.0, kMaxSize) : 13.0;
  if (size == std::floor(size)) {
    font.setPixelSize(static_cast<int>(size));
  } else {
    // Qt keeps pixel sizes whole, but not point sizes.
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double dpi = screen != nullptr ? screen->logicalDotsPerInchY() : 96.0;
    font.setPointSizeF(size * 72.0 / dpi);
  }
  font.setWeight(static_cast<QFont::Weight>(std::clamp(spec.weight, 1, 1000)));
  font.setItalic(spec.italic);
  if (spec.monospaced) {
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
  }
  return font;
}

FontEntry makeEntry(const FontSpec& spec) {
  const QFont font = makeFont(spec);
  const QFontMetricsF metrics(font);
  return {font, metrics, metrics.ascent(),
          std::ceil(metrics.height() + std::max(0.0, metrics.leading()))};
}

}  // namespace

const FontEntry& fontEntry(const FontSpec& spec) {
  FontCache& fonts = cache();
  if (fonts.last != nullptr && fonts.last->first == spec) return fonts.last->second;
  auto found = fonts.entries.find(spec);
  if (found == fonts.entries.end()) {
    // Fonts must not outlive the application that they come from.
    static const bool registered = (qAddPostRoutine(forgetFonts), true);
    Q_UNUSED(registered);
    if (fonts.entries.size() >= kMaxFonts) fonts.entries.clear();
    found = fonts.entries.emplace(spec, makeEntry(spec)).first;
  }
  fonts.last = &*found;
  return found->second;
}

unsigned fontGeneration() {
  return cache().generation;
}

void forgetFonts() {
  FontCache& fonts = cache();
  fonts.last = nullptr;
  fonts.entries.clear();
  ++fonts.generation;
}

}  // namespace zq::qt
