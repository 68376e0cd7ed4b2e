// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// The platform's dialogs. They return at once and call back on the interface thread with what
// the user chose, and not at all when the user cancelled. Interface thread only.
struct ZQFileDialogs {
  using Chosen = std::function<void(const Url&)>;

  // An empty list of extensions allows every file.
  static void open(const std::string& title, const std::string& message,
                   std::vector<std::string> availableExtensions,
                   const std::optional<Url>& defaultPath, Chosen callback);
  static void chooseFolder(const std::string& title, const std::string& message,
                           const std::optional<Url>& defaultPath, Chosen callback);
  static void save(const std::string& title, const std::string& message,
                   std::vector<std::string> availableExtensions,
                   const std::optional<Url>& defaultPath, Chosen callback);
};

}  // namespace zq
