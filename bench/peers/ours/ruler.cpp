// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/layout/zq_ruler_view.hpp>
#include <zqswiftui/platform/toolkit/text_canvas.hpp>

#include "media.hpp"
#include "scene.hpp"

// A ruler at full zoom that is panned: in a scroll view, and by another range.
namespace bench {
namespace {

struct RulerOfRange {
  std::shared_ptr<Shown<zq::ZQTimeRange>> shown;
  zq::View body(zq::Context& context) const {
    return zq::ZQRulerView(context.observe(shown).value.get())
        .frame({.height = kRulerHeight})
        .flexFrame({.maxHeight = zq::kInfinity, .alignment = zq::Alignment::top()});
  }
};

zq::View scrolledRuler(int seconds) {
  return zq::ScrollView(
      zq::ZQRulerView({0, static_cast<double>(seconds)}).frame(rulerWidth(seconds), kRulerHeight),
      zq::ScrollAxes::horizontal);
}

// How many labels are drawn.
int labelsShown(Window& window) {
  zq::TextCanvas canvas;
  window.host().paintAll(canvas);
  const std::string text = canvas.text();
  int labels = 0;
  for (std::size_t at = 0; (at = text.find("text ", at)) != std::string::npos; ++at) ++labels;
  return labels;
}

}  // namespace

void ruler(const Arguments& arguments) {
  const int n = arguments.n();
  report("M1-open", n, repeated([&](int) {
           const Timer timer;
           Window window(scrolledRuler(n));
           window.frame();
           return timer.ms();
         }));

  Window scrolled(scrolledRuler(n));
  scrolled.frame();
  double at = 0;
  reportPan("M1", n, [&](double to) {
    scrolled.host().wheel({{500, 20}, to - at, 0});
    at = to;
    scrolled.frame();
  });
  scrolled.checkComplete("M1 frame complete");
  check(labelsShown(scrolled) >= 12, "M1 labels shown");

  const double start = n / 2.0;
  const auto shown =
      std::make_shared<Shown<zq::ZQTimeRange>>(zq::ZQTimeRange{start, start + kSeenSeconds});
  Window ranged(RulerOfRange{shown});
  ranged.frame();
  reportPan("M1-range", n, [&](double to) {
    const double from = start + to * (kTickSeconds / kTickPoints);
    shown->value = zq::ZQTimeRange{from, from + kSeenSeconds};
    ranged.frame();
  });
  ranged.checkComplete("M1-range frame complete");
  check(labelsShown(ranged) >= 11, "M1-range labels shown");
  if (!arguments.png().empty()) scrolled.image().save(QString::fromStdString(arguments.png()));
}

}  // namespace bench
