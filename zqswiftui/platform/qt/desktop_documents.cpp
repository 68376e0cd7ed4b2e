// ZQSwiftUI, MIT licence; see LICENSE.
#include <sys/stat.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLockFile>
#include <QMimeDatabase>
#include <QStandardPaths>
#include <algorithm>
#include <cstdio>
#include <mutex>
#include <tuple>
#include <unordered_map>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/desktop_documents.hpp>
#include <zqswiftui/platform/qt/mounted_shares.hpp>
#include <zqswiftui/platform/qt/recent_list.hpp>

namespace zq::qt {
namespace {

constexpr std::uint64_t kMaxListBytes = std::uint64_t{64} << 20;
constexpr int kLockMs = 5000;
constexpr int kTries = 10;

struct Opened {
  std::string url;
  QDateTime when;
};

// What tells whether somebody has written a file since.
using Stamp = std::tuple<dev_t, ino_t, off_t, time_t, long>;

std::optional<Stamp> stampOf(const std::string& path) {
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) return std::nullopt;
  return Stamp{info.st_dev, info.st_ino, info.st_size, info.st_mtim.tv_sec, info.st_mtim.tv_nsec};
}

// Empty where there is no list yet.
Result<QByteArray> readList(const std::string& path) {
  if (!stampOf(path)) return QByteArray();
  const auto bytes = readFile(path, kMaxListBytes);
  if (!bytes.ok()) return bytes.error();
  return QByteArray(reinterpret_cast<const char*>(bytes.value().data()),
                    static_cast<qsizetype>(bytes.value().size()));
}

// Of a file in a folder of this machine.
bool isLink(const std::string& file) {
  struct stat info {};
  return ::lstat(file.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

QStringList applicationNames() {
  QStringList names{QCoreApplication::applicationName(), QGuiApplication::applicationDisplayName(),
                    QGuiApplication::desktopFileName()};
  names.removeAll(QString());
  names.removeDuplicates();
  return names;
}

}  // namespace

struct DesktopDocuments::State {
  explicit State(std::string file) : path(std::move(file)) {}

  const std::string path;
  const QStringList applications = applicationNames();
  const QString exec = u'\'' + QCoreApplication::applicationFilePath() + QStringLiteral("' %u");

  std::mutex mutex;
  std::vector<Opened> pending;  // not in the list yet, the first opened first

  std::vector<RecentDocument> read() {
    std::vector<std::string> urls;
    {
      const std::lock_guard lock(mutex);
      for (const Opened& opened : pending) urls.insert(urls.begin(), opened.url);
    }
    if (const auto list = readList(path); list.ok()) {
      for (const QString& url : documentsOf(list.value(), applications)) {
        urls.push_back(url.toStdString());
      }
    }
    const MountedShares shares;
    std::unordered_map<std::string, std::string> ofFolders;
    std::vector<RecentDocument> documents;
    for (const Url& url : uniques(parsed(urls))) {
      std::string share;
      if (url.isFile()) {
        const std::string file = url.path();
        const auto [known, isNew] = ofFolders.try_emplace(file.substr(0, file.rfind('/') + 1));
        if (isNew) known->second = shares.shareOf(known->first);
        share = known->second;
        if (share.empty() && isLink(file)) share = shares.shareOf(file);
      }
      documents.push_back({url.text(), std::move(share)});
    }
    return documents;
  }

  // Brings what is pending into the list. Off the interface thread.
  void write() {
    std::vector<Opened> opened;
    {
      const std::lock_guard lock(mutex);
      opened = pending;
    }
    if (opened.empty()) return;
    if (const auto written = writeAll(opened); !written.ok()) {
      std::fprintf(stderr, "zqswiftui: recent documents: %s\n", written.error().sentence.c_str());
    }
    const std::lock_guard lock(mutex);
    pending.erase(pending.begin(), pending.begin() + static_cast<std::ptrdiff_t>(opened.size()));
  }

 private:
  static std::vector<Url> parsed(const std::vector<std::string>& texts) {
    std::vector<Url> urls;
    for (const std::string& text : texts) {
      if (const auto url = Url::parse(text)) urls.push_back(*url);
    }
    return urls;
  }

  Result<void> writeAll(const std::vector<Opened>& opened) const {
    const QString file = toQString(path);
    if (!QDir().mkpath(QFileInfo(file).path())) return Error{"cannot make the folder of " + path};
    // The name that the desktop's own programs lock too.
    QLockFile lock(file + QStringLiteral(".lock"));
    lock.setStaleLockTime(0);
    if (!lock.tryLock(kLockMs)) return Error{path + " stays locked by another program"};
    for (int i = 0; i < kTries; ++i) {
      const auto before = stampOf(path);
      const auto list = readList(path);
      if (!list.ok()) return list.error();
      const auto next = withAll(list.value(), opened);
      if (!next.ok()) return next.error();
      // Not every program takes the lock.
      if (stampOf(path) != before) continue;
      auto replaced =
          replaceFile(path, std::string_view(next.value().constData(),
                                             static_cast<std::size_t>(next.value().size())));
      if (replaced.ok() && !before) ::chmod(path.c_str(), S_IRUSR | S_IWUSR);
      return replaced;
    }
    return Error{path + " is changed without a rest by another program"};
  }

  Result<QByteArray> withAll(QByteArray list, const std::vector<Opened>& opened) const {
    const QMimeDatabase types;
    for (const Opened& document : opened) {
      const QString name = toQString(Url::parse(document.url)->path());
      const OpenedDocument entry{
          toQString(document.url),
          types.mimeTypeForFile(name, QMimeDatabase::MatchExtension).name(),
          applications.isEmpty() ? QStringLiteral("unnamed") : applications.front(), exec,
          document.when};
      auto next = withDocument(list, entry);
      if (!next) {
        if (const auto kept = keepDamaged(list); !kept.ok()) return kept.error();
        next = withDocument(undamaged(list), entry);
      }
      list = *next;
    }
    return list;
  }

  Result<void> keepDamaged(const QByteArray& list) const {
    const auto name = path + ".damaged-" +
                      QDateTime::currentDateTimeUtc()
                          .toString(QStringLiteral("yyyyMMddTHHmmsszzz"))
                          .toStdString();
    std::fprintf(stderr, "zqswiftui: recent documents: the list was damaged; it is kept as %s\n",
                 name.c_str());
    return replaceFile(name,
                       std::string_view(list.constData(), static_cast<std::size_t>(list.size())));
  }
};

std::string DesktopDocuments::desktopList() {
  const auto folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  return folder.toStdString() + "/recently-used.xbel";
}

DesktopDocuments::DesktopDocuments(const std::string& file)
    : state_(std::make_shared<State>(file)) {}

DesktopDocuments::~DesktopDocuments() = default;

void DesktopDocuments::finish() {
  writes_.sync([] {});
}

void DesktopDocuments::list(std::function<void(std::vector<RecentDocument>)> answer) {
  if (!answer) return;
  Queue::execute(true, [state = state_, answer = std::move(answer)]() mutable {
    XMain::executeWhileThere(
        [documents = state->read(), answer = std::move(answer)] { answer(documents); });
  });
}

void DesktopDocuments::add(std::string url) {
  if (!Url::parse(url)) return;
  {
    const std::lock_guard lock(state_->mutex);
    state_->pending.push_back({std::move(url), QDateTime::currentDateTimeUtc()});
  }
  writes_.post([state = state_] { state->write(); });
}

}  // namespace zq::qt
