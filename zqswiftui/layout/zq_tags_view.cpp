// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/controls/zq_capsuled_text.hpp>
#include <zqswiftui/layout/flow_layout.hpp>
#include <zqswiftui/layout/zq_tags_view.hpp>
#include <zqswiftui/platform/toolkit/for_each.hpp>

namespace zq {

ZQTagsView::ZQTagsView(List tagList, Color bgColor)
    : ZQTagsView(std::make_shared<const List>(std::move(tagList)), bgColor) {}

ZQTagsView::ZQTagsView(std::shared_ptr<const List> tagList, Color bgColor)
    : tagList_(tagList ? std::move(tagList) : std::make_shared<const List>()), bgColor_(bgColor) {}

View ZQTagsView::body(Context& /*context*/) const {
  return LayoutView(NewFlowLayout({.alignment = Alignment::leading(), .spacing = 2}),
                    {ForEach(tagList_.pointer(), std::identity{}, bgColor_,
                             [](const std::string& tag, const Color& color) {
                               return ZQCapsuledText({.text = tag,
                                                      .font = Font::caption(),
                                                      .alignment = TextAlignment::center,
                                                      .padding = 2,
                                                      .backgroundColor = color});
                             })});
}

bool ZQTagsView::operator==(const ZQTagsView& other) const {
  return bgColor_ == other.bgColor_ && (tagList_ == other.tagList_ || *tagList_ == *other.tagList_);
}

}  // namespace zq
