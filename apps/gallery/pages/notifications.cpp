// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <zqswiftui/bindings/zq_notificable_image_view.hpp>
#include <zqswiftui/bindings/zq_notificable_percentage_view.hpp>
#include <zqswiftui/bindings/zq_notificable_text_view.hpp>
#include <zqswiftui/platform/base/zq_notify.hpp>

namespace zq::gallery {
namespace {

constexpr int kPictures = 240;
constexpr int kPostsEach = 100;
constexpr auto kPause = std::chrono::milliseconds(25);

// Waves from a dark blue to a pale coral.
std::optional<ZQImage> wavesAt(double time) {
  constexpr int kWidth = 192, kHeight = 108;
  std::vector<std::uint8_t> rgba;
  rgba.reserve(std::size_t{4} * kWidth * kHeight);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const double wave = std::sin(x / 31.0 + time) +
                          std::sin(y / 23.0 - time / 2) +
                          std::sin((x + y) / 41.0 + time / 3);
      const double height = 0.5 + wave / 6;
      for (const auto& [deep, high] :
          {std::pair(52, 252), std::pair(62, 168), std::pair(138, 130)}) {
        rgba.push_back(
            static_cast<std::uint8_t>(deep + (high - deep) * height));
      }
      rgba.push_back(255);
    }
  }
  return ZQImage::fromPixels({kWidth, kHeight, std::move(rgba)});
}

// [code]
// Knows no view: it posts under three names what it is doing.
struct Worker : ObservableObject {
  Published<bool> running{this, false};

  void turn() {
    if (running) return void(thread.request_stop());
    thread = {};  // the last one has come to its end
    running = true;
    thread = std::jthread([this](const std::stop_token& asked) {
      for (int i = 1; i <= kPictures && !asked.stop_requested(); ++i) {
        work(i);
        std::unique_lock lock(mutex);
        pause.wait_for(lock, asked, kPause, [] { return false; });
      }
      if (asked.stop_requested()) {
        ZQNotify::notify("worker.status", "Stopped");
      }
      running = false;
    });
  }

  static void work(int i) {
    for (int part = 1; part <= kPostsEach; ++part) {
      const double done = i - 1 + part / double{kPostsEach};
      ZQNotify::notify("worker.progress", done / kPictures);
    }
    ZQNotify::notify("worker.preview", wavesAt(i / 20.0));
    ZQNotify::notify("worker.status", "Picture " + std::to_string(i) +
                                          " of " +
                                          std::to_string(kPictures));
  }

 private:
  std::mutex mutex;
  std::condition_variable_any pause;
  std::jthread thread;
};

View preview(double width) {
  return ZQNotificableImageView("worker.preview")
      .frame(width, width * 9 / 16)
      .background(Color::gray().opacity(0.15))
      .clipShape(RoundedRectangle(8))
      .accessibility({.role = Role::image, .label = "Preview"});
}

struct Notifications {
  View body(Context& context) const {
    const auto worker =
        *context.stateOf([] { return std::make_shared<Worker>(); });
    const bool running = context.observe(worker).running;
    auto more = context.state(false);
    const auto column = [](std::vector<View> all) {
      return VStack(
          {.alignment = HorizontalAlignment::leading, .spacing = 12},
          std::move(all));
    };
    const View status = column({ZQNotificableTextView("worker.status"),
        ZQNotificablePercentageView({.key = "worker.progress"})
            .frame({.width = 240})
            .accessibilityLabel("Pictures made"),
        PushButton(
            running ? "Stop" : "Start", [worker] { worker->turn(); })});
    const View again = HStack({.spacing = 16},
        {preview(96), ZQNotificableTextView("worker.status")});
    return cards(
        {
            card("From a thread of its own",
                samples({preview(240), status})),
            card("A hundred numbers for each picture, one redraw a frame",
                column({ZQNotificablePercentageView(
                            {.key = "worker.progress",
                                .foregroundColor = Color::orange()})
                            .frame({.width = 352})
                            .accessibilityLabel("Pictures made, in orange"),
                    note("Whoever names the same keyword shows the "
                         "same.")})),
            card("What comes later begins with the last text and picture",
                column({PushButton(*more ? "Take away" : "Show now",
                            [more] { more.set(!*more); }),
                    *more ? again : View()})),
        })
        .onAppear([] { Worker::work(kPictures / 3); });
  }
};
// [/code]

}  // namespace

GalleryPage pages::notifications() {
  GalleryPage made = page<Notifications>("Values", "Notifications",
      "A worker posts texts, pictures and numbers; views show the last.");
  made.settles = 0.5;
  return made;
}

}  // namespace zq::gallery
