// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace zq {

// The last text of each keyword of the process, posted by ZQNotify::notify or set by who follows
// it, so that who comes later begins with it. Kept to the end; one entry for each keyword. All of
// it runs on the serial queue "vendel.ZQNotificableText.lastText", and returns when it has. Any
// thread.
struct LastTexts {
  static void remember(const std::string& keyword, const std::string& text);
  // `take` runs before anything else is remembered. Nothing where there is no text.
  static void read(const std::string& keyword,
                   const std::function<void(const std::optional<std::string>& text)>& take);
};

}  // namespace zq
