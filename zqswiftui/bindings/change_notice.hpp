// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/base/signal.hpp>

namespace zq {

class ObservableObject;

namespace detail {

// Tells the observers of its owner on the interface thread, once for all changes since they were
// told last: a flood of changes leaves one piece of work waiting there. Told after the change has
// been made, so that who reads then, or later, sees it. A member of its owner. Any
// thread; nothing is told once it is gone, or while there is no platform.
class ChangeNotice {
 public:
  explicit ChangeNotice(ObservableObject& owner);

  // At once on the interface thread, where none is on its way there already.
  void post();

 private:
  struct Line;
  class Ticket;
  Shared<Line> line_;
  Subscription heard_;
};

}  // namespace detail
}  // namespace zq
