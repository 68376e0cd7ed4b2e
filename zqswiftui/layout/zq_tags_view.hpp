// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <string>
#include <vector>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A read-only list of tags on capsules of one colour, wrapped at the width that is offered.
// A tag is known by its text: equal texts are the same item. Interface thread only.
//   ZQTagsView({"alpha", "beta"}, Color::teal())
class ZQTagsView : public ViewModifiers<ZQTagsView> {
 public:
  using List = std::vector<std::string>;

  ZQTagsView(List tagList, Color bgColor);
  // Over a list that is shared, which must not change any more: long ones are neither copied
  // nor compared while they are the same object. A null list has no tags.
  ZQTagsView(std::shared_ptr<const List> tagList, Color bgColor);

  View body(Context& context) const;
  bool operator==(const ZQTagsView& other) const;

 private:
  Shared<const List> tagList_;
  Color bgColor_;
};

}  // namespace zq
