// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A picture that a closure computes, kept under an id until the program ends: nothing removes
// it, so take ids from a set that does not grow without end. The closures of all ids run one
// after another, in the order in which they were first asked for, in the background, where they
// may take their time. One that yields no picture leaves the status at computing for ever;
// `failed` is never reached. Held by its list and by the views that show it.
class ZQDeferredImageVM : public ObservableObject,
                          public std::enable_shared_from_this<ZQDeferredImageVM> {
 public:
  enum class Status : unsigned char { startup, computing, ready, failed };
  using Compute = std::function<std::optional<ZQImage>()>;

  // The one of that id. It is made when the id is new, and its closure then runs in the
  // background, once for the life of the program; else the closure given here is not used. A
  // null closure yields no picture. Interface thread only.
  static std::shared_ptr<ZQDeferredImageVM> withId(const std::string& id, Compute compute);

  const std::string id;
  Published<Status> status{this, Status::startup};
  // There before the status says ready; both change on the interface thread.
  Published<std::optional<Image>> image_;

 private:
  ZQDeferredImageVM(std::string givenId, Compute compute);
  void start();
  void run();
  Compute compute_;  // until it runs: what it holds goes with its run
};

// The picture of an id, fitted into the room that is offered with its proportions kept; a gray
// spinner, at `scale` times its natural size, until it is there. A view that is built when the
// picture is there shows it at once.
//   ZQDeferredImageView({.id = "cover 7", .scale = 0.5, .compute = [book] { return cover(book); }})
class ZQDeferredImageView : public ViewModifiers<ZQDeferredImageView> {
 public:
  struct Parameters {
    Required<std::string> id;
    Required<double> scale;  // negative or not finite: as zero
    Required<ZQDeferredImageVM::Compute> compute;
  };
  // Interface thread only.
  explicit ZQDeferredImageView(Parameters parameters);

  View body(Context& context) const;
  bool operator==(const ZQDeferredImageView&) const = default;

 private:
  Shared<ZQDeferredImageVM> image_;
  double scale_;
};

}  // namespace zq
