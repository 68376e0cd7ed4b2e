// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <vector>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/services/file_facts.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// The documents that the desktop remembers as opened by this application. Interface thread only.
struct Documents {
  struct Recent {
    Url url;
    std::string place;                              // a mounted share that may not answer, or empty
    std::optional<FileFacts> facts = std::nullopt;  // absent: not asked yet
  };
  // Answers later with those whose address makes sense, the last opened first.
  static void recent(std::function<void(std::vector<Recent> documents)> answer);
  // Tells the desktop that a document was opened.
  static void noteRecent(const Url& url);
};

}  // namespace zq
