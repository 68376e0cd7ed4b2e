// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <string>
#include <zqswiftui/platform/toolkit/tree/node.hpp>

namespace zq {

// The top of a tree: the host's view at the window's size, and the bubbles above it.
class RootNode final : public Node {
 public:
  using Node::Node;
  void setContent(const View& view) { reconcile(content_, view); }
  Node* content() const { return content_.get(); }
  void update(const View&) override {}
  void forEachChild(const NodeVisitor& visit) override;
  EnvironmentPtr childEnvironment() const override;
  bool sizeIsFixed() const override { return true; }
  std::string debugName() const override { return "Root"; }

 protected:
  Size computeSize(const ProposedSize& proposal) override {
    return content_ ? content_->measure(proposal) : Size{};
  }
  void layoutChildren() override;

 private:
  std::unique_ptr<Node> content_;
};

}  // namespace zq
