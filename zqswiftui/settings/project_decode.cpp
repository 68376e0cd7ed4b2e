// ZQSwiftUI, MIT licence; see LICENSE.
#include <rapidjson/error/error.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <utility>
#include <zqswiftui/platform/base/number_text.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/settings/own_form_reader.hpp>
#include <zqswiftui/settings/project_json.hpp>
#include <zqswiftui/settings/project_reader.hpp>

namespace zq {

namespace {

constexpr unsigned parseFlags = rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag;

// Of UTF-8 that was valid before the parser took the escapes out of it.
bool hasHalfCharacter(std::string_view text) {
  for (std::size_t at = text.find('\xED'); at < text.size(); at = text.find('\xED', at + 1)) {
    if (static_cast<unsigned char>(text[at + 1]) >= 0xA0) return true;
  }
  return false;
}

// Hands the parser's events on; refuses what is nested too deep, and escapes for half a
// character, of which the parser knows only some.
struct Events {
  static constexpr std::size_t deepest = 64;

  ProjectReader& reader;
  rapidjson::InsituStringStream& stream;
  std::size_t depth = 0;
  bool halfCharacter = false;

  bool Null() { return pass({}); }
  bool Bool(bool flag) { return pass({.kind = JsonScalar::Kind::flag, .flag = flag}); }
  bool RawNumber(const char* text, rapidjson::SizeType size, bool) {
    return pass({.kind = JsonScalar::Kind::number, .text = {text, size}});
  }
  bool String(const char* text, rapidjson::SizeType size, bool) {
    halfCharacter = hasHalfCharacter({text, size});
    return !halfCharacter && pass({.kind = JsonScalar::Kind::text, .text = {text, size}});
  }
  bool Key(const char* text, rapidjson::SizeType size, bool) {
    halfCharacter = hasHalfCharacter({text, size});
    reader.key({text, size}, stream.Tell());
    return !halfCharacter;
  }
  bool StartObject() { return enter(true); }
  bool EndObject(rapidjson::SizeType) { return leave(); }
  bool StartArray() { return enter(false); }
  bool EndArray(rapidjson::SizeType) { return leave(); }

  // Asked for by the parser, though it never calls them with these flags.
  bool Int(int) { return false; }
  bool Uint(unsigned) { return false; }
  bool Int64(std::int64_t) { return false; }
  bool Uint64(std::uint64_t) { return false; }
  bool Double(double) { return false; }

