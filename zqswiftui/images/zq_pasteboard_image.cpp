// ZQSwiftUI, MIT licence; see LICENSE.
#include <cstdint>
#include <memory>
#include <utility>
#include <zqswiftui/images/zq_pasteboard_image.hpp>
#include <zqswiftui/platform/base/timer.hpp>
#include <zqswiftui/platform/base/zq_pasteboard.hpp>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>

namespace zq {
namespace {

constexpr double kLookInterval = 0.5;

// Looks at the pasteboard as long as it is told that somebody looks at what it finds.
class PasteboardFollower : public ObservableObject,
                           public std::enable_shared_from_this<PasteboardFollower> {
 public:
  static std::shared_ptr<PasteboardFollower> create() {
    auto made = std::make_shared<PasteboardFollower>();
    made->setVisible(true);
    return made;
  }

  Published<std::optional<ZQImage>> picture{this};
  // Anew with each look as long as it is on the pasteboard, which no frame is drawn for.
  const std::optional<ZQImage>& latest() const { return latest_; }

  void setVisible(bool visible) {
    if (!visible) return timer_.stop();
    if (timer_.isActive()) return;
    timer_.loop("", kLookInterval, std::nullopt, false, [this] { look(); });
  }

 private:
  void look() {
    const std::uint64_t change = Platform::current().pasteboard().changeCount();
    if (change == shown_) {
      latest_ = latest_->again();
      return;
    }
    // Its owner may be slow: one question at a time to each.
    if (change == asked_) return;
    asked_ = change;
    ZQPasteboard::getImage([weak = weak_from_this(), change](std::optional<ZQImage> found) {
      if (const auto self = weak.lock()) self->take(std::move(found), change);
    });
  }

  void take(std::optional<ZQImage> found, std::uint64_t change) {
    if (asked_ == change) asked_.reset();
    if (!found || shown_ > change) return;
    shown_ = change;
    latest_ = found;
    picture = std::move(found);
  }

  ZQTimer timer_;
  std::optional<std::uint64_t> asked_;  // the change that an answer is awaited for
  std::optional<std::uint64_t> shown_;
  std::optional<ZQImage> latest_;
};

}  // namespace

ZQPasteboardImage::ZQPasteboardImage(Parameters parameters) : parameters_(std::move(parameters)) {}

View ZQPasteboardImage::body(Context& context) const {
  const auto follower = *context.stateOf([] { return PasteboardFollower::create(); });
  const std::optional<ZQImage> picture = context.observe(follower).picture.get();
  View view;
  if (picture) {
    view = Image(*picture).resizable(false).accessibilityLabel("Picture on the pasteboard");
    if (parameters_.maxSize) {
      view = view.frame(parameters_.maxSize->width, parameters_.maxSize->height);
    }
    if (parameters_.tappedCallback) {
      view = view.onTap(
          [tapped = parameters_.tappedCallback, follower] { tapped(*follower->latest()); });
    }
  }
  return view.onVisibility([follower](bool visible) { follower->setVisible(visible); });
}

}  // namespace zq
