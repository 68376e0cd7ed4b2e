// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <zqswiftui/platform/toolkit/context.hpp>

// Inside of bindings/ only.
namespace zq::detail {

// A view brings a holder of its own, which follows from its construction on. The first one stays
// with the view's place for as long as the keyword does: a view that is made again, as parents do
// all the time, goes on showing the value that has come, and does not begin at nothing.
template <class Holder>
Holder& observeKept(Context& context, const Shared<Holder>& brought) {
  using Kept = Shared<Holder>;
  Kept& kept = **context.stateOf([&] { return std::make_shared<Kept>(brought); });
  if (kept->notificationKey() != brought->notificationKey()) kept = brought;
  return context.observe(kept);
}

}  // namespace zq::detail
