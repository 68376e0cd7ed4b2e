// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/url.hpp>

namespace zq {

namespace {

constexpr std::string_view fileScheme = "file://";

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string escaped(std::string_view path) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  constexpr std::string_view plain = "/-._~!$&'()*+,=:@";
  std::string text;
  for (const char c : path) {
    if (isLetter(c) || isDigit(c) || plain.find(c) != std::string_view::npos) {
      text += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      text += '%';
      text += digits[byte >> 4];
      text += digits[byte & 15];
    }
  }
  return text;
}

int hexValue(char c) {
  if (isDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

std::string unescaped(std::string_view text) {
  std::string path;
  path.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t plain = std::min(text.find('%', i), text.size());
    path.append(text, i, plain - i);
    i = plain;
    if (i == text.size()) break;
    const bool whole = i + 2 < text.size();
    const int high = whole ? hexValue(text[i + 1]) : -1;
    const int low = whole ? hexValue(text[i + 2]) : -1;
    // The system would end a path at a zero byte, and so open another file than was named.
    if (high < 0 || low < 0 || high + low == 0) {
      path += text[i];
    } else {
      path += static_cast<char>(high * 16 + low);
      i += 2;
    }
  }
  return path;
}

}  // namespace

bool hasScheme(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos || colon == 0 || !isLetter(text[0])) return false;
  return std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(colon), [](char c) {
    return isLetter(c) || isDigit(c) || c == '+' || c == '-' || c == '.';
  });
}

Url Url::file(std::string_view path) {
  return Url(std::string(fileScheme) + escaped(path));
}

std::optional<Url> Url::parse(std::string_view text) {
  if (!hasScheme(text)) return std::nullopt;
  const auto forbidden = [](char c) { return static_cast<unsigned char>(c) <= 0x20 || c == 0x7F; };
  if (std::any_of(text.begin(), text.end(), forbidden)) return std::nullopt;
  std::string known(text);
  const auto scheme = static_cast<std::ptrdiff_t>(text.find(':'));
  std::transform(text.begin(), text.begin() + scheme, known.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return Url(std::move(known));
}

bool Url::isFile() const {
  return text_.starts_with("file:");
}

std::string Url::server() const {
  std::string_view rest = text_;
  rest.remove_prefix(std::min(rest.find(':') + 1, rest.size()));
  if (isFile() || !rest.starts_with("//")) return "";
  rest.remove_prefix(2);
  rest = rest.substr(0, rest.find_first_of("/?#"));
  const auto user = rest.rfind('@');
  return lowercased(rest.substr(user == std::string_view::npos ? 0 : user + 1));
}

std::string Url::path() const {
  std::string_view rest = text_;
  rest.remove_prefix(std::min(rest.find(':') + 1, rest.size()));
  if (rest.starts_with("//")) {
    rest.remove_prefix(2);
    // A file URL of ours may hold a relative path; "localhost" is the one host of files.
    if (isFile() && rest.starts_with("localhost/")) rest.remove_prefix(9);
    if (!isFile()) rest.remove_prefix(std::min(rest.find('/'), rest.size()));
  }
  rest = rest.substr(0, rest.find('?'));  // a sign at a time, which is a search in one go
  return unescaped(rest.substr(0, rest.find('#')));
}

std::string Url::name() const {
  std::string path = this->path();
  while (path.ends_with('/')) path.pop_back();
  return path.substr(path.rfind('/') + 1);
}

std::string Url::pathExtension() const {
  const std::string name = this->name();
  const auto dot = name.rfind('.');
  // A leading dot hides a file, it does not begin an extension.
  if (dot == std::string::npos || dot == 0) return "";
  return name.substr(dot + 1);
}

Url Url::appending(std::string_view component) const {
  const std::size_t end = std::min(text_.find_first_of("?#"), text_.size());
  std::string text = text_.substr(0, end);
  if (!text.ends_with('/')) text += '/';
  return Url(text + escaped(component) + text_.substr(end));
}

bool Url::isA(const std::vector<std::string>& extensions) const {
  const std::string own = lowercased(pathExtension());
  return std::any_of(extensions.begin(), extensions.end(),
                     [&](const std::string& extension) { return lowercased(extension) == own; });
}

}  // namespace zq
