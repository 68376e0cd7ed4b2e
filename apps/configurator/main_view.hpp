// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <apps/configurator/pieces.hpp>
#include <apps/configurator/workbench.hpp>

namespace zq::configurator {

// All of a window: menus, projects, groups, values, the pane at the right and the line below.
struct MainView : ViewModifiers<MainView> {
  explicit MainView(std::shared_ptr<Workbench> bench) : bench_(std::move(bench)) {}
  View body(Context& context) const;

 private:
  std::shared_ptr<Workbench> bench_;
};

// The menus over the window. Their shortcuts work from anywhere in it.
struct Menus : ViewModifiers<Menus> {
  explicit Menus(std::shared_ptr<Workbench> bench) : bench_(std::move(bench)) {}
  View body(Context& context) const;

 private:
  std::shared_ptr<Workbench> bench_;
};

// What must be answered, or nothing.
struct SheetView : ViewModifiers<SheetView> {
  explicit SheetView(std::shared_ptr<Workbench> bench) : bench_(std::move(bench)) {}
  View body(Context& context) const;

 private:
  std::shared_ptr<Workbench> bench_;
};

}  // namespace zq::configurator
