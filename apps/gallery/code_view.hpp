// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq::gallery {

// A piece of a line of code in one colour.
struct CodeRun {
  enum class Kind : unsigned char { plain, keyword, type, number, text, comment };
  Kind kind = Kind::plain;
  std::string text;
  bool operator==(const CodeRun&) const = default;
};

struct CodeLine {
  std::size_t number = 0;
  std::vector<CodeRun> runs;
  bool operator==(const CodeLine&) const = default;
};

// Lines of C++ in coloured pieces; joined, the pieces of a line are the line.
std::vector<CodeLine> colouredCode(std::string_view code);

// The code of a page, monospaced, at its own size.
struct CodeView : ViewModifiers<CodeView> {
  explicit CodeView(std::string givenCode) : code(std::move(givenCode)) {}
  std::string code;
  View body(Context& context) const;
  bool operator==(const CodeView&) const = default;
};

}  // namespace zq::gallery
