// ZQSwiftUI, MIT licence; see LICENSE.
#include <mutex>
#include <utility>
#include <zqswiftui/images/zq_an_image.hpp>
#include <zqswiftui/platform/base/image_cache.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>

namespace zq {
namespace {

constexpr double kFrameInterval = 1.0 / 30;
constexpr int kDigits = 5;

}  // namespace

ZQAnImageView::ZQAnImageView(std::string prefix) : prefix_(std::move(prefix)) {}

// Apart from the animation, so that reading never holds it: it ends on the interface thread.
struct ZQAnimImage::Frames {
  mutable std::mutex mutex;
  std::vector<Image> list;
  bool complete = false;

  void append(ZQImage picture) {
    const std::lock_guard lock(mutex);
    list.emplace_back(std::move(picture));
  }
  void end() {
    const std::lock_guard lock(mutex);
    complete = true;
  }
  std::size_t size() const {
    const std::lock_guard lock(mutex);
    return list.size();
  }
  Image at(std::size_t index) const {
    const std::lock_guard lock(mutex);
    return list[index];
  }
  // Whether no other frame than that one will ever be there.
  bool endsWith(std::size_t shown) const {
    const std::lock_guard lock(mutex);
    return complete && (list.empty() || (list.size() == 1 && shown == 0));
  }
};

ZQAnimImage::ZQAnimImage(std::string givenPrefix)
    : prefix(std::move(givenPrefix)), image(this), frames_(std::make_shared<Frames>()) {}

std::shared_ptr<ZQAnimImage> ZQAnimImage::create(std::string prefix) {
  std::shared_ptr<ZQAnimImage> made(new ZQAnimImage(std::move(prefix)));
  load(made->frames_.pointer(), made, made->prefix, 0);
  made->runTimer();
  return made;
}

std::vector<Image> ZQAnimImage::imageList() const {
  const std::lock_guard lock(frames_->mutex);
  return frames_->list;
}

// A frame a piece, so that a long animation does not keep a thread from other pictures.
void ZQAnimImage::load(std::weak_ptr<Frames> frames, std::weak_ptr<ZQAnimImage> shown,
                       std::string prefix, std::size_t number) {
  Queue::executeHeavy([frames = std::move(frames), shown = std::move(shown),
                       prefix = std::move(prefix), number]() mutable {
    if (frames.expired()) return;
    const std::string name = prefix + strUt_padN(static_cast<std::int64_t>(number), kDigits);
    std::optional<ZQImage> picture = ImageCache::getImage(name);
    const auto held = frames.lock();
    if (!held) return;
    if (picture) {
      held->append(std::move(*picture));
      return load(std::move(frames), std::move(shown), std::move(prefix), number + 1);
    }
    held->end();
    XMain::post([shown = std::move(shown)] {
      if (const auto self = shown.lock()) self->runTimer();
    });
  });
}

void ZQAnimImage::setVisible(bool visible) {
  visible_ = visible;
  runTimer();
}

void ZQAnimImage::setReducedMotion(bool reduced) {
  reducedMotion_ = reduced;
  runTimer();
}

bool ZQAnimImage::standsStill() const {
  if (!visible_) return true;
  return (reducedMotion_ && shown_ == 0) || frames_->endsWith(shown_);
}

void ZQAnimImage::runTimer() {
  if (standsStill()) return timer_.stop();
  if (timer_.isActive()) return;
  timer_.loop("", kFrameInterval, std::nullopt, false, [weak = weak_from_this(), frames = frames_] {
    if (frames->size() == 0) return;
    XMain::execute([weak] {
      if (const auto self = weak.lock()) self->showNext();
    });
  });
}

void ZQAnimImage::showNext() {
  const std::size_t shown = reducedMotion_ ? 0 : currentImage_;
  const std::size_t next = shown + 1;
  currentImage_ = next < frames_->size() ? next : 0;
  if (std::exchange(shown_, shown) != shown) image = frames_->at(shown);
  runTimer();
}

namespace {

struct AnimationPlayer {
  std::string prefix;

  View body(Context& context) const {
    const auto animation = *context.stateOf([this] { return ZQAnimImage::create(prefix); });
    animation->setReducedMotion(context.environment<ReducedMotionKey>());
    const std::optional<Image> frame = context.observe(animation).image.get();
    const View picture = frame ? View(frame->resizable(false)) : View();
    return picture.onVisibility([animation](bool visible) { animation->setVisible(visible); });
  }
  bool operator==(const AnimationPlayer&) const = default;
};

}  // namespace

View ZQAnImageView::body(Context&) const {
  // Another prefix is another animation.
  return View(AnimationPlayer{prefix_}).id(prefix_);
}

}  // namespace zq
