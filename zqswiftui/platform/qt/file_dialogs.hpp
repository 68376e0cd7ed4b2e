// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/services/file_dialogs.hpp>

namespace zq::qt {

// The desktop's dialogs, over the active window and without a loop of their own.
class FileDialogs final : public zq::FileDialogs {
 public:
  void show(FileDialogRequest request,
            std::function<void(std::vector<std::string>)> answer) override;
};

}  // namespace zq::qt
