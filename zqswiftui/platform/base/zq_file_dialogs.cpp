// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/platform/base/zq_file_dialogs.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {

namespace {

void show(FileDialogRequest request, const std::optional<Url>& defaultPath,
          ZQFileDialogs::Chosen callback) {
  if (defaultPath) request.defaultPath = defaultPath->path();
  Platform::current().fileDialogs().show(
      std::move(request), [callback = std::move(callback)](const std::vector<std::string>& paths) {
        if (callback && !paths.empty()) callback(Url::file(paths.front()));
      });
}

}  // namespace

void ZQFileDialogs::open(const std::string& title, const std::string& message,
                         std::vector<std::string> availableExtensions,
                         const std::optional<Url>& defaultPath, Chosen callback) {
  show({FileDialogRequest::Kind::openFile, title, message, std::move(availableExtensions), {}},
       defaultPath, std::move(callback));
}

void ZQFileDialogs::chooseFolder(const std::string& title, const std::string& message,
                                 const std::optional<Url>& defaultPath, Chosen callback) {
  show({FileDialogRequest::Kind::chooseFolder, title, message, {}, {}}, defaultPath,
       std::move(callback));
}

void ZQFileDialogs::save(const std::string& title, const std::string& message,
                         std::vector<std::string> availableExtensions,
                         const std::optional<Url>& defaultPath, Chosen callback) {
  show({FileDialogRequest::Kind::saveFile, title, message, std::move(availableExtensions), {}},
       defaultPath, std::move(callback));
}

}  // namespace zq
