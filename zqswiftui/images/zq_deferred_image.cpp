// ZQSwiftUI, MIT licence; see LICENSE.
#include <unordered_map>
#include <utility>
#include <zqswiftui/images/waiting_indicator.hpp>
#include <zqswiftui/images/zq_deferred_image.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/services/require.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>

namespace zq {
namespace {

using DeferredById = std::unordered_map<std::string, std::shared_ptr<ZQDeferredImageVM>>;

// Neither is destroyed: what the program's closures hold may need what has gone by then.
DeferredById& deferredImages() {
  static auto* const all = new DeferredById;
  return *all;
}

SerialQueue& computing() {
  static auto* const one = new SerialQueue("vendel.zqdeferredimagevm", SerialQueue::Kind::heavy);
  return *one;
}

}  // namespace

ZQDeferredImageVM::ZQDeferredImageVM(std::string givenId, Compute compute)
    : id(std::move(givenId)), image_(this), compute_(std::move(compute)) {}

std::shared_ptr<ZQDeferredImageVM> ZQDeferredImageVM::withId(const std::string& id,
                                                             Compute compute) {
  ZQ_REQUIRE(Platform::current().mainQueue().isMainThread(),
             "ZQDeferredImageVM: asked for on a thread that is not the interface thread");
  const auto known = deferredImages().find(id);
  if (known != deferredImages().end()) return known->second;
  std::shared_ptr<ZQDeferredImageVM> made(new ZQDeferredImageVM(id, std::move(compute)));
  made->start();
  deferredImages().emplace(id, made);
  return made;
}

void ZQDeferredImageVM::start() {
  status = Status::computing;
  computing().post([weak = weak_from_this()] {
    if (const auto self = weak.lock()) self->run();
  });
}

void ZQDeferredImageVM::run() {
  const Compute compute = std::exchange(compute_, nullptr);
  std::optional<ZQImage> picture = compute ? compute() : std::nullopt;
  if (!picture) return;
  XMain::execute([weak = weak_from_this(), picture = std::move(*picture)] {
    const auto self = weak.lock();
    if (!self) return;
    self->image_ = Image(picture);
    self->status = Status::ready;
  });
}

ZQDeferredImageView::ZQDeferredImageView(Parameters parameters)
    : image_(ZQDeferredImageVM::withId(parameters.id, std::move(parameters.compute))),
      scale_(parameters.scale) {}

View ZQDeferredImageView::body(Context& context) const {
  if (const auto picture = context.observe(image_).image_.get()) return picture->resizable();
  return waitingIndicator(scale_);
}

}  // namespace zq
