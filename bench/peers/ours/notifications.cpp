// ZQSwiftUI, MIT licence; see LICENSE.
#include <QCoreApplication>
#include <atomic>
#include <thread>
#include <zqswiftui/bindings/zq_notificable_percentage_view.hpp>
#include <zqswiftui/platform/base/zq_notify.hpp>

#include "media.hpp"
#include "scene.hpp"

// Numbers posted by eight threads at once, until the last of them is on the screen; meanwhile the
// window runs its frames as fast as it can.
namespace bench {
namespace {

constexpr int kThreads = 8;

void postAll(int n, std::atomic<int>& left) {
  for (int i = 1; i <= n; ++i) zq::ZQNotify::notify("media", i / double(n));
  --left;
}

}  // namespace

void notifications(const Arguments& arguments) {
  const int n = arguments.n();
  Window window(zq::ZQNotificablePercentageView({.key = "media"}));
  window.frame();
  Series longest;
  double end = 0;
  const auto frame = [&] {
    const zq::WorkCounts before = window.host().counts();
    const Timer timer;
    QCoreApplication::processEvents();
    window.frame();
    const zq::WorkCounts after = window.host().counts();
    check(after.bodies - before.bodies <= 2, "M4 the view and its bar, once a frame");
    return timer.ms();
  };
  const Series all = repeated([&](int r) {
    std::atomic<int> left{kThreads};
    std::vector<std::thread> threads;
    double most = 0;
    const Timer timer;
    for (int t = 0; t < kThreads; ++t) {
      threads.emplace_back([&] { postAll(n / kThreads, left); });
    }
    while (left > 0) most = std::max(most, frame());
    for (std::thread& thread : threads) thread.join();
    end = r % 2 ? 0.25 : 0.75;
    zq::ZQNotify::notify("media", end);
    frame();
    const double ms = timer.ms();
    check(window.host().displayListText().find(end < 0.5 ? "25 %" : "75 %") != std::string::npos,
          "M4 the last value shows");
    if (r >= 0) longest.add(most);
    return ms;
  });
  report("M4", n, all, "all of them posted, and the last painted");
  report("M4-longest", n, longest, "the longest frame meanwhile");
  if (!arguments.png().empty()) window.image().save(QString::fromStdString(arguments.png()));
}

}  // namespace bench
