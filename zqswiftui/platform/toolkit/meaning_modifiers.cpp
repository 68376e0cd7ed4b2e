// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <utility>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

class EnvironmentNode;

class EnvironmentValue final : public ModifierValue<EnvironmentValue, EnvironmentNode> {
 public:
  EnvironmentValue(View givenChild, std::function<void(Environment&)> givenChange)
      : ModifierValue(std::move(givenChild)), change(std::move(givenChange)) {}
  std::function<void(Environment&)> change;
};

class EnvironmentNode final : public ModifierNode<EnvironmentValue> {
 public:
  using ModifierNode::ModifierNode;
  void mount() override {
    inner_ = changedEnvironment(value());
    ModifierNode::mount();
  }
  void update(const View& next) override {
    const EnvironmentPtr now = changedEnvironment(valueOf(next));
    if (!(*now == *inner_)) {
      const bool turned = now->layoutDirection != inner_->layoutDirection;
      inner_ = now;
      if (child()) child()->setEnvironment(inner_);
      if (turned) invalidatePlacement();
    }
    setChild(valueOf(next).child);
  }
  EnvironmentPtr childEnvironment() const override { return inner_; }
  bool isGroup() const override { return child() && child()->isGroup(); }
  void collectItems(ItemSink& sink) override { child()->collectItems(sink); }
  std::string debugName() const override { return "Environment"; }

 protected:
  void environmentChanged(const Environment&) override {
    const EnvironmentPtr now = changedEnvironment(value());
    if (!(*now == *inner_)) inner_ = now;
  }

 private:
  EnvironmentPtr changedEnvironment(const EnvironmentValue& v) const {
    auto next = std::make_shared<Environment>(environment());
    v.change(*next);
    return next;
  }
  EnvironmentPtr inner_;
};

class LifeNode;

class LifeValue final : public ModifierValue<LifeValue, LifeNode> {
 public:
  LifeValue(View givenChild, std::function<void()> givenAppear,
            std::function<void()> givenDisappear)
      : ModifierValue(std::move(givenChild)),
        appear(std::move(givenAppear)),
        disappear(std::move(givenDisappear)) {}
  std::function<void()> appear;
  std::function<void()> disappear;
};

class LifeNode final : public ModifierNode<LifeValue> {
 public:
  using ModifierNode::ModifierNode;
  ~LifeNode() override {
    if (value().disappear) tree().later(value().disappear);
  }
  void mount() override {
    ModifierNode::mount();
    if (value().appear) tree().later(value().appear);
  }
  bool hasMemory() const override { return true; }
  std::string debugName() const override { return "Life"; }
};

class ChangeNode;

class ChangeValue final : public ModifierValue<ChangeValue, ChangeNode> {
 public:
  ChangeValue(View givenChild, const void* givenType,
              std::shared_ptr<const modify::Watched> givenWatched)
      : ModifierValue(std::move(givenChild)), type(givenType), watched(std::move(givenWatched)) {}
  const void* type;
  std::shared_ptr<const modify::Watched> watched;
};

class ChangeNode final : public ModifierNode<ChangeValue> {
 public:
  using ModifierNode::ModifierNode;
  bool accepts(const View& next) const override { return valueOf(next).type == value().type; }
  bool hasMemory() const override { return true; }
  std::string debugName() const override { return "OnChange"; }

 protected:
  void changed(const ChangeValue& was, const ChangeValue& now) override {
    if (was.watched->sameAs(*now.watched)) return;
    tree().later([watched = now.watched] { watched->tell(); });
  }
};

class AccessibilityInfoNode;

class AccessibilityValue final : public ModifierValue<AccessibilityValue, AccessibilityInfoNode> {
 public:
  AccessibilityValue(View givenChild, Accessibility givenInfo)
      : ModifierValue(std::move(givenChild)), info(std::move(givenInfo)) {}
  Accessibility info;
};

class AccessibilityInfoNode final : public ModifierNode<AccessibilityValue> {
 public:
  using ModifierNode::ModifierNode;
  std::string debugName() const override { return "Accessibility"; }
  std::string accessibleText() override {
    if (value().info.hidden) return {};
    return value().info.label ? *value().info.label : WrapperNode::accessibleText();
  }
  void describe(std::vector<AccessibilityNode>& out) override;
  bool setNumber(std::uint64_t element, double number) override;

 protected:
  void changed(const AccessibilityValue& was, const AccessibilityValue& now) override {
    if (!(was.info == now.info)) tree().contentChanged();
  }
};

