// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq::qt {

// The desktop's list of recently used documents, an XML Bookmark Exchange Language file with the
// elements of the freedesktop.org desktop bookmarks; as bytes, no disk is asked. A list that
// declares entities or the like, that holds a zero byte or that is longer than 1 GiB counts as
// damaged there.
// Any thread.

struct OpenedDocument {
  std::string href;         // its address, percent-encoded
  std::string mimeType;     // empty where it is not known
  std::string application;  // the name under which a program finds its documents again
  std::string exec;         // how a program opens it, as in "viewer %u"
  std::chrono::system_clock::time_point when;
};

// The addresses that one of these applications has registered, the last opened first. Of a damaged
// list what stands before the damage. An address longer than 8,192 bytes is left out. `found` is
// told of each as it comes, in the list's own order.
std::vector<std::string> documentsOf(std::string_view list,
                                     const std::vector<std::string>& applications,
                                     const std::function<void(const std::string&)>& found = {});

// The list with the document in it, opened once more: every byte of everything else stays, what
// other programs keep with the document too. An empty list is made. Absent where the list is
// damaged.
std::optional<std::string> withDocument(std::string_view list, const OpenedDocument& document);

// What stands before the damage of a list, ended as it should be.
std::string undamaged(std::string_view list);

}  // namespace zq::qt
