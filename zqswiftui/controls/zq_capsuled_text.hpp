// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A text on a capsule. The text is white on dark backgrounds and black on light ones,
// whichever contrasts more (relative luminance as in WCAG 2.1, section 1.4.3).
//   ZQCapsuledText({.text = "4K", .font = Font::caption(), .padding = 4})
struct ZQCapsuledTextParameters {
  std::string text;
  Font font = Font::body();
  TextAlignment alignment = TextAlignment::center;
  double padding = 4;  // points on every side; the ends get room for their roundness besides
  Color backgroundColor = Color::black().opacity(0.8);
  bool operator==(const ZQCapsuledTextParameters&) const = default;
};
class ZQCapsuledText : public ViewModifiers<ZQCapsuledText> {
 public:
  using Parameters = ZQCapsuledTextParameters;
  explicit ZQCapsuledText(Parameters parameters) : parameters_(std::move(parameters)) {}

  View body(Context& context) const;
  bool operator==(const ZQCapsuledText&) const = default;

 private:
  Parameters parameters_;
};

}  // namespace zq
