// ZQSwiftUI, MIT licence; see LICENSE.

// A screen tested as a person would use it, with no display and no waiting: find, click, type,
// let time pass, and look at what stands there.

#include <cstdio>
#include <string>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace {

using zq::View;

struct Guestbook {
  View body(zq::Context& context) const {
    auto name = context.state<std::string>("");
    auto guests = context.state<std::vector<std::string>>({});
    auto faded = context.state(false);
    const auto sign = [=] {
      if (name->empty()) return;
      auto all = *guests;
      all.push_back(*name);
      guests.set(std::move(all));
      name.set("");
      zq::withAnimation(zq::Animation::linear(1), [&] { faded.set(true); });
    };
    return zq::VStack({
        zq::Text("Please sign").opacity(*faded ? 0.5 : 1.0),
        zq::TextField("Name", name.binding()).onSubmit(sign).frame({.width = 200}),
        zq::Button(sign, zq::Text("Sign")).disabled(name->empty()),
        zq::ForEach(*guests, [](const std::string& guest) { return zq::Text(guest); }),
    });
  }
};

int failures = 0;

void check(bool holds, const char* what) {
  std::printf("%s  %s\n", holds ? "ok   " : "FAILS", what);
  if (!holds) ++failures;
}

}  // namespace

int main() {
  zq::Harness screen(Guestbook{}, {300, 200});

  check(!screen.button("Sign").enabled, "nobody can sign without a name");

  screen.click(screen.find(zq::Role::textField, "Name"));
  screen.type("Ada");
  check(screen.button("Sign").enabled, "with a name the button comes alive");

  screen.click(screen.button("Sign"));
  check(screen.findText("Ada").found, "the guest stands in the book");
  check(screen.find(zq::Role::textField).value.empty(), "the field is ready for the next one");

  screen.advance(0.5);
  const double half = screen.findText("Please sign").opacity;
  check(half > 0.74 && half < 0.76, "the invitation is fading");
  screen.advance(0.5);
  const auto asked = screen.framesAsked();
  screen.advance(60);
  check(screen.framesAsked() == asked, "a screen at rest asks for no frame");

  std::printf("\n%s\n%s", screen.accessibility().c_str(), screen.displayList().c_str());
  return failures == 0 ? 0 : 1;
}
