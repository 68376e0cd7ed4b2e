// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/toolkit/tree/marks.hpp>

namespace zq {

void detail::ViewMark::mark() {
  const std::optional<Animation> how = currentAnimation();
  if (queued_.exchange(true) && !how) return;
  inbox_->add(shared_from_this(), how);
}

void MarkInbox::add(const std::shared_ptr<detail::ViewMark>& mark,
                    const std::optional<Animation>& how) {
  const std::scoped_lock lock(mutex_);
  if (!host_) return;
  bool known = false;
  if (how) {
    for (const auto& m : marks_) known = known || m == mark;
  }
  mark->animation_ = how;
  if (!known) marks_.push_back(mark);
  if (woken_) return;
  woken_ = true;
  host_->frameRequested();
}

void MarkInbox::wake() {
  const std::scoped_lock lock(mutex_);
  if (woken_ || !host_) return;
  woken_ = true;
  host_->frameRequested();
}

void MarkInbox::close() {
  // They hold this inbox, as it holds them.
  std::vector<std::shared_ptr<detail::ViewMark>> dropped;
  const std::scoped_lock lock(mutex_);
  host_ = nullptr;
  dropped.swap(marks_);
}

void MarkInbox::beginFrame() {
  const std::scoped_lock lock(mutex_);
  woken_ = true;
}

void MarkInbox::endFrame(bool more) {
  const std::scoped_lock lock(mutex_);
  woken_ = host_ && (more || !marks_.empty());
  if (woken_) host_->frameRequested();
}

bool MarkInbox::pending() const {
  const std::scoped_lock lock(mutex_);
  return woken_ || !marks_.empty();
}

MarkInbox::Batch MarkInbox::take() {
  Batch batch;
  const std::scoped_lock lock(mutex_);
  for (auto& mark : marks_) {
    // Cleared before the body reads anything: a change that comes now marks again.
    mark->queued_.store(false);
    mark->due_ = true;
    if (!mark->animation_) {
      batch.plain.push_back(std::move(mark));
      continue;
    }
    auto same = batch.animated.begin();
    while (same != batch.animated.end() && !(same->first == *mark->animation_)) ++same;
    if (same == batch.animated.end()) {
      batch.animated.push_back({*mark->animation_, {}});
      same = std::prev(batch.animated.end());
    }
    same->second.push_back(std::move(mark));
  }
  marks_.clear();
  return batch;
}

}  // namespace zq
