// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>

namespace zq {

// Other applications of the desktop. Interface thread only.
class Workspace {
 public:
  virtual ~Workspace() = default;
  // Opens a file or another URL in the application that the platform has for it; returns at
  // once, and what cannot be opened is left to the platform to report.
  virtual void open(const std::string& url) = 0;
};

}  // namespace zq