void AccessibilityInfoNode::describe(std::vector<AccessibilityNode>& out) {
  const Accessibility& info = value().info;
  if (info.hidden) return;
  std::vector<AccessibilityNode> inside;
  WrapperNode::describe(inside);
  // One element inside is the element meant; several become the children of a new one.
  AccessibilityNode node;
  if (inside.size() == 1) {
    node = std::move(inside.front());
  } else {
    node.id = id();
    node.role = Role::group;
    node.bounds = toWindow(localBounds());
    node.enabled = environment().enabled;
    if (info.role == Role::none || info.role == Role::group || info.role == Role::list) {
      node.children = std::move(inside);
    }
  }
  // The items of a list are its own, also where they scroll.
  if (info.role == Role::list && node.children.size() == 1 &&
      node.children.front().role == Role::scrollArea) {
    node.children = std::exchange(node.children.front().children, {});
  }
  if (info.role != Role::none) node.role = info.role;
  if (info.label) node.name = *info.label;
  if (info.value) node.value = *info.value;
  if (info.description) node.description = *info.description;
  if (info.checked) node.checked = info.checked;
  if (info.selected) node.selected = info.selected;
  if (info.number) {
    node.number = info.number;
    node.adjustable = info.setNumber && node.enabled;
  }
  out.push_back(std::move(node));
}

bool AccessibilityInfoNode::setNumber(std::uint64_t element, double number) {
  const Accessibility& info = value().info;
  if (!info.number || info.hidden) return false;
  std::vector<AccessibilityNode> told;
  describe(told);
  if (told.front().id != element) return false;
  const auto [least, most] = std::pair(info.number->least, info.number->most);
  const NumberSetter set = info.setNumber;  // it may end this view
  if (told.front().adjustable && std::isfinite(number)) {
    set(std::clamp(number, least, std::max(least, most)));
  }
  return true;
}

class IdNode;

class IdValue final : public ModifierValue<IdValue, IdNode> {
 public:
  IdValue(View givenChild, std::string givenId)
      : ModifierValue(std::move(givenChild)), id(std::move(givenId)) {}
  std::string id;
};

class IdNode final : public ModifierNode<IdValue> {
 public:
  using ModifierNode::ModifierNode;
  bool accepts(const View& next) const override { return valueOf(next).id == value().id; }
  const std::string* identifier() const override { return &value().id; }
  std::string debugName() const override { return "Id"; }
};

class PopoverNode;

class PopoverValue final : public ModifierValue<PopoverValue, PopoverNode> {
 public:
  PopoverValue(View givenChild, Binding<bool> givenIsPresented, View givenContent,
               HorizontalAlignment givenAlignment)
      : ModifierValue(std::move(givenChild)),
        isPresented(std::move(givenIsPresented)),
        shown(this->isPresented.get()),
        content(std::move(givenContent)),
        alignment(givenAlignment) {}
  Binding<bool> isPresented;
  bool shown;  // as it was when the view was made
  View content;
  HorizontalAlignment alignment;
};

class PopoverNode final : public ModifierNode<PopoverValue> {
 public:
  using ModifierNode::ModifierNode;
  ~PopoverNode() override { tree().popovers().hide(*this); }
  void mount() override {
    ModifierNode::mount();
    if (!value().shown) return;
    tree().later(*this, [this] {
      if (value().shown)
        tree().popovers().show(*this, value().content, dismissal(), value().alignment);
    });
  }
  void update(const View& next) override {
    const View was = view();
    const PopoverValue& now = valueOf(next);
    const bool wasShown = valueOf(was).shown;
    setView(next);
    setChild(now.child);
    if (now.shown && wasShown) tree().popovers().update(*this, now.content, dismissal());
    if (now.shown && !wasShown)
      tree().popovers().show(*this, now.content, dismissal(), now.alignment);
    if (!now.shown && wasShown) tree().popovers().hide(*this);
  }
  bool hasMemory() const override { return value().shown; }
  std::string debugName() const override { return "Popover"; }

 protected:
  void environmentChanged(const Environment&) override {
    tree().popovers().setEnvironment(*this, childEnvironment());
  }

 private:
  std::function<void()> dismissal() {
    return [binding = value().isPresented] { binding.set(false); };
  }
};

}  // namespace

View modify::environment(View view, std::function<void(Environment&)> change) {
  return View::make<EnvironmentValue>(std::move(view), std::move(change));
}

View modify::onAppear(View view, std::function<void()> action) {
  return View::make<LifeValue>(std::move(view), std::move(action), nullptr);
}

View modify::onDisappear(View view, std::function<void()> action) {
  return View::make<LifeValue>(std::move(view), nullptr, std::move(action));
}

View modify::onChange(View view, const void* type, std::shared_ptr<const modify::Watched> watched) {
  return View::make<ChangeValue>(std::move(view), type, std::move(watched));
}

View modify::accessibility(View view, Accessibility info) {
  return View::make<AccessibilityValue>(std::move(view), std::move(info));
}

View modify::accessibilityLabel(View view, std::string label) {
  Accessibility info;
  info.label = std::move(label);
  return accessibility(std::move(view), std::move(info));
}

View modify::id(View view, std::string id) {
  return View::make<IdValue>(std::move(view), std::move(id));
}

View modify::popover(View view, Binding<bool> isPresented, View content,
                     HorizontalAlignment alignment) {
  return View::make<PopoverValue>(std::move(view), std::move(isPresented), std::move(content),
                                  alignment);
}

}  // namespace zq
