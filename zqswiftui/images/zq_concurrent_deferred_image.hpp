// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/base/task.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A picture that an asynchronous closure computes, kept under an id until the program ends, as
// ZQDeferredImageVM does; the two know nothing of each other's ids. The closures begin in the
// order in which they were first asked for, and then run side by side on the background
// executor, as many as it has threads. One that yields no picture leaves the status at
// computing for ever; `failed` is never reached. Held by its list, its views and, while it
// computes, by its task.
class ZQConcurrentDeferredImageVM
    : public ObservableObject,
      public std::enable_shared_from_this<ZQConcurrentDeferredImageVM> {
 public:
  enum class Status : unsigned char { startup, computing, ready, failed };
  // Called on the background executor. It is kept until its task has ended, so it may be a
  // coroutine itself that captures.
  using Compute = std::function<Task<std::optional<ZQImage>>()>;

  // The one of that id. It is made when the id is new, and its closure then runs in the
  // background, once for the life of the program; else the closure given here is not used. A
  // null closure yields no picture. Interface thread only.
  static std::shared_ptr<ZQConcurrentDeferredImageVM> withId(const std::string& id,
                                                             Compute compute);

  const std::string id;
  // Still at startup when the first view is built: all changes are posted to the interface
  // thread.
  Published<Status> status{this, Status::startup};
  // There before the status says ready.
  Published<std::optional<Image>> image_;

 private:
  using Shared = std::shared_ptr<ZQConcurrentDeferredImageVM>;
  ZQConcurrentDeferredImageVM(std::string givenId, Compute compute);
  static Task<void> begin(Shared self);
  static Task<void> run(Shared self);
  Compute compute_;  // until it runs: what it holds goes with its run
};

// The picture of an id, fitted into the room that is offered with its proportions kept. Until
// it is there, the custom progress: a spinner of 32 points in that colour with n elements; or
// else a gray spinner at `scale` times its natural size. The scale means nothing to the former.
//   ZQConcurrentDeferredImageView({.id = "map", .scale = 1, .compute = [] { return drawMap(); }})
class ZQConcurrentDeferredImageView : public ViewModifiers<ZQConcurrentDeferredImageView> {
 public:
  struct CustomProgress {
    Color color;
    int n = 8;  // bounded to 1 to 64
    bool operator==(const CustomProgress&) const = default;
  };
  struct Parameters {
    Required<std::string> id;
    Required<double> scale;  // negative or not finite: as zero
    std::optional<CustomProgress> customProgress = std::nullopt;
    Required<ZQConcurrentDeferredImageVM::Compute> compute;
  };
  // Interface thread only.
  explicit ZQConcurrentDeferredImageView(Parameters parameters);

  View body(Context& context) const;
  bool operator==(const ZQConcurrentDeferredImageView&) const = default;

 private:
  Shared<ZQConcurrentDeferredImageVM> image_;
  double scale_;
  std::optional<CustomProgress> customProgress_;
};

}  // namespace zq
