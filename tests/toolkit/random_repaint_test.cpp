// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <tests/toolkit/block.hpp>
#include <tests/toolkit/painted_host.hpp>
#include <vector>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

// A screen with a little of everything is changed at random, with and without animation, while a
// user points, scrolls and types at random: its picture must always be that of a whole repaint.

namespace zq {
namespace {

constexpr std::size_t kKnobs = 16;
using Knobs = std::array<int, kKnobs>;  // each from 0 to 5
using Handle = std::shared_ptr<std::optional<State<Knobs>>>;

View clips(const Knobs& k) {
  const View inside = VStack({.spacing = 2}, {Text("clip"), block(30, 6, Color::teal())});
  const View cornered =
      inside.frame({.width = 10.0 + 6 * k[0], .height = 24, .alignment = Alignment::topLeading()});
  const View clipped = k[1] < 2   ? cornered.clipped()
                       : k[1] < 4 ? cornered.clipShape(RoundedRectangle(k[1]))
                                  : cornered;
  return clipped.opacity(k[2] / 5.0);
}

View transformed(const Knobs& k) {
  const View pair = HStack({.spacing = 1.0 + k[3]}, {block(8, 8, Color::red()), Text("t")});
  return pair.scale(0.5 + 0.25 * k[4]).offset(3.0 * k[5] - 6, 2.0 * k[4]).padding(k[6]);
}

View layered(const Knobs& k) {
  const Alignment alignments[] = {Alignment::center(),         Alignment::topLeading(),
                                  Alignment::bottomTrailing(), Alignment::top(),
                                  Alignment::leading(),        Alignment::trailing()};
  const View front = k[7] == 0 ? View() : block(3.0 * k[7], 3, Color::blue());
  const View under = k[8] % 2 ? View(Rectangle().stroke(Color::gray())) : View(Color::yellow());
  return Text(std::string(static_cast<std::size_t>(k[8]), 'w'))
      .overlay(front, alignments[k[9]])
      .background(under)
      .font(k[10] < 4 ? Font::body() : Font::title());
}

View list(const Knobs& k) {
  std::vector<std::string> names;
  names.reserve(20);
  for (int i = 0; i < 2 + 3 * k[11]; ++i) names.push_back(std::to_string((i * (1 + k[12])) % 17));
  return ScrollView(VStack({.spacing = 0},
                           {ForEach(names, [](const std::string& name) { return Text(name); })}),
                    k[12] < 5 ? ScrollAxes::vertical : ScrollAxes::both)
      .frame({.width = 30.0 + k[12]});
}

struct Scene {
  Handle handle;
  View body(Context& context) const {
    auto knobs = context.state(Knobs{});
    *handle = knobs;
    const Knobs& k = *knobs;
    const Binding<bool> open([knobs] { return (*knobs)[13] > 3; },
                             [knobs](const bool& on) {
                               Knobs next = *knobs;
                               next[13] = on ? 5 : 0;
                               knobs.set(next);
                             });
    const View button = View(Button([] {}, Text("go " + std::to_string(k[14]))))
                            .popover(open, VStack({Text("bubble"), layered(k)}))
                            .disabled(k[14] == 5);
    const View left = VStack({clips(k), transformed(k), button});
    const View right = k[15] < 4 ? VStack({layered(k), ProgressView(k[15] / 4.0)})
                                 : VStack({ProgressView(0.3), layered(k)});
    return HStack({.spacing = 2}, {left, k[15] % 2 ? list(k) : View(list(k)).padding(2), right})
        .environment<LayoutDirectionKey>(k[15] == 3 ? LayoutDirection::rightToLeft
                                                    : LayoutDirection::leftToRight);
  }
};

class Monkey {
 public:
  explicit Monkey(unsigned seed) : random_(seed), window_(Scene{handle_}, {130, 100}) {}
  PaintedHost& window() { return window_; }

  // Does something, and says what it was.
  std::string act() {
    ViewHost& host = window_.host();
    switch (below(12)) {
      case 0:
      case 1:
      case 2:
        return turn(false);
      case 3:
      case 4:
        return turn(true);
      case 5:
        window_.advance(1.0 / 60);
        return "a frame";
      case 6:
        window_.advance(0.07);
        return "a while";
      case 7:
        return done("wheel", host.wheel({anywhere(), 0, 10.0 * below(9) - 40}));
      case 8:
        return done("tab", host.key({Key::tab, "", {.shift = below(3) == 0}}));
      case 9: {
        const Key keys[] = {Key::down, Key::end, Key::home, Key::escape, Key::space};
        return done("key", host.key({keys[below(5)], "", {}}));
      }
      case 10:
        pressed_ = !pressed_;
        return pressed_ ? done("down", host.pointerDown(anywhere(), PointerButton::primary))
                        : done("up", host.pointerUp(anywhere(), PointerButton::primary));
      default:
        break;
    }
    return done("move", host.pointerMove(anywhere()));
  }

 private:
  int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }
  Point anywhere() { return {static_cast<double>(below(130)), static_cast<double>(below(100))}; }
  std::string done(const char* what, bool) {
    window_.run();
    return what;
  }
  std::string turn(bool animated) {
    Knobs next = (*handle_)->get();
    std::string text = animated ? "animate" : "set";
    for (int i = 1 + below(3); i > 0; --i) {
      const int knob = below(static_cast<int>(kKnobs)), value = below(6);
      next[static_cast<std::size_t>(knob)] = value;
      text += ' ' + std::to_string(knob) + '=' + std::to_string(value);
    }
    const auto set = [&] { (*handle_)->set(next); };
    if (animated) {
      withAnimation(Animation::linear(0.1 + 0.1 * below(3)), set);
    } else {
      set();
    }
    window_.run();
    return text;
  }

  std::mt19937 random_;
  Handle handle_ = std::make_shared<std::optional<State<Knobs>>>();
  PaintedHost window_;
  bool pressed_ = false;
};

// A whole repaint brings every node's bounds up to date, which a window never does: so it is
// compared after each step in one run, and seldom in another.
class RandomRepaint : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Steps, RandomRepaint, testing::Values(1, 5));

TEST_P(RandomRepaint, isThatOfAWholeRepaint) {
  for (unsigned seed = 1; seed <= 25; ++seed) {
    Monkey monkey(seed);
    std::string log;
    for (int step = 1; step <= 60; ++step) {
      log += monkey.act() + "; ";
      if (step % GetParam() != 0) continue;
      ASSERT_EQ(monkey.window().difference(), "") << "seed " << seed << ": " << log;
    }
  }
}

}  // namespace
}  // namespace zq
