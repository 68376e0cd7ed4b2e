// ZQSwiftUI, MIT licence; see LICENSE.
#include <unordered_map>
#include <utility>
#include <zqswiftui/controls/zq_labeled_spinner.hpp>
#include <zqswiftui/images/waiting_indicator.hpp>
#include <zqswiftui/images/zq_concurrent_deferred_image.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/services/require.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>

namespace zq {
namespace {

using ListById = std::unordered_map<std::string, std::shared_ptr<ZQConcurrentDeferredImageVM>>;

// Neither is destroyed: what the program's closures hold may need what has gone by then.
ListById& list() {
  static auto* const all = new ListById;
  return *all;
}

// Orders the starts; the computations go on beside each other.
SerialQueue& queue() {
  static auto* const one = new SerialQueue("vendel.ZQConcurrentDeferredImageVM");
  return *one;
}

}  // namespace

ZQConcurrentDeferredImageVM::ZQConcurrentDeferredImageVM(std::string givenId, Compute compute)
    : id(std::move(givenId)), image_(this), compute_(std::move(compute)) {}

std::shared_ptr<ZQConcurrentDeferredImageVM> ZQConcurrentDeferredImageVM::withId(
    const std::string& id, Compute compute) {
  ZQ_REQUIRE(Platform::current().mainQueue().isMainThread(),
             "ZQConcurrentDeferredImageVM: asked for on a thread that is not the interface thread");
  const auto known = list().find(id);
  if (known != list().end()) return known->second;
  Shared made(new ZQConcurrentDeferredImageVM(id, std::move(compute)));
  detach(begin(made));
  list().emplace(id, made);
  return made;
}

Task<void> ZQConcurrentDeferredImageVM::begin(Shared self) {
  XMain::execute([self] { self->status = Status::computing; });
  queue().post([self] { detach(run(self)); });
  co_return;
}

Task<void> ZQConcurrentDeferredImageVM::run(Shared self) {
  const Compute compute = std::exchange(self->compute_, nullptr);
  if (!compute) co_return;
  Task<std::optional<ZQImage>> computing = compute();
  std::optional<ZQImage> picture = co_await std::move(computing);
  if (!picture) co_return;
  XMain::execute([weak = std::weak_ptr(self), picture = std::move(*picture)] {
    const auto shown = weak.lock();
    if (!shown) return;
    shown->image_ = Image(picture);
    shown->status = Status::ready;
  });
}

ZQConcurrentDeferredImageView::ZQConcurrentDeferredImageView(Parameters parameters)
    : image_(ZQConcurrentDeferredImageVM::withId(parameters.id, std::move(parameters.compute))),
      scale_(parameters.scale),
      customProgress_(parameters.customProgress) {}

View ZQConcurrentDeferredImageView::body(Context& context) const {
  if (const auto picture = context.observe(image_).image_.get()) return picture->resizable();
  if (!customProgress_) return waitingIndicator(scale_);
  return ZQLabeledSpinner(
      {.label = "", .color = customProgress_->color, .side = 32, .n = customProgress_->n});
}

}  // namespace zq
