// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/layout/zq_timecode_view.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/timecode.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {

View ZQTimecodeView::body(Context& /*context*/) const {
  const std::string tc = TC::getFloatTimecode(time_, false);
  const int sign = tc.starts_with('-') ? 1 : 0;
  const auto field = [&](int from, int to) {
    return Text(strUt_getSubString(tc, from + (from > 0 ? sign : 0), to + sign));
  };
  return HStack({.spacing = 0}, {field(0, 2), Text(":"), field(3, 5), Text(":"), field(6, 8),
                                 Text("."), field(9, 11)})
      .lineLimit(1)
      .font(Font::custom("Courier New", fontSize_).monospaced())
      .environment<LayoutDirectionKey>(LayoutDirection::leftToRight)
      .accessibility({.hidden = true})
      .accessibility({.role = Role::text, .label = tc});
}

}  // namespace zq
