// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// Work of unknown length: a turning spinner, and what is going on below it. The spinner is a
// square of `side` points and has n elements, from 1 to 64; it turns on the window's frames
// while it can be seen, and stands still with reduced motion. With a width, in points, all of
// it is that wide and a longer label is wrapped. Lengths that are negative or not finite count
// as zero. To a screen reader it is progress, named by its label, that is busy.
//   ZQLabeledSpinner({.label = "Exporting…", .color = Color::teal(), .side = 24, .n = 12})
class ZQLabeledSpinner : public ViewModifiers<ZQLabeledSpinner> {
 public:
  struct Parameters {
    Required<std::string> label;  // empty: the spinner alone
    Color color = Color::gray();
    double side = 32;
    std::optional<double> width = std::nullopt;
    int n = 8;
    bool operator==(const Parameters&) const = default;
  };
  explicit ZQLabeledSpinner(Parameters parameters);

  View body(Context& context) const;
  bool operator==(const ZQLabeledSpinner&) const = default;

 private:
  Parameters parameters_;
};

}  // namespace zq
