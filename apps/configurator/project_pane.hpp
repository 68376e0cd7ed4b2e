// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <apps/configurator/pieces.hpp>
#include <apps/configurator/workbench.hpp>

namespace zq::configurator {

// The project itself: its name, the application that it is for, its files and the values that new
// items begin with.
struct ProjectPane : ViewModifiers<ProjectPane> {
  explicit ProjectPane(std::shared_ptr<Workbench> bench) : bench_(std::move(bench)) {}
  View body(Context& context) const;

 private:
  std::shared_ptr<Workbench> bench_;
};

// The source that the selected group gives, in Swift and in C++, as it is now.
struct CodePane : ViewModifiers<CodePane> {
  explicit CodePane(std::shared_ptr<Workbench> bench) : bench_(std::move(bench)) {}
  View body(Context& context) const;

 private:
  std::shared_ptr<Workbench> bench_;
};

}  // namespace zq::configurator