 private:
  bool pass(const JsonScalar& scalar) {
    reader.scalar(scalar);
    return true;
  }
  bool enter(bool object) {
    if (++depth > deepest) return false;
    reader.enter(object, stream.Tell() - 1);
    return true;
  }
  bool leave() {
    --depth;
    reader.leave();
    return true;
  }
};

std::string_view sentence(rapidjson::ParseErrorCode code) {
  switch (code) {
    case rapidjson::kParseErrorDocumentRootNotSingular:
      return "expected the end of the file";
    case rapidjson::kParseErrorObjectMissName:
      return "expected a key in double quotes";
    case rapidjson::kParseErrorObjectMissColon:
      return "expected a colon after the key";
    case rapidjson::kParseErrorObjectMissCommaOrCurlyBracket:
      return "expected a comma or a closing brace";
    case rapidjson::kParseErrorArrayMissCommaOrSquareBracket:
      return "expected a comma or a closing bracket";
    case rapidjson::kParseErrorStringUnicodeEscapeInvalidHex:
      return "expected four hexadecimal digits after \\u";
    case rapidjson::kParseErrorStringUnicodeSurrogateInvalid:
      return "half of a character is missing in an escape";
    case rapidjson::kParseErrorStringEscapeInvalid:
      return "unknown escape, or a control character, in a text";
    case rapidjson::kParseErrorStringMissQuotationMark:
      return "the text has no closing quote";
    case rapidjson::kParseErrorNumberMissFraction:
      return "expected a digit after the decimal point";
    case rapidjson::kParseErrorNumberMissExponent:
      return "expected a digit in the exponent";
    case rapidjson::kParseErrorTermination:
      return "nested deeper than 64 levels";
    default:
      return "expected a value";
  }
}

Error errorAt(std::string_view text, std::size_t offset, std::string_view what) {
  const TextPlace place = placeOf(text, offset);
  return {std::to_string(place.line) + ":" + std::to_string(place.column) + ": " +
          std::string(what)};
}

// The offset of the first byte that is not UTF-8, or that would end the text for the parser;
// the size where there is none.
std::size_t firstBadByte(std::string_view text) {
  std::size_t position = 0;
  while (position < text.size()) {
    std::uint64_t eight = 0;
    if (position + sizeof eight <= text.size()) {
      std::memcpy(&eight, text.data() + position, sizeof eight);
      constexpr std::uint64_t highBits = 0x8080808080808080;
      constexpr std::uint64_t ones = 0x0101010101010101;
      // No byte beyond ASCII, and none that is zero.
      if ((eight & highBits) == 0 && ((eight - ones) & highBits) == 0) {
        position += sizeof eight;
        continue;
      }
    }
    const std::size_t before = position;
    const char32_t c = nextScalar(text, position);
    const bool replaced = c == replacementCharacter && text.substr(before, 3) != "\xEF\xBF\xBD";
    if (replaced || c == 0) return before;
  }
  return text.size();
}

bool isNumberCharacter(char c) {
  return (c >= '0' && c <= '9') || c == '.' || c == 'e' || c == 'E' || c == '+' || c == '-';
}

// The parser refuses the whole text for a number beyond double, which here is only wrong for
// its slot: it becomes null, and blanks keep all other places.
void blankTooBigNumbers(std::string& json) {
  constexpr std::string_view nothing = "null";
  bool inText = false;
  for (std::size_t i = 0; i < json.size(); ++i) {
    if (inText && json[i] == '\\') {
      ++i;
    } else if (json[i] == '"') {
      inText = !inText;
    } else if (!inText && isNumberCharacter(json[i])) {
      const std::size_t begin = i;
      while (i < json.size() && isNumberCharacter(json[i])) ++i;
      const std::string_view number = std::string_view(json).substr(begin, i - begin);
      double value = 0;
      const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
      const bool whole = read.ptr == number.data() + number.size();
      if (whole && read.ec == std::errc::result_out_of_range && !finiteNumber(number)) {
        std::fill_n(json.begin() + static_cast<std::ptrdiff_t>(begin), number.size(), ' ');
        json.replace(begin, nothing.size(), nothing);
      }
      --i;
    }
  }
}

struct Refusal {
  rapidjson::ParseErrorCode code;
  std::size_t offset;
  bool halfCharacter;
};

std::optional<Refusal> parse(std::string json, ProjectReader& reader) {
  rapidjson::InsituStringStream stream(json.data());
  Events events{reader, stream};
  rapidjson::Reader parser;
  const rapidjson::ParseResult result = parser.Parse<parseFlags>(stream, events);
  if (!result.IsError()) return std::nullopt;
  return Refusal{result.Code(), result.Offset(), events.halfCharacter};
}

Result<ZQUICProject> decode(std::string_view json, ProjectPlaces* places) {
  if (json.size() > longestProject) return Error{"1:1: longer than 256 MiB"};
  const std::size_t bad = firstBadByte(json);
  if (bad < json.size()) return errorAt(json, bad, "this is not UTF-8 text");
  if (places == nullptr) {
    if (auto project = readOwnForm(json)) return *std::move(project);
  }
  ProjectReader reader(json, places);
  auto refusal = parse(std::string(json), reader);
  if (refusal && refusal->code == rapidjson::kParseErrorNumberTooBig) {
    std::string mended(json);
    blankTooBigNumbers(mended);
    reader = ProjectReader(json, places);
    refusal = parse(std::move(mended), reader);
  }
  if (refusal) {
    const auto code = refusal->halfCharacter ? rapidjson::kParseErrorStringUnicodeSurrogateInvalid
                                             : refusal->code;
    return errorAt(json, refusal->offset, sentence(code));
  }
  auto project = reader.take();
  if (!project) return errorAt(json, 0, "expected a project, which is an object in braces");
  return *std::move(project);
}

// A mark that some editors put before UTF-8 text.
constexpr std::string_view mark = "\xEF\xBB\xBF";

}  // namespace

Result<ZQUICProject> decodeProject(std::string_view json) {
  return decode(json.starts_with(mark) ? json.substr(mark.size()) : json, nullptr);
}

Result<ZQUICProject> decodeEverything(std::string_view json, ProjectPlaces& places) {
  if (!json.starts_with(mark)) return decode(json, &places);
  auto project = decode(json.substr(mark.size()), &places);
  for (ProjectPlaces::Group& group : places.groups) {
    group.offset += mark.size();
    for (std::size_t& item : group.items) item += mark.size();
  }
  return project;
}

TextPlace placeOf(std::string_view text, std::size_t offset) {
  const std::string_view before = text.substr(0, std::min(offset, text.size()));
  const auto lineBreaks = std::count(before.begin(), before.end(), '\n');
  std::string_view line = before.substr(before.rfind('\n') + 1);
  if (lineBreaks == 0 && line.starts_with(mark)) line.remove_prefix(mark.size());
  return {static_cast<std::size_t>(lineBreaks) + 1, scalarCount(line) + 1};
}

}  // namespace zq
