// ZQSwiftUI, MIT licence; see LICENSE.
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <tools/zqc/session.hpp>

namespace zq::zqc {

namespace {

std::string_view environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

}  // namespace

int Session::fail(int code, std::string_view sentence) const {
  out.flush();
  err << "zqc: " << sentence << '\n';
  return code;
}

bool terminalHasColour() {
  return ::isatty(STDOUT_FILENO) == 1 && environment("NO_COLOR").empty() &&
         environment("TERM") != "dumb";
}

std::optional<std::size_t> terminalWidth() {
  if (::isatty(STDOUT_FILENO) != 1) return std::nullopt;
  constexpr std::size_t usual = 80;
  struct winsize size {};
  const bool known = ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : usual;
}

}  // namespace zq::zqc
