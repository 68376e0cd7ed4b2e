// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <iostream>
#include <tools/zqc/command.hpp>

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  const std::vector<std::string> arguments(argv + 1, argv + std::max(argc, 1));
  const zq::zqc::Session session{.out = std::cout,
                                 .err = std::cerr,
                                 .colour = zq::zqc::terminalHasColour(),
                                 .width = zq::zqc::terminalWidth()};
  return zq::zqc::run(session, arguments);
}
