// ZQSwiftUI, MIT licence; see LICENSE.
#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/file_dialogs.hpp>

namespace zq::qt {
namespace {

using Kind = FileDialogRequest::Kind;

QString filterOf(const std::vector<std::string>& extensions) {
  QStringList patterns;
  for (const std::string& extension : extensions) {
    patterns.push_back(QStringLiteral("*.") + toQString(extension));
  }
  return QStringLiteral("(%1)").arg(patterns.join(u' '));
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

}  // namespace

void FileDialogs::show(FileDialogRequest request,
                       std::function<void(std::vector<std::string>)> answer) {
  auto* dialog = new QFileDialog(QApplication::activeWindow());
  dialog->setObjectName(QStringLiteral("zq.fileDialog"));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  const std::string& title = request.title.empty() ? request.message : request.title;
  if (!title.empty()) dialog->setWindowTitle(toQString(title));
  setKind(*dialog, request);
  if (!request.extensions.empty()) dialog->setNameFilter(filterOf(request.extensions));
  setStart(*dialog, toQString(request.defaultPath));
  QObject::connect(dialog, &QFileDialog::finished, dialog,
                   [dialog, answer = std::move(answer)](int result) {
                     std::vector<std::string> paths;
                     if (result == QDialog::Accepted) {
                       for (const QString& path : dialog->selectedFiles()) {
                         paths.push_back(path.toStdString());
                       }
                     }
                     if (answer) answer(std::move(paths));
                   });
  dialog->open();
}

}  // namespace zq::qt
