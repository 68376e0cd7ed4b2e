// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/settings/zquic_group.hpp>

namespace zq {

static_assert(ZQLeftSideItemable<ZQUICGroup> && ZQSearchable<ZQUICGroup>);

bool ZQUICGroup::zqSearch(std::string_view query) const {
  return zqSearchContains(name, query) ||
         std::any_of(itemList.begin(), itemList.end(),
                     [query](const ZQUICItem& item) { return item.zqSearch(query); });
}

}  // namespace zq
