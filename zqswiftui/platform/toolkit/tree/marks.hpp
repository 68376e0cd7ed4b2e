// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>
#include <zqswiftui/platform/toolkit/animation.hpp>
#include <zqswiftui/platform/toolkit/view_host.hpp>

namespace zq {

class ComponentNode;
class MarkInbox;

namespace detail {

// Says from any thread that a component must be evaluated. Outlives the component: states and
// observed objects hold it.
class ViewMark : public std::enable_shared_from_this<ViewMark> {
 public:
  ViewMark(std::shared_ptr<MarkInbox> inbox, ComponentNode* node)
      : inbox_(std::move(inbox)), node_(node) {}

  void mark();  // any thread; queued once until it is taken

  // Interface thread.
  ComponentNode* node() const { return node_; }
  void detach() { node_ = nullptr; }
  // Taken from the inbox and not evaluated since: a parent's body may have done it already.
  bool due() const { return due_; }
  void evaluated() { due_ = false; }

 private:
  friend class zq::MarkInbox;
  std::shared_ptr<MarkInbox> inbox_;
  ComponentNode* node_;
  bool due_ = false;
  std::atomic<bool> queued_{false};
  std::optional<Animation> animation_;  // under the inbox's lock while queued
};

}  // namespace detail

// The marks that wait for the next frame, and the one call that asks the host for it.
class MarkInbox {
 public:
  explicit MarkInbox(HostDelegate& host) : host_(&host) {}

  void wake();   // any thread
  void close();  // the host goes: nobody is woken any more
  // What is asked for between the two is part of this frame; the host is asked for the next one
  // only where something is left.
  void beginFrame();
  void endFrame(bool more);
  bool pending() const;
  void add(const std::shared_ptr<detail::ViewMark>& mark, const std::optional<Animation>& how);
  // Moves out what waits, marks with an animation apart from those without.
  struct Batch {
    std::vector<std::shared_ptr<detail::ViewMark>> plain;
    std::vector<std::pair<Animation, std::vector<std::shared_ptr<detail::ViewMark>>>> animated;
    bool empty() const { return plain.empty() && animated.empty(); }
  };
  Batch take();

 private:
  mutable std::mutex mutex_;
  HostDelegate* host_;
  bool woken_ = false;
  std::vector<std::shared_ptr<detail::ViewMark>> marks_;
};

}  // namespace zq
