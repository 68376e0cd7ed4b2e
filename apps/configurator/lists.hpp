// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <apps/configurator/pieces.hpp>
#include <apps/configurator/workbench.hpp>

namespace zq::configurator {

// The projects of the sidebar, with the user's marks.
struct ProjectList : ViewModifiers<ProjectList> {
  explicit ProjectList(std::shared_ptr<Workbench> bench) : bench_(std::move(bench)) {}
  View body(Context& context) const;

 private:
  std::shared_ptr<Workbench> bench_;
};

// The groups of the project.
struct GroupList : ViewModifiers<GroupList> {
  explicit GroupList(std::shared_ptr<Workbench> bench) : bench_(std::move(bench)) {}
  View body(Context& context) const;

 private:
  std::shared_ptr<Workbench> bench_;
};

// The values of the selected group.
struct ItemList : ViewModifiers<ItemList> {
  explicit ItemList(std::shared_ptr<Workbench> bench) : bench_(std::move(bench)) {}
  View body(Context& context) const;

 private:
  std::shared_ptr<Workbench> bench_;
};

// The item's value as a list shows it.
std::string valueText(const ZQUICItem& item);

}  // namespace zq::configurator
