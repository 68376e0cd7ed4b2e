// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/services/file_facts.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

struct RecentDocument {
  std::string url;
  // What keeps it, where that may not answer: a mounted share by the folder where it is mounted.
  // Empty for what is on this machine.
  std::string place = {};
  // Where the list was made by asking for it; a file without is asked for by whoever needs it.
  std::optional<FileFacts> facts = std::nullopt;
  bool operator==(const RecentDocument&) const = default;
};

// The platform's list of documents that this application opened. Interface thread only.
class RecentDocuments {
 public:
  virtual ~RecentDocuments() = default;
  // Answers later on the interface thread with the documents in the platform's order, the last
  // opened first; those that are gone are listed all the same.
  virtual void list(std::function<void(std::vector<RecentDocument> documents)> answer) = 0;
  // Returns at once; the list has it soon after, also where the program ends meanwhile.
  virtual void add(std::string url) = 0;
};

}  // namespace zq
