// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

enum class ScrollAxes : unsigned char { vertical, horizontal, both };

// A window onto content that may be larger: takes the room that is offered, scrolls by wheel,
// arrow and page keys, and shows a thin bar where there is more. Keeps its position while the
// content changes.
class ScrollView : public ViewModifiers<ScrollView> {
 public:
  explicit ScrollView(View content, ScrollAxes axes = ScrollAxes::vertical);
  operator View() const;  // NOLINT(google-explicit-constructor)

 private:
  View content_;
  ScrollAxes axes_;
};

}  // namespace zq
