// ZQSwiftUI, MIT licence; see LICENSE.
#include <cmath>
#include <zqswiftui/platform/toolkit/button.hpp>
#include <zqswiftui/platform/toolkit/tree/responder.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

constexpr double kRingReach = 3;  // how far the focus ring stands out
constexpr double kHeldOpacity = 0.6;

enum class PressLook : unsigned char { plain, dimsWhileHeld };

// The ring around what has the focus from the keyboard.
Rect boundsOfRing(const Node& node, const Rect& around) {
  return node.tree().focus().showsRing(node) ? around.insetBy(-kRingReach) : Rect{};
}

void ringChanged(Node& node) {
  node.damageAll();
  node.invalidateBounds();
  node.damageAll();
}

void paintRing(const Node& node, const Rect& around, PaintPass& pass, Point origin) {
  if (!node.tree().focus().showsRing(node)) return;
  Path ring;
  const Rect outline = around.insetBy(-kRingReach / 2);
  ring.addRoundedRect(outline, 5);
  pass.canvas.draw(StrokePath{std::make_shared<const Path>(std::move(ring)),
                              outline.insetBy(-1),
                              {.lineWidth = 2, .dash = {}},
                              Color::accent().opacity(0.8)},
                   node.playState(pass, origin));
}

class PressNode;

class PressValue final : public ModifierValue<PressValue, PressNode> {
 public:
  PressValue(View givenChild, std::function<void()> givenAction, PressLook givenLook,
             TabStop givenStop)
      : ModifierValue(std::move(givenChild)),
        action(std::move(givenAction)),
        look(givenLook),
        stop(givenStop) {}
  std::function<void()> action;
  PressLook look;
  TabStop stop;
};

class PressNode final : public ModifierNode<PressValue>, public Responder {
 public:
  explicit PressNode(const NodePlace& place) : ModifierNode(place) { countPress(1); }
  ~PressNode() override { countPress(-1); }
  PressNode(const PressNode&) = delete;
  PressNode& operator=(const PressNode&) = delete;
  Responder* responder() override { return this; }
  bool takesPointer() const override { return true; }
  bool hasMemory() const override { return true; }
  bool wantsPress() const override { return true; }
  void pressChanged(bool down) override {
    held_ = down;
    if (value().look == PressLook::dimsWhileHeld) damageAll();
  }
  void pressed() override {
    const std::function<void()> action = value().action;  // it may end this view
    if (action) action();
  }
  bool focusable() const override { return value().stop == TabStop::yes; }
  void focusChanged(bool, bool) override { ringChanged(*this); }
  void paint(PaintPass& pass, Point origin) override;
  std::string debugName() const override { return "Button"; }
  void describe(std::vector<AccessibilityNode>& out) override;

 protected:
  Rect ownBounds() const override { return boundsOfRing(*this, localBounds()); }

 private:
  bool held_ = false;
};

void PressNode::paint(PaintPass& pass, Point origin) {
  const bool dim = held_ && value().look == PressLook::dimsWhileHeld;
  if (dim) pass.canvas.pushOpacity(kHeldOpacity, bounds().offsetBy(origin));
  paintChildren(pass, origin);
  if (dim) pass.canvas.pop();
  paintRing(*this, localBounds(), pass, origin);
}

// What can be used on its own inside of something that is pressed as a whole; the rest is its name.
void collectUsable(std::vector<AccessibilityNode>& from, std::vector<AccessibilityNode>& to) {
  for (AccessibilityNode& node : from) {
    if (node.focusable || node.pressable) {
      to.push_back(std::move(node));
    } else {
      collectUsable(node.children, to);
    }
  }
}

void PressNode::describe(std::vector<AccessibilityNode>& out) {
  AccessibilityNode node;
  node.id = id();
  node.role = Role::button;
  node.name = accessibleText();
  if (node.name.empty()) node.name = symbolText();
  node.bounds = toWindow(localBounds());
  node.enabled = environment().enabled;
  node.pressable = environment().enabled;
  node.focusable = node.pressable && focusable();
  node.focused = tree().focus().focused() == this;
  std::vector<AccessibilityNode> inside;
  WrapperNode::describe(inside);
  collectUsable(inside, node.children);
  out.push_back(std::move(node));
}

class KeyNode;

class KeyValue final : public ModifierValue<KeyValue, KeyNode> {
 public:
  KeyValue(View givenChild, std::function<bool(const KeyEvent&)> givenAction, double givenInset)
      : ModifierValue(std::move(givenChild)), action(std::move(givenAction)), inset(givenInset) {}
  std::function<bool(const KeyEvent&)> action;
  double inset;
};

