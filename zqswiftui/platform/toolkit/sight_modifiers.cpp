// ZQSwiftUI, MIT licence; see LICENSE.
#include <optional>
#include <type_traits>
#include <utility>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

template <class Seen>
class SightNode;

template <class Seen>
using SightAction = std::function<void(const Seen&)>;

// Tells what of a view can be seen: whether anything can, or which part.
template <class Seen>
class SightValue final : public ModifierValue<SightValue<Seen>, SightNode<Seen>> {
 public:
  SightValue(View givenChild, SightAction<Seen> givenAction)
      : ModifierValue<SightValue<Seen>, SightNode<Seen>>(std::move(givenChild)),
        action(std::move(givenAction)) {}
  SightAction<Seen> action;
};

template <class Seen>
class SightNode final : public ModifierNode<SightValue<Seen>> {
 public:
  using ModifierNode<SightValue<Seen>>::ModifierNode;
  ~SightNode() override {
    const Seen none{};
    if (!told_ || *told_ == none) return;
    this->tree().later([action = this->value().action, none] { action(none); });
  }
  void mount() override {
    ModifierNode<SightValue<Seen>>::mount();
    this->tree().addVisibilityListener(*this, [this](const Rect&) {
      if (asked_ || told_ == seen()) return;
      asked_ = true;
      this->tree().later(*this, [this] { tell(); });
    });
  }
  bool hasMemory() const override { return true; }
  std::string debugName() const override { return "Visibility"; }

 private:
  Seen seen() const {
    if constexpr (std::is_same_v<Seen, bool>) {
      return this->canBeSeen();
    } else {
      if (!this->tree().visible()) return {};
      return intersection(this->localBounds(), this->visibleRect());
    }
  }
  void tell() {
    asked_ = false;
    const Seen now = seen();
    if (told_ == now) return;
    told_ = now;
    const auto action = this->value().action;  // it may end this view
    action(now);
  }
  std::optional<Seen> told_;
  bool asked_ = false;
};

class RevealNode;

class RevealValue final : public ModifierValue<RevealValue, RevealNode> {
 public:
  RevealValue(View givenChild, const std::optional<Rect>& givenPart, unsigned givenTurn)
      : ModifierValue(std::move(givenChild)), part(givenPart), turn(givenTurn) {}
  std::optional<Rect> part;
  unsigned turn;
};

class RevealNode final : public ModifierNode<RevealValue> {
 public:
  using ModifierNode::ModifierNode;
  void mount() override {
    ModifierNode::mount();
    ask();
  }
  std::string debugName() const override { return "Reveal"; }

 protected:
  void changed(const RevealValue& was, const RevealValue& now) override {
    if (was.part != now.part || was.turn != now.turn) ask();
  }

 private:
  // Once everything stands in its place.
  void ask() {
    tree().later(*this, [this] {
      if (value().part) bringInSight(*value().part);
    });
  }
};

class FocusTurnNode;

class FocusTurnValue final : public ModifierValue<FocusTurnValue, FocusTurnNode> {
 public:
  FocusTurnValue(View givenChild, unsigned givenTurn)
      : ModifierValue(std::move(givenChild)), turn(givenTurn) {}
  unsigned turn;
};

class FocusTurnNode final : public ModifierNode<FocusTurnValue> {
 public:
  using ModifierNode::ModifierNode;
  std::string debugName() const override { return "TakingFocus"; }

 protected:
  void changed(const FocusTurnValue& was, const FocusTurnValue& now) override {
    if (was.turn != now.turn) tree().later(*this, [this] { tree().focus().enter(*this); });
  }
};

}  // namespace

View modify::takingFocus(View view, unsigned turn) {
  return View::make<FocusTurnValue>(std::move(view), turn);
}

View modify::onVisibility(View view, std::function<void(bool)> action) {
  if (!action) return view;
  return View::make<SightValue<bool>>(std::move(view), std::move(action));
}

View modify::onVisiblePart(View view, std::function<void(const Rect&)> action) {
  if (!action) return view;
  return View::make<SightValue<Rect>>(std::move(view), std::move(action));
}

View modify::revealing(View view, const std::optional<Rect>& part, unsigned turn) {
  return View::make<RevealValue>(std::move(view), part, turn);
}

}  // namespace zq
