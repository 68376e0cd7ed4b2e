// ZQSwiftUI, MIT licence; see LICENSE.
#include <QElapsedTimer>
#include <QMimeData>
#include <QString>
#include <QSysInfo>
#include <QtEndian>
#include <algorithm>
#include <memory>
#include <utility>
#include <zqswiftui/platform/base/uri_list.hpp>
#include <zqswiftui/platform/qt/drop_offer.hpp>

namespace zq::qt {
namespace {

constexpr qint64 kFormatPatience = 1000;  // milliseconds, of which Qt waits five thousand

const QString kText = QStringLiteral("text/plain");

Bytes toBytes(std::string_view text) {
  return {text.begin(), text.end()};
}

class Address final : public DragItem {
 public:
  explicit Address(std::string_view line) : line_(line) {}
  std::vector<std::string> types() const override {
    if (!isFileAddress(line_)) return {std::string(dragTypeUrl)};
    return {std::string(dragTypeFileUrl), std::string(dragTypeUrl)};
  }
  void load(std::string_view type,
            std::function<void(std::optional<Bytes>)> answer) const override {
    const bool known = type == dragTypeUrl || (type == dragTypeFileUrl && isFileAddress(line_));
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

void addUriList(const QByteArray& bytes, DragItems& items) {
  const std::string_view list(bytes.constData(), static_cast<std::size_t>(bytes.size()));
  for (const auto line : addressLines(list)) items.push_back(std::make_shared<Address>(line));
}

// Addresses and titles in turn, a line each, in UTF-16.
void addTitled(const QByteArray& bytes, DragItems& items) {
  QString text(bytes.size() / 2, Qt::Uninitialized);
  qFromLittleEndian<char16_t>(bytes.constData(), text.size(), text.data());
  if (text.startsWith(QChar::ByteOrderMark)) text.remove(0, 1);
  bool title = false;
  for (const QStringView line : QStringView(text).tokenize(u'\n')) {
    if (items.size() >= kMostAddresses) return;
    if (std::exchange(title, !title)) continue;
    const std::string utf8 = line.toUtf8().toStdString();
    if (const auto address = addressLine(utf8); !address.empty()) {
      items.push_back(std::make_shared<Address>(address));
    }
  }
}

// Qt waits for the source itself.
class MimeData final : public DropData {
 public:
  explicit MimeData(const QMimeData& mime) : mime_(mime) { waited_.start(); }
  std::optional<QByteArray> bytes(const QString& format) override {
    if (waited_.elapsed() > kFormatPatience) return std::nullopt;
    return mime_.data(format);
  }
  std::optional<QString> text() override {
    if (waited_.elapsed() > kFormatPatience) return std::nullopt;
    return mime_.text();
  }

 private:
  const QMimeData& mime_;
  QElapsedTimer waited_;
};

}  // namespace

std::vector<std::string> offeredTypes(const QMimeData& mime) {
  std::vector<std::string> types;
  const QStringList formats = mime.formats();
  if (formats.contains(kUriList)) types.emplace_back(dragTypeFileUrl);
  if (formats.contains(kUriList) || formats.contains(kMozUrl)) types.emplace_back(dragTypeUrl);
  if (formats.contains(kText)) types.emplace_back(dragTypeText);
  return types;
}

DragItems offeredItems(const QStringList& formats, const std::vector<std::string>& wanted,
                       DropData& data) {
  const auto wants = [&wanted](std::string_view type) {
    return std::find(wanted.begin(), wanted.end(), type) != wanted.end();
  };
  const auto bytes = [&](const QString& format) {
    return formats.contains(format) ? data.bytes(format).value_or(QByteArray()) : QByteArray();
  };
  DragItems items;
  if (wants(dragTypeUrl) || wants(dragTypeFileUrl)) {
    addUriList(bytes(kUriList), items);
    if (items.empty()) addTitled(bytes(kMozUrl), items);
  }
  if (wants(dragTypeText) && formats.contains(kText)) {
    if (const auto text = data.text()) {
      items.push_back(std::make_shared<Words>(text->left(kLongestText)));
    }
  }
  return items;
}

DragItems offeredItems(const QMimeData& mime, const std::vector<std::string>& wanted) {
  MimeData data(mime);
  return offeredItems(mime.formats(), wanted, data);
}

}  // namespace zq::qt
