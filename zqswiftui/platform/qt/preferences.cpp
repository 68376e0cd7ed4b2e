// ZQSwiftUI, MIT licence; see LICENSE.
#include <QCoreApplication>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>
#include <charconv>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/preferences.hpp>

namespace zq::qt {
namespace {

constexpr double kWriteDelay = 0.5;

// The file knows texts only, so each value says its type: "b:1", "i:-3", "d:0.5", "s:text".
struct Encoder {
  QVariant operator()(bool v) const { return QStringLiteral("b:") + (v ? u'1' : u'0'); }
  QVariant operator()(std::int64_t v) const { return QStringLiteral("i:") + QString::number(v); }
  QVariant operator()(double v) const { return QStringLiteral("d:") + QString::number(v, 'g', 17); }
  QVariant operator()(const std::string& v) const { return QStringLiteral("s:") + toQString(v); }
  QVariant operator()(const std::vector<std::string>& v) const {
    QStringList list{QStringLiteral("l:")};
    for (const std::string& text : v) list.push_back(toQString(text));
    return list;
  }
};

std::optional<PreferenceValue> decode(const QVariant& variant) {
  const QStringList list = variant.toStringList();
  const QString text = list.value(0);
  const QString rest = text.mid(2);
  if (text == u"l:") {
    std::vector<std::string> values;
    for (qsizetype i = 1; i < list.size(); ++i) values.push_back(list[i].toStdString());
    return PreferenceValue(std::move(values));
  }
  bool valid = true;
  if (text.startsWith(u"s:")) return PreferenceValue(rest.toStdString());
  if (text.startsWith(u"b:")) return PreferenceValue(rest == u"1");
  if (text.startsWith(u"i:")) {
    const std::int64_t number = rest.toLongLong(&valid);
    if (valid) return PreferenceValue(number);
  }
  if (text.startsWith(u"d:")) {
    const double number = rest.toDouble(&valid);
    if (valid) return PreferenceValue(number);
  }
  return std::nullopt;
}

// A slash would make a group, and an empty key is none to Qt.
QString fileKey(std::string_view key) {
  QString text = toQString(key);
  text.replace(u'%', QStringLiteral("%25"));
  text.replace(u'/', QStringLiteral("%2F"));
  text.replace(u'\\', QStringLiteral("%5C"));
  return text.isEmpty() ? QStringLiteral("%") : text;
}

std::string keyOf(QString text) {
  if (text == u"%") return {};
  text.replace(QStringLiteral("%5C"), QStringLiteral("\\"));
  text.replace(QStringLiteral("%2F"), QStringLiteral("/"));
  text.replace(QStringLiteral("%25"), QStringLiteral("%"));
  return text.toStdString();
}

QString pathOrDefault(const QString& path) {
  if (!path.isEmpty()) return path;
  return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
         QStringLiteral("/preferences.ini");
}

}  // namespace

Preferences::Preferences(zq::MainQueue& queue, const QString& path)
    : queue_(queue), file_(std::make_unique<QSettings>(pathOrDefault(path), QSettings::IniFormat)) {
  for (const QString& key : file_->allKeys()) {
    if (key.isEmpty()) continue;  // of a damaged file
    if (auto value = decode(file_->value(key))) values_.emplace(keyOf(key), std::move(*value));
  }
}

Preferences::~Preferences() {
  queue_.cancel(pending_);
  write();
}

std::optional<PreferenceValue> Preferences::value(std::string_view key) const {
  const std::scoped_lock lock(mutex_);
  const auto found = values_.find(key);
  if (found == values_.end()) return std::nullopt;
  return found->second;
}

void Preferences::setValue(std::string_view key, PreferenceValue value) {
  change(key, std::move(value));
}

void Preferences::remove(std::string_view key) {
  change(key, std::nullopt);
}

void Preferences::change(std::string_view key, Change change) {
  const std::scoped_lock lock(mutex_);
  const auto found = values_.find(key);
  if (change ? found != values_.end() && found->second == *change : found == values_.end()) return;
  if (change) {
    values_.insert_or_assign(std::string(key), *change);
  } else {
    values_.erase(found);
  }
  changes_.insert_or_assign(std::string(key), std::move(change));
  if (pending_ == 0) pending_ = queue_.postDelayed(kWriteDelay, [this] { write(); });
}

void Preferences::write() {
  std::map<std::string, Change, std::less<>> changes;
  {
    const std::scoped_lock lock(mutex_);
    changes.swap(changes_);
    pending_ = 0;
  }
  if (changes.empty()) return;
  for (const auto& [key, change] : changes) {
    if (change) {
      file_->setValue(fileKey(key), std::visit(Encoder{}, *change));
    } else {
      file_->remove(fileKey(key));
    }
  }
  file_->sync();
}

}  // namespace zq::qt
