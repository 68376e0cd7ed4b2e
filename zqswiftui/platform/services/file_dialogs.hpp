// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <vector>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

struct FileDialogRequest {
  enum class Kind { openFile, openFiles, chooseFolder, saveFile };
  Kind kind = Kind::openFile;
  std::string title;
  std::string message;
  std::vector<std::string> extensions;  // without a dot; empty allows every file
  std::string defaultPath;              // empty leaves the start to the platform
  bool operator==(const FileDialogRequest&) const = default;
};

// The platform's file dialogs. Interface thread only.
class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  // Returns at once; answers on the interface thread with the chosen paths, none when the
  // user cancelled.
  virtual void show(FileDialogRequest request,
                    std::function<void(std::vector<std::string> paths)> answer) = 0;
};

}  // namespace zq