class KeyNode final : public ModifierNode<KeyValue>, public Responder {
 public:
  using ModifierNode::ModifierNode;
  Responder* responder() override { return this; }
  bool takesPointer() const override { return true; }
  bool hasMemory() const override { return true; }
  bool focusable() const override { return true; }
  void focusChanged(bool, bool) override { ringChanged(*this); }
  bool key(const KeyEvent& event) override {
    const auto action = value().action;  // it may end this view
    return action(event);
  }
  void paint(PaintPass& pass, Point origin) override {
    paintChildren(pass, origin);
    paintRing(*this, ringPlace(), pass, origin);
  }
  std::string debugName() const override { return "Key"; }
  void describe(std::vector<AccessibilityNode>& out) override {
    AccessibilityNode node;
    node.id = id();
    node.name = accessibleText();
    node.bounds = toWindow(localBounds());
    node.enabled = node.focusable = environment().enabled;
    node.focused = tree().focus().focused() == this;
    WrapperNode::describe(node.children);
    out.push_back(std::move(node));
  }

 protected:
  void changed(const KeyValue& was, const KeyValue& now) override {
    if (was.inset == now.inset) return;
    damageAll();
    invalidateBounds();
    tree().damageAfterLayout(*this, true);
  }
  Rect ownBounds() const override { return boundsOfRing(*this, ringPlace()); }

 private:
  Rect ringPlace() const { return localBounds().insetBy(value().inset); }
};

class HoverNode;

class HoverValue final : public ModifierValue<HoverValue, HoverNode> {
 public:
  HoverValue(View givenChild, std::function<void(bool)> givenAction)
      : ModifierValue(std::move(givenChild)), action(std::move(givenAction)) {}
  std::function<void(bool)> action;
};

class HoverNode final : public ModifierNode<HoverValue>, public Responder {
 public:
  using ModifierNode::ModifierNode;
  Responder* responder() override { return this; }
  bool takesPointer() const override { return true; }
  bool wantsHover() const override { return true; }
  bool hasMemory() const override { return inside_; }
  void hoverChanged(bool inside) override {
    inside_ = inside;
    const auto action = value().action;
    if (action) action(inside);
  }
  std::function<void()> hoverFarewell() const override {
    return [action = value().action] {
      if (action) action(false);
    };
  }
  std::string debugName() const override { return "Hover"; }

 private:
  bool inside_ = false;
};

class GestureNode;

class GestureValue final : public ModifierValue<GestureValue, GestureNode> {
 public:
  GestureValue(View givenChild, DragGesture givenGesture)
      : ModifierValue(std::move(givenChild)), gesture(std::move(givenGesture)) {}
  DragGesture gesture;
};

class GestureNode final : public ModifierNode<GestureValue>, public Responder {
 public:
  using ModifierNode::ModifierNode;
  Responder* responder() override { return this; }
  bool takesPointer() const override { return true; }
  bool hasMemory() const override { return true; }
  const DragGesture* dragGesture() const override { return &value().gesture; }
  std::string debugName() const override { return "Gesture"; }
};

class DropNode;

class DropValue final : public ModifierValue<DropValue, DropNode> {
 public:
  DropValue(View givenChild, DropTarget givenTarget)
      : ModifierValue(std::move(givenChild)), target(std::move(givenTarget)) {}
  DropTarget target;
};

class DropNode final : public ModifierNode<DropValue>, public Responder {
 public:
  using ModifierNode::ModifierNode;
  Responder* responder() override { return this; }
  bool takesPointer() const override { return true; }
  const DropTarget* dropTarget() const override { return &value().target; }
  std::string debugName() const override { return "Drop"; }
};

class HitAreaNode;

class HitAreaValue final : public ModifierValue<HitAreaValue, HitAreaNode> {
 public:
  HitAreaValue(View givenChild, std::function<bool(Point)> givenContains)
      : ModifierValue(std::move(givenChild)), contains(std::move(givenContains)) {}
  std::function<bool(Point)> contains;
};

class HitAreaNode final : public ModifierNode<HitAreaValue> {
 public:
  using ModifierNode::ModifierNode;
  bool admits(Point point) const override { return value().contains(point); }
  std::string debugName() const override { return "HitArea"; }
};

// What changes nothing but what the controllers are told.
class HintNode;

class HintValue final : public ModifierValue<HintValue, HintNode> {
 public:
  explicit HintValue(View givenChild) : ModifierValue(std::move(givenChild)) {}
  std::optional<Shortcut> shortcut;
  std::optional<Cursor> cursor;
  std::optional<std::string> help;
  std::function<void()> shortcutAction;  // none: what is inside is pressed
  std::function<void(Point)> secondary;
  std::function<void(int)> press;
  std::function<bool(const KeyEvent&)> leftover;
  std::function<void(bool)> focus;
};

