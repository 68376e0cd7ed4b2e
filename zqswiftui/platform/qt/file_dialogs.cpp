// ZQSwiftUI, MIT licence; see LICENSE.
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <memory>
#include <utility>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/file_dialogs.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq::qt {
namespace {

using Kind = FileDialogRequest::Kind;

// "PNG, JPG files" of that kind. A pattern cannot hold what would end it.
QString filterOf(const std::vector<std::string>& extensions) {
  QStringList kinds, patterns;
  for (const std::string& extension : extensions) {
    if (extension.empty() || extension.find_first_of(" \t\n;()") != std::string::npos) continue;
    const QString pattern = QStringLiteral("*.") + toQString(extension);
    patterns.push_back(pattern);
    kinds.push_back(toQString(extension).toUpper());
    // Not every desktop's dialog takes no notice of the case.
    if (pattern.toUpper() != pattern) patterns.push_back(pattern.toUpper());
  }
  if (patterns.isEmpty()) return {};
  return kinds.join(QStringLiteral(", ")) + " files (" + patterns.join(u' ') + ")";
}

void setKind(QFileDialog& dialog, const FileDialogRequest& request) {
  dialog.setAcceptMode(request.kind == Kind::saveFile ? QFileDialog::AcceptSave
                                                      : QFileDialog::AcceptOpen);
  switch (request.kind) {
    case Kind::openFile:
      return dialog.setFileMode(QFileDialog::ExistingFile);
    case Kind::openFiles:
      return dialog.setFileMode(QFileDialog::ExistingFiles);
    case Kind::chooseFolder:
      dialog.setFileMode(QFileDialog::Directory);
      return dialog.setOption(QFileDialog::ShowDirsOnly);
    case Kind::saveFile:
      dialog.setFileMode(QFileDialog::AnyFile);
      if (!request.extensions.empty()) {
        dialog.setDefaultSuffix(toQString(request.extensions.front()));
      }
      return;
  }
}

void setStart(QFileDialog& dialog, const QString& path) {
  if (path.isEmpty()) return;
  const QFileInfo info(path);
  if (info.isDir()) return dialog.setDirectory(path);
  dialog.setDirectory(info.path());
  dialog.selectFile(info.fileName());
}

// Gives one answer, however often it is asked to; later, when the dialog is done with itself.
class Answer {
 public:
  explicit Answer(std::function<void(std::vector<std::string>)> answer)
      : answer_(std::move(answer)) {}

  void give(const QStringList& files) {
    const auto answer = std::exchange(answer_, nullptr);
    if (!answer || !zq::Platform::installed()) return;
    std::vector<std::string> paths;
    for (const QString& path : files) paths.push_back(QFile::encodeName(path).toStdString());
    zq::Platform::current().mainQueue().post([answer, paths = std::move(paths)] { answer(paths); });
  }

 private:
  std::function<void(std::vector<std::string>)> answer_;
};

}  // namespace

void FileDialogs::show(FileDialogRequest request,
                       std::function<void(std::vector<std::string>)> answer) {
  auto* dialog = new QFileDialog(QApplication::activeWindow());
  dialog->setObjectName(QStringLiteral("zq.fileDialog"));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  const std::string& title = request.title.empty() ? request.message : request.title;
  if (!title.empty()) dialog->setWindowTitle(toQString(title));
  setKind(*dialog, request);
  if (const QString filter = filterOf(request.extensions); !filter.isEmpty()) {
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    dialog->setNameFilter(filter);
  }
  setStart(*dialog, toQString(request.defaultPath));
  // The dialog also goes with the window that it stands over, and then nothing was chosen.
  const auto told = std::make_shared<Answer>(std::move(answer));
  QObject::connect(dialog, &QFileDialog::finished, dialog, [dialog, told](int result) {
    told->give(result == QDialog::Accepted ? dialog->selectedFiles() : QStringList());
  });
  QObject::connect(dialog, &QObject::destroyed, [told] { told->give({}); });
  dialog->open();
}

}  // namespace zq::qt
