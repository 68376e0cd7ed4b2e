// ZQSwiftUI, MIT licence; see LICENSE.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <zqswiftui/platform/services/require.hpp>

namespace zq {

void stopProgram(std::string_view condition, std::string_view sentence, const char* file,
                 int line) {
  std::string text(sentence);
  text += " (";
  text += condition;
  text += ", ";
  text += file;
  text += ':';
  text += std::to_string(line);
  text += ")\n";
  std::fputs(text.c_str(), stderr);
  std::fflush(stderr);
  std::abort();
}

}  // namespace zq
