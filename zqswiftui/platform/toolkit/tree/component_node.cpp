// ZQSwiftUI, MIT licence; see LICENSE.
#include <cxxabi.h>

#include <cstdlib>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/services/require.hpp>
#include <zqswiftui/platform/toolkit/tree/component_node.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

thread_local int bodies = 0;

std::string readable(const std::type_info& type) {
  int status = 0;
  char* text = abi::__cxa_demangle(type.name(), nullptr, nullptr, &status);
  std::string name = status == 0 && text ? text : type.name();
  std::free(text);  // NOLINT: allocated by the C++ runtime with malloc
  return name;
}

class EmptyNode final : public Node {
 public:
  using Node::Node;
  void update(const View&) override {}
  std::string debugName() const override { return "Empty"; }

 protected:
  Size computeSize(const ProposedSize&) override { return {}; }
};

class EmptyValue final : public ViewValue {
 public:
  const void* typeId() const override { return &detail::viewTypeId<EmptyValue>; }
  bool equals(const ViewValue&) const override { return true; }
  std::unique_ptr<Node> makeNode(const NodePlace& place) const override {
    return std::make_unique<EmptyNode>(place);
  }
};

}  // namespace

View emptyPlace() {
  return View::make<EmptyValue>();
}

bool bodyRunning() {
  return bodies > 0;
}

std::unique_ptr<Node> detail::ComponentValueBase::makeNode(const NodePlace& place) const {
  return std::make_unique<ComponentNode>(place);
}

ComponentNode::~ComponentNode() {
  if (memory_ && memory_->mark) memory_->mark->detach();
}

ComponentNode::Memory& ComponentNode::memory() {
  if (!memory_) memory_ = std::make_unique<Memory>();
  if (!memory_->mark) {
    memory_->mark = std::make_shared<detail::ViewMark>(tree().inbox(), this);
  }
  return *memory_;
}

void ComponentNode::update(const View& next) {
  if (view().value()->equals(*next.value())) return;
  setView(next);
  evaluate();
}

void ComponentNode::evaluate() {
  ++tree().counts().bodies;
  tree().noteEvaluated(*this);
  nextState_ = nextObserved_ = 0;
  if (memory_ && memory_->mark) memory_->mark->evaluated();
  View body;
  {
    Context context(*this);
    ++bodies;
    const View self = view();  // keeps the value alive whatever the body does
    body = static_cast<const detail::ComponentValueBase&>(*self.value()).body(context);
    --bodies;
  }
  endBody();
  setChild(body);
}

void ComponentNode::endBody() {
  const bool first = !std::exchange(complete_, true);
  if (!memory_) return;
  ZQ_REQUIRE(first || nextState_ == memory_->states.size(),
             debugName() + ": a body asked for fewer states than the one before");
  memory_->observed.resize(nextObserved_);
}

void ComponentNode::environmentChanged(const Environment&) {
  if (memory_ && memory_->readsEnvironment) memory_->mark->mark();
}

std::string ComponentNode::debugName() const {
  return readable(component().componentType());
}

// --- Context ---

Shared<detail::StateCellBase> Context::nextState(const std::type_info& type) {
  auto& memory = node_.memory();
  if (node_.nextState_ >= memory.states.size()) {
    ZQ_REQUIRE(!node_.complete_,
               node_.debugName() + ": a body asked for more states than the one before");
    return {};
  }
  const auto& slot = memory.states[node_.nextState_++];
  ZQ_REQUIRE(*slot.type == type, node_.debugName() +
                                     ": a body asked for its states in another "
                                     "order, or for another type");
  return slot.cell;
}

void Context::addState(const std::shared_ptr<detail::StateCellBase>& cell,
                       const std::type_info& type) {
  auto& memory = node_.memory();
  cell->mark_ = memory.mark;
  memory.states.push_back({cell, &type});
  ++node_.nextState_;
}

void Context::observeObject(const std::shared_ptr<ObservableObject>& object) {
  ZQ_REQUIRE(object != nullptr, node_.debugName() + ": observe() was given no object");
  auto& memory = node_.memory();
  const std::size_t i = node_.nextObserved_++;
  if (i < memory.observed.size() && memory.observed[i].object == object) return;
  if (i >= memory.observed.size()) memory.observed.emplace_back();
  const auto tell = [mark = memory.mark] { mark->mark(); };
  auto& place = memory.observed[i];
  place.before = object->willChange.connect(tell);
  place.after = object->didChange.connect(tell);
  place.object = object;
  object->wasObserved();
}

const Environment& Context::environmentValues() {
  node_.memory().readsEnvironment = true;
  return node_.environment();
}

void Context::requireObject(bool found, const std::type_info& type) {
  ZQ_REQUIRE(found, node_.debugName() + ": no ancestor set an environment object of type " +
                        readable(type));
}

void detail::StateCellBase::changed() const {
  ZQ_REQUIRE(!bodyRunning(), "State: written while a body runs");
  const auto mark = mark_.lock();
  if (!mark) return;
  ZQ_REQUIRE(Platform::current().mainQueue().isMainThread(),
             "State: written on a thread that is not the interface thread");
  mark->mark();
}

}  // namespace zq
