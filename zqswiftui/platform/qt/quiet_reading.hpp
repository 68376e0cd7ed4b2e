// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

namespace zq::qt {

// While one lives, what Qt's readers of pictures say on this thread is dropped, up to warnings: a
// damaged picture is told of by a status, and a whole one with an odd profile by nobody. For that
// the first one installs a message handler for good, which passes all else on to the one that was
// there. A program that installs its own later hears the readers, too. Any thread.
class QuietReading {
 public:
  QuietReading();
  ~QuietReading();
  QuietReading(const QuietReading&) = delete;
  QuietReading& operator=(const QuietReading&) = delete;
};

}  // namespace zq::qt
