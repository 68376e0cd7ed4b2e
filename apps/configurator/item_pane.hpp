// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <apps/configurator/pieces.hpp>
#include <apps/configurator/workbench.hpp>

namespace zq::configurator {

// The selected value: its key, its type, an editor of that type, what was found about it, and the
// texts to paste into a program.
struct ItemPane : ViewModifiers<ItemPane> {
  explicit ItemPane(std::shared_ptr<Workbench> bench) : bench_(std::move(bench)) {}
  View body(Context& context) const;

 private:
  std::shared_ptr<Workbench> bench_;
};

}  // namespace zq::configurator
