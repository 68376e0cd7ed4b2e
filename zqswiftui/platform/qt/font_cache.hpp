// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <zqswiftui/platform/services/text_measurer.hpp>

namespace zq::qt {

// A font as Qt draws it, with its lengths in points.
struct FontEntry {
  QFont font;
  QFontMetricsF metrics;
  double ascent = 0;
  double lineHeight = 0;  // whole points, so that the baselines of lines fall on whole ones too
};

// The fonts in use, one for each FontSpec. The reference holds until the next call. Interface
// thread only, from the making of the application to its end.
const FontEntry& fontEntry(const FontSpec& wanted);

// Grows when the application's font changes, upon which entries are made anew.
unsigned fontGeneration();
void forgetFonts();

}  // namespace zq::qt
