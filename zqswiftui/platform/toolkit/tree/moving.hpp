// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {

// What a node shows of a value of its own: the value, or a place on the way to it for as long as
// a change of it is animated. A member of the node.
template <class T>
class Moving {
 public:
  bool underWay() const { return way_ != nullptr; }
  const T& shown(const T& value) const { return way_ ? way_->shown : value; }

  // The value changes from one to the other: sets out where the change is animated, ends what is
  // under way where it is not. `step` is called whenever another place is shown from then on.
  void change(Node& node, const T& from, const T& to, std::function<void()> step) {
    change(node, from, to, std::move(step), node.animation());
  }
  // The same for a node that has an animation of its own.
  void change(Node& node, const T& from, const T& to, std::function<void()> step,
              const std::optional<Animation>& animation) {
    if (!way_ && !animation) return;
    Tree& tree = node.tree();
    const double now = tree.now();
    const Motion<T> motion =
        animation ? Motion<T>{shown(from), to, now, *animation} : Motion<T>::at(to, now);
    if (way_) return void(*way_ = {motion, motion.shown(now)});
    way_ = std::make_unique<Way>(Way{motion, motion.shown(now)});
    tree.animate(node, [this, step = std::move(step)](double time) {
      way_->shown = way_->motion.shown(time);
      if (way_->motion.over(time)) way_.reset();
      step();
      return way_ != nullptr;
    });
  }

 private:
  struct Way {
    Motion<T> motion;
    T shown;
  };
  std::unique_ptr<Way> way_;
};

}  // namespace zq
