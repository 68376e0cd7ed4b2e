// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A time in seconds as a large clock of fixed pitch, 01:02:03.04: hours, minutes, seconds and
// hundredths, as TC::getFloatTimecode has them. Only the digits that change are drawn again. A
// minus sign stands with the hours of a negative time; a time that is not finite counts as 0,
// such a size as that of the body. Runs from left to right in every language; the separators ":"
// and "." are looked up in the host's LocalizedTexts. Interface thread only.
//   ZQTimecodeView(player.time)
class ZQTimecodeView : public ViewModifiers<ZQTimecodeView> {
 public:
  explicit ZQTimecodeView(double time, double fontSize = 32) : time_(time), fontSize_(fontSize) {}

  View body(Context& context) const;
  bool operator==(const ZQTimecodeView&) const = default;

 private:
  double time_;
  double fontSize_;
};

}  // namespace zq
