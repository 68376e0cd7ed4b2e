// ZQSwiftUI, MIT licence; see LICENSE.
#include <sys/stat.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLockFile>
#include <QMimeDatabase>
#include <QStandardPaths>
#include <chrono>
#include <cstdio>
#include <functional>
#include <iterator>
#include <mutex>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/desktop_documents.hpp>
#include <zqswiftui/platform/qt/document_lookup.hpp>
#include <zqswiftui/platform/qt/recent_list.hpp>

namespace zq::qt {
namespace {

constexpr std::uint64_t kMaxListBytes = std::uint64_t{64} << 20;
constexpr int kLockMs = 5000;
constexpr int kTries = 10;

struct Opened {
  std::string url;
  std::chrono::system_clock::time_point when;
};

// What tells whether somebody has written a file since.
using Stamp = std::tuple<dev_t, ino_t, off_t, time_t, long>;

std::optional<Stamp> stampOf(const std::string& path) {
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) return std::nullopt;
  return Stamp{info.st_dev, info.st_ino, info.st_size, info.st_mtim.tv_sec, info.st_mtim.tv_nsec};
}

// Empty where there is no list yet.
Result<std::string> readList(const std::string& path) {
  if (!stampOf(path)) return std::string();
  return readTextFile(path, kMaxListBytes);
}

std::vector<std::string> applicationNames() {
  QStringList names{QCoreApplication::applicationName(), QGuiApplication::applicationDisplayName(),
                    QGuiApplication::desktopFileName()};
  names.removeAll(QString());
  names.removeDuplicates();
  std::vector<std::string> texts;
  for (const QString& name : names) texts.push_back(name.toStdString());
  return texts;
}

// Each once.
std::vector<RecentDocument> inOrder(const std::vector<std::string>& texts,
                                    std::vector<DocumentLookup::Found> found) {
  std::unordered_map<std::string_view, RecentDocument*> ofTexts;
  ofTexts.reserve(found.size());
  for (auto& [text, document] : found) ofTexts.emplace(text, &document);
  std::vector<RecentDocument> documents;
  documents.reserve(found.size());
  std::unordered_set<std::string_view> known;  // of the documents, which therefore never move
  for (const std::string& text : texts) {
    const auto of = ofTexts.find(text);
    if (of == ofTexts.end() || known.contains(of->second->url)) continue;
    documents.push_back(std::move(*of->second));
    ofTexts.erase(of);
    known.insert(documents.back().url);
  }
  return documents;
}

}  // namespace

struct DesktopDocuments::State {
  explicit State(std::string file) : path(std::move(file)) {}

  const std::string path;
  const std::vector<std::string> applications = applicationNames();
  const std::string exec = '\'' + QCoreApplication::applicationFilePath().toStdString() + "' %u";

  std::mutex mutex;
  std::vector<Opened> pending;  // not in the list yet, the first opened first

  std::vector<RecentDocument> read() {
    std::vector<std::string> urls;
    {
      const std::lock_guard lock(mutex);
      for (const Opened& opened : pending) urls.insert(urls.begin(), opened.url);
    }
    DocumentLookup lookup;
    for (const std::string& url : urls) lookup.add(url);
    if (const auto list = readList(path); list.ok()) {
      auto listed =
          documentsOf(list.value(), applications, [&](const std::string& url) { lookup.add(url); });
      urls.insert(urls.end(), std::move_iterator(listed.begin()), std::move_iterator(listed.end()));
    }
    return inOrder(urls, lookup.finish());
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
      auto replaced = replaceFile(path, std::string_view(next.value()));
      if (replaced.ok() && !before) ::chmod(path.c_str(), S_IRUSR | S_IWUSR);
      return replaced;
    }
    return Error{path + " is changed without a rest by another program"};
  }

  Result<std::string> withAll(std::string list, const std::vector<Opened>& opened) const {
    const QMimeDatabase types;
    for (const Opened& document : opened) {
      const QString name = toQString(Url::parse(document.url)->path());
      const OpenedDocument entry{
          document.url,
          types.mimeTypeForFile(name, QMimeDatabase::MatchExtension).name().toStdString(),
          applications.empty() ? "unnamed" : applications.front(), exec, document.when};
      auto next = withDocument(list, entry);
      if (!next) {
        if (const auto kept = keepDamaged(list); !kept.ok()) return kept.error();
        next = withDocument(undamaged(list), entry);
        if (!next) return Error{"cannot mend " + path};
      }
      list = *std::move(next);
    }
    return list;
  }

  Result<void> keepDamaged(const std::string& list) const {
    const auto name = path + ".damaged-" +
                      QDateTime::currentDateTimeUtc()
                          .toString(QStringLiteral("yyyyMMddTHHmmsszzz"))
                          .toStdString();
    std::fprintf(stderr, "zqswiftui: recent documents: the list was damaged; it is kept as %s\n",
                 name.c_str());
    return replaceFile(name, std::string_view(list));
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
    XMain::executeWhileThere([documents = state->read(), answer = std::move(answer)]() mutable {
      answer(std::move(documents));
    });
  });
}

void DesktopDocuments::add(std::string url) {
  if (!Url::parse(url)) return;
  {
    const std::lock_guard lock(state_->mutex);
    state_->pending.push_back({std::move(url), std::chrono::system_clock::now()});
  }
  writes_.post([state = state_] { state->write(); });
}

}  // namespace zq::qt
