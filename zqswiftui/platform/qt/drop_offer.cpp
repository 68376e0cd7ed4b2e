// ZQSwiftUI, MIT licence; see LICENSE.
#include <QElapsedTimer>
#include <QMimeData>
#include <QString>
#include <QSysInfo>
#include <QtEndian>
#include <algorithm>
#include <memory>
#include <utility>
#include <zqswiftui/platform/qt/drop_offer.hpp>

namespace zq::qt {
namespace {

constexpr std::size_t kMostItems = 100000;
constexpr std::size_t kLongestLine = 65536;
constexpr qsizetype kLongestText = qsizetype{16} << 20;
constexpr qint64 kPatience = 1000;  // milliseconds for a format; Qt itself waits for five seconds

const QString kUriList = QStringLiteral("text/uri-list");
const QString kMozUrl = QStringLiteral("text/x-moz-url");
const QString kText = QStringLiteral("text/plain");

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string_view trimmed(std::string_view line) {
  constexpr std::string_view blanks(" \t\r\n\0", 5);
  const std::size_t first = line.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(blanks) - first + 1);
}

bool hasScheme(std::string_view line) {
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos || colon == 0 || !isLetter(line[0])) return false;
  return std::all_of(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(colon), [](char c) {
    return isLetter(c) || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
  });
}

bool isFile(std::string_view line) {
  constexpr std::string_view scheme = "file:";
  return line.size() > scheme.size() &&
         std::equal(scheme.begin(), scheme.end(), line.begin(),
                    [](char a, char b) { return a == (isLetter(b) ? b | 0x20 : b); });
}

Bytes toBytes(std::string_view text) {
  return {text.begin(), text.end()};
}

class Address final : public DragItem {
 public:
  explicit Address(std::string_view line) : line_(line) {}
  std::vector<std::string> types() const override {
    if (!isFile(line_)) return {std::string(dragTypeUrl)};
    return {std::string(dragTypeFileUrl), std::string(dragTypeUrl)};
  }
  void load(std::string_view type,
            std::function<void(std::optional<Bytes>)> answer) const override {
    const bool known = type == dragTypeUrl || (type == dragTypeFileUrl && isFile(line_));
    if (!known) return answer(std::nullopt);
    static const std::string host = QSysInfo::machineHostName().toStdString();
    answer(toBytes(addressOf(line_, host)));
  }

 private:
  std::string line_;
};

class Words final : public DragItem {
 public:
  explicit Words(QString text) : text_(std::move(text)) {}
  std::vector<std::string> types() const override { return {std::string(dragTypeText)}; }
  void load(std::string_view type,
            std::function<void(std::optional<Bytes>)> answer) const override {
    if (type != dragTypeText) return answer(std::nullopt);
    answer(toBytes(text_.toStdString()));
  }

 private:
  QString text_;
};

void addAddress(std::string_view line, DragItems& items) {
  line = trimmed(line);
  if (line.size() > kLongestLine || !hasScheme(line)) return;
  items.push_back(std::make_shared<Address>(line));
}

// Lines that begin with # are comments.
void addUriList(const QByteArray& bytes, DragItems& items) {
  std::string_view rest(bytes.constData(), static_cast<std::size_t>(bytes.size()));
  while (!rest.empty() && items.size() < kMostItems) {
    const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
    addAddress(rest.substr(0, end), items);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
}

// Addresses and titles in turn, a line each, in UTF-16.
void addTitled(const QByteArray& bytes, DragItems& items) {
  QString text(bytes.size() / 2, Qt::Uninitialized);
  qFromLittleEndian<char16_t>(bytes.constData(), text.size(), text.data());
  if (text.startsWith(QChar::ByteOrderMark)) text.remove(0, 1);
  bool title = false;
  for (const QStringView line : QStringView(text).tokenize(u'\n')) {
    if (items.size() >= kMostItems) return;
    if (!std::exchange(title, !title)) addAddress(line.toUtf8().toStdString(), items);
  }
}

}  // namespace

std::string addressOf(std::string_view line, std::string_view thisHost) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string address;
  if (isFile(line)) {
    std::string_view rest = line.substr(5);
    const bool slashes = rest.starts_with("//");
    if (slashes) rest.remove_prefix(2);
    const std::string_view host = rest.substr(0, rest.find('/'));
    const bool ours = host == "localhost" || (!thisHost.empty() && host == thisHost);
    if (slashes && ours) rest.remove_prefix(host.size());
    address = slashes || rest.starts_with('/') ? "file://" : "file:";
    line = rest;
  }
  for (const char c : line) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte > 0x20 && byte < 0x7F) {
      address += c;
    } else {
      address += {'%', digits[byte >> 4], digits[byte & 15]};
    }
  }
  return address;
}

std::vector<std::string> offeredTypes(const QMimeData& mime) {
  std::vector<std::string> types;
  const QStringList formats = mime.formats();
  if (formats.contains(kUriList)) types.emplace_back(dragTypeFileUrl);
  if (formats.contains(kUriList) || formats.contains(kMozUrl)) types.emplace_back(dragTypeUrl);
  if (formats.contains(kText)) types.emplace_back(dragTypeText);
  return types;
}

DragItems offeredItems(const QMimeData& mime, const std::vector<std::string>& wanted) {
  const auto wants = [&wanted](std::string_view type) {
    return std::find(wanted.begin(), wanted.end(), type) != wanted.end();
  };
  const QStringList formats = mime.formats();
  QElapsedTimer waited;
  waited.start();
  DragItems items;
  if (wants(dragTypeUrl) || wants(dragTypeFileUrl)) {
    if (formats.contains(kUriList)) addUriList(mime.data(kUriList), items);
    const bool none = items.empty() && waited.elapsed() < kPatience;
    if (none && formats.contains(kMozUrl)) addTitled(mime.data(kMozUrl), items);
  }
  if (wants(dragTypeText) && formats.contains(kText) && waited.elapsed() < kPatience) {
    items.push_back(std::make_shared<Words>(mime.text().left(kLongestText)));
  }
  return items;
}

}  // namespace zq::qt
