// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/base/timer.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// An endless loop of frames, thirty a second. The frames are picture resources of the
// application whose names are the prefix and a number of five digits: spin00000, spin00001 and
// so on, up to the first number that is missing. They are read in the background, join the loop
// as they come, and stay as long as this object; objects of one prefix share them. Ticks that
// come late are dropped. Where there is nothing to turn to any more, no timer runs: while it
// cannot be seen, where reduced motion lets the first frame stand still, and where there is no
// second frame. Interface thread, but for imageList.
class ZQAnimImage : public ObservableObject, public std::enable_shared_from_this<ZQAnimImage> {
 public:
  static std::shared_ptr<ZQAnimImage> create(std::string prefix);

  const std::string prefix;
  Published<std::optional<Image>> image;  // the frame that is shown now

  std::vector<Image> imageList() const;                       // those read so far; any thread
  std::size_t currentImage() const { return currentImage_; }  // the frame that comes next

  void setVisible(bool visible);  // at first it is taken to be
  void setReducedMotion(bool reduced);

 private:
  static constexpr std::size_t none = static_cast<std::size_t>(-1);
  struct Frames;
  explicit ZQAnimImage(std::string givenPrefix);
  static void load(std::weak_ptr<Frames> frames, std::weak_ptr<ZQAnimImage> shown,
                   std::string prefix, std::size_t number);
  void runTimer();
  bool standsStill() const;
  void showNext();

  Shared<Frames> frames_;
  ZQTimer timer_{std::nullopt};
  std::size_t currentImage_ = 0;
  std::size_t shown_ = none;
  bool visible_ = true;
  bool reducedMotion_ = false;
};

// The animation of a prefix, stretched to all the room that it is offered; nothing while there
// is no frame. Each view plays its own from the first frame on.
//   ZQAnImageView("spin").frame(64, 64)
class ZQAnImageView : public ViewModifiers<ZQAnImageView> {
 public:
  explicit ZQAnImageView(std::string prefix);

  View body(Context& context) const;
  bool operator==(const ZQAnImageView&) const = default;

 private:
  std::string prefix_;
};

}  // namespace zq
