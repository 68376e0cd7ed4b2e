// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zq {

// The last text of each keyword of the process, posted by ZQNotify::notify or set by who follows
// it, so that who comes later begins with it. Kept to the end; one entry for each keyword. All of
// it runs on the serial queue "vendel.ZQNotificableText.lastText", and returns when it has. Any
// thread.
struct LastTexts {
  struct Entry {
    std::string text;
    std::uint64_t order = 0;  // from 1; the later one has the higher number
    bool operator==(const Entry&) const = default;
  };

  // Answers its number. Where there is no text the one before stays, and a number is given all the
  // same.
  static std::uint64_t remember(const std::string& keyword, const std::optional<std::string>& text);
  // Nothing where there is no text yet.
  static std::optional<Entry> of(const std::string& keyword);
};

}  // namespace zq
