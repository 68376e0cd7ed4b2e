// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/gallery/code_view.hpp>
#include <array>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq::gallery {
namespace {

constexpr double kCodeSize = 11;

constexpr std::array<std::string_view, 24> kKeywords = {
    "auto",   "bool",   "class",  "const", "constexpr", "double", "else",    "explicit",
    "false",  "for",    "if",     "int",   "namespace", "null",   "nullptr", "operator",
    "return", "static", "struct", "true",  "using",     "void",   "while",   "override"};

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         (static_cast<unsigned char>(c) & 0x80u) != 0;
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

CodeRun::Kind kindOfWord(std::string_view word) {
  if (std::find(kKeywords.begin(), kKeywords.end(), word) != kKeywords.end()) {
    return CodeRun::Kind::keyword;
  }
  return word[0] >= 'A' && word[0] <= 'Z' ? CodeRun::Kind::type : CodeRun::Kind::plain;
}

std::size_t endOfText(std::string_view line, std::size_t i) {
  const char quote = line[i++];
  while (i < line.size() && line[i] != quote) i += line[i] == '\\' ? 2 : 1;
  return std::min(i + 1, line.size());
}

std::size_t whileTrue(std::string_view line, std::size_t i, bool (*test)(char)) {
  while (i < line.size() && test(line[i])) ++i;
  return i;
}

// The end of the piece that begins at i, and its kind.
std::pair<std::size_t, CodeRun::Kind> nextPiece(std::string_view line, std::size_t i) {
  if (line.substr(i).starts_with("//")) return {line.size(), CodeRun::Kind::comment};
  if (line[i] == '"' || line[i] == '\'') return {endOfText(line, i), CodeRun::Kind::text};
  if (isDigit(line[i])) {
    const auto number = [](char c) { return isDigit(c) || c == '.' || isLetter(c); };
    return {whileTrue(line, i, number), CodeRun::Kind::number};
  }
  if (isLetter(line[i])) {
    const auto word = [](char c) { return isLetter(c) || isDigit(c); };
    const std::size_t end = whileTrue(line, i, word);
    return {end, kindOfWord(line.substr(i, end - i))};
  }
  return {i + 1, CodeRun::Kind::plain};
}

std::vector<CodeRun> runsOf(std::string_view line) {
  std::vector<CodeRun> runs;
  for (std::size_t i = 0; i < line.size();) {
    const auto [end, kind] = nextPiece(line, i);
    if (runs.empty() || runs.back().kind != kind) runs.push_back({kind, {}});
    runs.back().text += line.substr(i, end - i);
    i = end;
  }
  return runs;
}

Color colorOf(CodeRun::Kind kind) {
  switch (kind) {
    case CodeRun::Kind::keyword:
      return Color::purple();
    case CodeRun::Kind::type:
      return Color::blue();
    case CodeRun::Kind::number:
      return Color::brown();
    case CodeRun::Kind::text:
      return Color::red();
    case CodeRun::Kind::comment:
      return Color::secondary();
    case CodeRun::Kind::plain:
      break;
  }
  return Color::primary();
}

View lineView(const CodeLine& line) {
  std::vector<View> runs;
  runs.reserve(line.runs.size() + 1);
  if (line.runs.empty()) runs.push_back(Text(" "));
  for (const CodeRun& run : line.runs) {
    runs.push_back(Text(run.text).foregroundColor(colorOf(run.kind)).lineLimit(1));
  }
  return HStack({.spacing = 0}, std::move(runs));
}

}  // namespace

std::vector<CodeLine> colouredCode(std::string_view code) {
  std::vector<CodeLine> lines;
  while (!code.empty()) {
    const std::size_t end = std::min(code.find('\n'), code.size());
    lines.push_back({lines.size() + 1, runsOf(code.substr(0, end))});
    code.remove_prefix(std::min(end + 1, code.size()));
  }
  return lines;
}

View CodeView::body(Context&) const {
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 2},
                {ForEach(colouredCode(code), &CodeLine::number,
                         [](const CodeLine& line) { return lineView(line); })})
      .font(Font::system(kCodeSize).monospaced());
}

}  // namespace zq::gallery
