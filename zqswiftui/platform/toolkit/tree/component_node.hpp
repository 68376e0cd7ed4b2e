// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <string>
#include <typeinfo>
#include <vector>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/tree/node.hpp>

namespace zq {

// A component's place in the tree: its states, what it observes, and the view that its body
// answered last.
class ComponentNode final : public WrapperNode {
 public:
  using WrapperNode::WrapperNode;
  ~ComponentNode() override;

  void mount() override { evaluate(); }
  void update(const View& next) override;
  void evaluate();
  bool hasMemory() const override { return memory_ && !memory_->empty(); }
  bool isGroup() const override { return child() && child()->isGroup(); }
  void collectItems(ItemSink& sink) override { child()->collectItems(sink); }
  std::string debugName() const override;

 protected:
  void environmentChanged(const Environment& old) override;

 private:
  friend class Context;
  struct StateSlot {
    std::shared_ptr<detail::StateCellBase> cell;
    const std::type_info* type;
  };
  struct Observed {
    std::shared_ptr<ObservableObject> object;
    Subscription before;
    Subscription after;
  };
  // Most components have none of it.
  struct Memory {
    std::vector<StateSlot> states;
    std::vector<Observed> observed;
    std::shared_ptr<detail::ViewMark> mark;
    bool readsEnvironment = false;
    bool empty() const { return states.empty() && observed.empty(); }
  };
  Memory& memory();
  const detail::ComponentValueBase& component() const {
    return static_cast<const detail::ComponentValueBase&>(*view().value());
  }
  void endBody();

  std::unique_ptr<Memory> memory_;
  std::size_t nextState_ = 0;
  std::size_t nextObserved_ = 0;
  bool complete_ = false;  // the first body has run: the number of states is known
};

// What stands in an array of items for a child that shows nothing.
View emptyPlace();

// True while a body runs on this thread.
bool bodyRunning();

}  // namespace zq
