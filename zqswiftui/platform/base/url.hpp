// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <compare>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zq {

// Whether a text begins with a scheme and its colon: a letter, then letters, digits, "+", "-" and
// "." (RFC 3986, 3.1). Any thread.
bool hasScheme(std::string_view text);

// The address of a file or of something remote, as a value. Any thread.
//   Url icon = Url::file("/home/a b/icon.png");  // file:///home/a%20b/icon.png
class Url {
 public:
  // Of an absolute or relative path in UTF-8 or any other bytes, taken as it is.
  static Url file(std::string_view path);
  // Absent where the text has no scheme, or holds blanks or control characters. The scheme is
  // kept in lower case.
  static std::optional<Url> parse(std::string_view text);

  const std::string& text() const { return text_; }
  bool isFile() const;
  // The host and, where it is given, the port that what is remote comes from, in lower case; empty
  // of a file, and where the address names none.
  std::string server() const;
  // Without escapes: of a file its path, else what stands between host and query. That of a zero
  // byte stays as it is: no path holds one.
  std::string path() const;
  // The last part of the path; empty of a root.
  std::string name() const;
  // What follows the name's last dot, as it is written; empty where there is none.
  std::string pathExtension() const;
  // With one more part of the path; query and fragment stay.
  Url appending(std::string_view component) const;
  // Whether the extension is one of these, whatever the case; none of them has a dot.
  bool isA(const std::vector<std::string>& extensions) const;

  auto operator<=>(const Url&) const = default;

 private:
  explicit Url(std::string text) : text_(std::move(text)) {}
  std::string text_;
};

}  // namespace zq

template <>
struct std::hash<zq::Url> {
  std::size_t operator()(const zq::Url& url) const noexcept {
    return std::hash<std::string>()(url.text());
  }
};
