// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <string_view>

namespace zq {

struct ZQId {
  // A text that no other call gives, in this process or another: the prefix, the text, and a
  // part of its own, which holds a running counter where one is asked for. Any thread.
  static std::string newId(std::string_view prefix, std::string_view text, bool useCounter);
  // The MD5 digest of a text in 32 lower-case hexadecimal digits, for names of cache files;
  // it guards nothing.
  static std::string md5(std::string_view text);
};

}  // namespace zq