class HintNode final : public ModifierNode<HintValue>, public Responder {
 public:
  using ModifierNode::ModifierNode;
  Responder* responder() override { return this; }
  bool takesPointer() const override {
    return value().help || value().cursor || value().secondary || value().press;
  }
  bool hasMemory() const override { return focusTold_; }
  const Shortcut* shortcut() const override {
    return value().shortcut ? &*value().shortcut : nullptr;
  }
  const std::function<void()>* shortcutAction() const override {
    return value().shortcutAction ? &value().shortcutAction : nullptr;
  }
  const std::function<void(int)>* pressAction() const override {
    return value().press ? &value().press : nullptr;
  }
  void focusMoved() override {
    if (!value().focus) return;
    tree().later(*this, [this] { tellFocus(); });
    tree().requestFrame();
  }
  const std::function<void(Point)>* secondaryTap() const override {
    return value().secondary ? &value().secondary : nullptr;
  }
  bool key(const KeyEvent& event) override {
    const auto action = value().leftover;  // it may end this view
    return action && action(event);
  }
  std::optional<Cursor> cursor() const override { return value().cursor; }
  const std::string* help() const override { return value().help ? &*value().help : nullptr; }
  bool bubbleKey(const KeyEvent& event) override { return key(event); }
  std::string debugName() const override { return "Hint"; }
  void describe(std::vector<AccessibilityNode>& out) override {
    const std::size_t first = out.size();
    WrapperNode::describe(out);
    if (!value().help) return;
    for (std::size_t i = first; i < out.size(); ++i) {
      if (out[i].description.empty()) out[i].description = *value().help;
    }
  }

 private:
  void tellFocus() {
    const bool inside = tree().focus().isIn(*this);
    const auto action = value().focus;  // it may end this view
    if (inside == std::exchange(focusTold_, inside) || !action) return;
    action(inside);
  }
  bool focusTold_ = false;
};

View hint(View view, const std::function<void(HintValue&)>& change) {
  auto value = std::make_unique<HintValue>(std::move(view));
  change(*value);
  return View(value.release());
}

}  // namespace

Button::operator View() const {
  return View::make<PressValue>(label_, action_, PressLook::dimsWhileHeld, TabStop::yes);
}

View modify::onTap(View view, std::function<void()> action, TabStop stop) {
  if (!action) return view;
  return View::make<PressValue>(std::move(view), std::move(action), PressLook::plain, stop);
}

View modify::onHover(View view, std::function<void(bool)> action) {
  if (!action) return view;
  return View::make<HoverValue>(std::move(view), std::move(action));
}

View modify::onKey(View view, std::function<bool(const KeyEvent&)> action, double ringInset) {
  if (!action) return view;
  return View::make<KeyValue>(std::move(view), std::move(action),
                              std::isfinite(ringInset) ? ringInset : 0.0);
}

View modify::gesture(View view, DragGesture gesture) {
  if (!gesture.onChanged && !gesture.onEnded && !gesture.onCancelled) return view;
  return View::make<GestureValue>(std::move(view), std::move(gesture));
}

View modify::onDrop(View view, DropTarget target) {
  return View::make<DropValue>(std::move(view), std::move(target));
}

View modify::hitArea(View view, std::function<bool(Point)> contains) {
  if (!contains) return view;
  return View::make<HitAreaValue>(std::move(view), std::move(contains));
}

View modify::keyboardShortcut(View view, Shortcut shortcut) {
  return hint(std::move(view), [&](HintValue& v) { v.shortcut = std::move(shortcut); });
}

View modify::onShortcut(View view, Shortcut shortcut, std::function<void()> action) {
  if (!action) return view;
  return hint(std::move(view), [&](HintValue& v) {
    v.shortcut = std::move(shortcut);
    v.shortcutAction = std::move(action);
  });
}

View modify::onSecondaryTap(View view, std::function<void(Point)> action) {
  if (!action) return view;
  return hint(std::move(view), [&](HintValue& v) { v.secondary = std::move(action); });
}

View modify::onPress(View view, std::function<void(int)> action) {
  if (!action) return view;
  return hint(std::move(view), [&](HintValue& v) { v.press = std::move(action); });
}

View modify::onFocus(View view, std::function<void(bool)> action) {
  if (!action) return view;
  return hint(std::move(view), [&](HintValue& v) { v.focus = std::move(action); });
}

View modify::onLeftoverKey(View view, std::function<bool(const KeyEvent&)> action) {
  if (!action) return view;
  return hint(std::move(view), [&](HintValue& v) { v.leftover = std::move(action); });
}

View modify::cursor(View view, Cursor cursor) {
  return hint(std::move(view), [cursor](HintValue& v) { v.cursor = cursor; });
}

View modify::help(View view, std::string text) {
  return hint(std::move(view), [&](HintValue& v) { v.help = std::move(text); });
}

}  // namespace zq
