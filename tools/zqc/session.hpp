// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace zq::zqc {

// What zqc ends with; the numbers are those of sysexits.h.
enum Exit : int {
  exitOk = 0,
  exitFound = 1,         // check found something, list nothing
  exitUsage = 64,        // wrong use of the command line
  exitData = 65,         // a file that is no project, or one that has no source
  exitNoInput = 66,      // a file that cannot be read
  exitUnavailable = 69,  // no broadcasts on this machine
  exitCannotCreate = 73,
  exitOutput = 74,  // standard output cannot be written
};

// Where a command writes, and how.
struct Session {
  std::ostream& out;
  std::ostream& err;
  bool colour = false;
  std::optional<std::size_t> width{};  // of a terminal, in characters

  // "zqc: " and the sentence; answers the code.
  int fail(int code, std::string_view sentence) const;
};

// A value, or the code to end with.
template <typename T>
struct Outcome {
  Outcome(T given) : value(std::move(given)) {}
  Outcome(Exit code) : status(code) {}
  Outcome(int code) : status(code) {}
  explicit operator bool() const { return value.has_value(); }
  T& operator*() { return *value; }
  T* operator->() { return &*value; }

  std::optional<T> value;
  int status = exitOk;
};

// Whether standard output is a terminal that wants colours (NO_COLOR is unset, TERM not dumb).
bool terminalHasColour();
// Of standard output; absent where it is no terminal.
std::optional<std::size_t> terminalWidth();

}  // namespace zq::zqc
