// ZQSwiftUI, MIT licence; see LICENSE.
// Controls, a field and a list, for the tests on a virtual display.
#include <tests/desktop/probe_window.hpp>
#include <zqswiftui/zqswiftui.hpp>

namespace {

using namespace zq;

using probe::say;

std::function<void()> saying(const std::string& line) {
  return [line] { say(line); };
}

struct Probe {
  View body(Context& context) const {
    const auto tokens = context.state(std::vector<std::string>{"a", "b"});
    std::vector<std::string> tags;
    for (int i = 0; i < 400; ++i) tags.push_back("tag" + std::to_string(i));
    const Binding<std::vector<std::string>> heard([tokens] { return *tokens; },
                                                  [tokens](const std::vector<std::string>& now) {
                                                    tokens.set(now);
                                                    std::string line = "tokens";
                                                    for (const std::string& t : now)
                                                      line += " [" + t + "]";
                                                    say(line);
                                                  });
    const auto hover = [](bool inside) { say(inside ? "hover in" : "hover out"); };
    return VStack({.alignment = HorizontalAlignment::leading, .spacing = 8},
                  {ZQButton("Save", {.size = ZQButton::Size::mini,
                                     .backgroundColor = Color::blue(),
                                     .action = saying("pressed Save")})
                       .onHover(hover),
                   ZQSettingsButton("Settings", {.action = saying("pressed Settings")}),
                   ZQOkButton({.size = ZQButton::Size::normal, .action = saying("pressed OK")}),
                   ZQTokensView(heard),
                   ScrollView(ZQTagsView(std::move(tags), Color::teal()))
                       .flexFrame({.maxWidth = kInfinity, .maxHeight = kInfinity})})
        .padding(16);
  }
};

}  // namespace

int main(int argc, char** argv) {
  return zq::probe::show(argc, argv, View(Probe{}), {420, 360});
}
