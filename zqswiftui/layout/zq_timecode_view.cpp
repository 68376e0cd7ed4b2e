// ZQSwiftUI, MIT licence; see LICENSE.
#include <cstdint>
#include <zqswiftui/layout/zq_timecode_view.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/timecode.hpp>
#include <zqswiftui/platform/toolkit/localized_texts.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {

View ZQTimecodeView::body(Context& context) const {
  const std::string tc = TC::getFloatTimecode(time_, false);
  // A minus sign, or a third digit, belongs to the hours.
  const auto more = static_cast<std::int64_t>(tc.find(':')) - 2;
  const auto field = [&](int from, int to) {
    return Text(strUt_getSubString(tc, from + (from > 0 ? more : 0), to + more));
  };
  const Text colon(localized(context, ":")), point(localized(context, "."));
  return HStack({.spacing = 0},
                {field(0, 2), colon, field(3, 5), colon, field(6, 8), point, field(9, 11)})
      .lineLimit(1)
      .fixedSize()  // digits that wrapped would be another time
      .font(Font::custom("Courier New", fontSize_).monospaced())
      .environment<LayoutDirectionKey>(LayoutDirection::leftToRight)
      .accessibility({.hidden = true})
      .accessibility({.role = Role::text, .label = tc});
}

}  // namespace zq
