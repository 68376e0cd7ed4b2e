// ZQSwiftUI, MIT licence; see LICENSE.
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSaveFile>
#include <QStandardPaths>
#include <algorithm>
#include <zqswiftui/platform/qt/bundle.hpp>
#include <zqswiftui/platform/qt/conversions.hpp>

namespace zq::qt {
namespace {

std::optional<std::string> applicationIdentifier() {
  const QString name = QCoreApplication::applicationName();
  QStringList parts = QCoreApplication::organizationDomain().split(u'.', Qt::SkipEmptyParts);
  if (!parts.isEmpty() && !name.isEmpty()) {
    std::reverse(parts.begin(), parts.end());
    parts.push_back(name);
    return parts.join(u'.').toStdString();
  }
  // A desktop file is named after the identifier of its application.
  const QString desktopFile = QGuiApplication::desktopFileName();
  if (desktopFile.contains(u'.')) return desktopFile.toStdString();
  return std::nullopt;
}

std::string location(QStandardPaths::StandardLocation which) {
  return QStandardPaths::writableLocation(which).toStdString();
}

bool leavesFolder(const std::string& file) {
  return file.empty() || file.front() == '/' || file.find("..") != std::string::npos;
}

}  // namespace

Bundle::Bundle()
    : identifier_(applicationIdentifier()),
      path_(QCoreApplication::applicationDirPath().toStdString()),
      cacheFolder_(location(QStandardPaths::CacheLocation)),
      dataFolder_(location(QStandardPaths::AppDataLocation)) {
  folders_ = {path_, path_ + "/resources"};
  for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::AppDataLocation)) {
    folders_.push_back(folder.toStdString());
  }
}

std::optional<std::string> Bundle::resource(std::string_view name,
                                            std::string_view extension) const {
  std::string file(name);
  if (!extension.empty()) file.append(".").append(extension);
  if (leavesFolder(file)) return std::nullopt;
  for (const std::string& folder : folders_) {
    const QFileInfo info(QDir(toQString(folder)), toQString(file));
    if (info.isFile()) return info.absoluteFilePath().toStdString();
  }
  return unpacked(file);
}

// Whoever asks reads a file, and what the program carries inside is none; so it is laid into
// the cache, anew after each change of the program.
std::optional<std::string> Bundle::unpacked(const std::string& file) const {
  QFile inside(QStringLiteral(":/") + toQString(file));
  if (!inside.exists() || !inside.open(QIODevice::ReadOnly)) return std::nullopt;
  const QByteArray data = inside.readAll();
  const QString target = toQString(cacheFolder_ + "/resources/" + file);
  QFile kept(target);
  if (kept.open(QIODevice::ReadOnly) && kept.size() == data.size() && kept.readAll() == data) {
    return target.toStdString();
  }
  kept.close();
  QDir().mkpath(QFileInfo(target).path());
  QSaveFile fresh(target);
  if (!fresh.open(QIODevice::WriteOnly) || fresh.write(data) != data.size() || !fresh.commit()) {
    return std::nullopt;
  }
  return target.toStdString();
}

}  // namespace zq::qt
