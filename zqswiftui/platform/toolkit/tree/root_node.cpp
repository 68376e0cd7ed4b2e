// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <zqswiftui/platform/toolkit/tree/root_node.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {

void RootNode::forEachChild(const NodeVisitor& visit) {
  if (content_) visit(*content_);
  tree().popovers().forEachNode(visit);
}

EnvironmentPtr RootNode::childEnvironment() const {
  return tree().environment();
}

void RootNode::layoutChildren() {
  if (!content_) return;
  const Size window = frame().size();
  const ProposedSize all = ProposedSize::exactly(window);
  const Size size = content_->measure(all);
  // A view smaller than its window stands in the middle, a larger one at the top leading corner.
  const double x = std::max(0.0, (window.width - size.width) / 2);
  const double y = std::max(0.0, (window.height - size.height) / 2);
  content_->place(Rect::of({x, y}, size), all);
}

}  // namespace zq
