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
  std::size_t operator()(const FontSpec& wanted) const {
    const std::size_t rest = std::hash<double>{}(wanted.size) * 31 +
                             static_cast<std::size_t>(wanted.weight) * 4 +
                             (wanted.italic ? 2U : 0U) + (wanted.monospaced ? 1U : 0U);
    return std::hash<std::string>{}(wanted.family) ^ (rest << 1);
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

QString familyOf(const FontSpec& wanted) {
  if (!wanted.family.empty()) return QString::fromStdString(wanted.family);
  if (wanted.monospaced) return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
  // The name behind an alias such as "Sans Serif", which may resolve to another one elsewhere.
  return QFontInfo(QApplication::font()).family();
}

QFont makeFont(const FontSpec& wanted) {
  QFont font(familyOf(wanted));
  const double size =
      std::isfinite(wanted.size) && wanted.size > 0 ? std::clamp(wanted.size, 1.0, kMaxSize) : 13.0;
  if (size == std::floor(size)) {
    font.setPixelSize(static_cast<int>(size));
  } else {
    // Qt keeps pixel sizes whole, but not point sizes.
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double dpi = screen != nullptr ? screen->logicalDotsPerInchY() : 96.0;
    font.setPointSizeF(size * 72.0 / dpi);
  }
  font.setWeight(static_cast<QFont::Weight>(std::clamp(wanted.weight, 1, 1000)));
  font.setItalic(wanted.italic);
  if (wanted.monospaced) {
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
  }
  return font;
}

FontEntry makeEntry(const FontSpec& wanted) {
  const QFont font = makeFont(wanted);
  const QFontMetricsF metrics(font);
  return {font, metrics, metrics.ascent(),
          std::ceil(metrics.height() + std::max(0.0, metrics.leading()))};
}

}  // namespace

const FontEntry& fontEntry(const FontSpec& wanted) {
  FontCache& fonts = cache();
  if (fonts.last != nullptr && fonts.last->first == wanted) return fonts.last->second;
  auto found = fonts.entries.find(wanted);
  if (found == fonts.entries.end()) {
    // Fonts must not outlive the application that they come from.
    static const bool registered = (qAddPostRoutine(forgetFonts), true);
    Q_UNUSED(registered);
    if (fonts.entries.size() >= kMaxFonts) fonts.entries.clear();
    found = fonts.entries.emplace(wanted, makeEntry(wanted)).first;
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
