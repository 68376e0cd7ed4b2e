// ZQSwiftUI, MIT licence; see LICENSE.
#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QMimeData>
#include <QUrl>
#include <algorithm>
#include <array>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/pasteboard.hpp>
#include <zqswiftui/platform/qt/quiet_reading.hpp>

namespace zq::qt {
namespace {

constexpr qsizetype kMaxBytes = qsizetype{256} << 20;
constexpr qsizetype kMaxUrls = 10000;
constexpr std::chrono::minutes kPasteboardPatience{1};
constexpr std::array kImageTypes{"image/png",  "image/jpeg", "image/webp",
                                 "image/tiff", "image/gif",  "image/bmp"};

Bytes toBytes(const QByteArray& data) {
  return Bytes(data.begin(), data.end());
}

QByteArray toPng(const QImage& image) {
  QByteArray data;
  QBuffer buffer(&data);
  if (image.isNull() || !buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG")) {
    return {};
  }
  return data;
}

QByteArray formatOf(const QByteArray& encoded) {
  QBuffer buffer;
  buffer.setData(encoded);
  buffer.open(QIODevice::ReadOnly);
  return QImageReader::imageFormat(&buffer);
}

std::optional<std::string> textOf(const QMimeData& mime, const QStringList& formats) {
  if (formats.filter(QStringLiteral("text/plain")).isEmpty()) return std::nullopt;
  const QString text = mime.text();
  if (text.isEmpty() || text.size() > kMaxBytes) return std::nullopt;
  return text.toStdString();
}

// A picture of this process, or of an owner that Qt asks: encoded, or in memory.
struct Offered {
  QByteArray encoded;
  QImage image;
};

Offered imageOf(const QMimeData& mime, const QStringList& formats) {
  for (const char* type : kImageTypes) {
    if (!formats.contains(QLatin1String(type))) continue;
    if (QByteArray data = mime.data(QLatin1String(type)); !data.isEmpty()) return {data, {}};
    break;
  }
  if (!formats.contains(QStringLiteral("application/x-qt-image"))) return {};
  return {{}, qvariant_cast<QImage>(mime.imageData())};
}

// Takes a while for an image in memory.
std::optional<Bytes> bytesOf(const Offered& offered) {
  const QByteArray data = offered.image.isNull() ? offered.encoded : toPng(offered.image);
  if (data.isEmpty() || data.size() > kMaxBytes) return std::nullopt;
  return toBytes(data);
}

// As it is, and where there is one as what every other program takes.
QMimeData* mimeOf(const QByteArray& format, const QByteArray& data, const QByteArray& png) {
  auto* mime = new QMimeData;
  mime->setData(QStringLiteral("image/") + QString::fromLatin1(format), data);
  if (!png.isEmpty()) mime->setData(QStringLiteral("image/png"), png);
  return mime;
}

std::optional<std::vector<std::string>> urlsOf(const QMimeData& mime, const QStringList& formats) {
  if (!formats.contains(QStringLiteral("text/uri-list"))) return std::nullopt;
  std::vector<std::string> result;
  const QList<QUrl> list = mime.urls();
  for (const QUrl& url : list.first(std::min(list.size(), kMaxUrls))) {
    if (!url.isValid() || url.isRelative()) continue;  // a comment of the list, or no URL
    result.push_back(url.toEncoded().toStdString());
  }
  if (result.empty()) return std::nullopt;
  return result;
}

// Of what another program has, only the bytes of the chosen type.
std::optional<QStringList> fill(QMimeData& mime,
                                const std::optional<SelectionReader::Found>& found) {
  if (!found) return std::nullopt;
  const std::vector<std::string> texts = SelectionReader::textTypes();
  if (std::find(texts.begin(), texts.end(), found->type) != texts.end()) {
    mime.setText(toQString(SelectionReader::text(*found)));
    return QStringList{QStringLiteral("text/plain")};
  }
  const QString type = QString::fromStdString(found->type);
  mime.setData(type, QByteArray(reinterpret_cast<const char*>(found->bytes.data()),
                                static_cast<qsizetype>(found->bytes.size())));
  return QStringList{type};
}

SelectionReader::Question question(std::vector<std::string> types) {
  return {.types = std::move(types),
          .mostBytes = static_cast<std::size_t>(kMaxBytes),
          .deadline = SelectionReader::Clock::now() + kPasteboardPatience};
}

}  // namespace

Pasteboard::Pasteboard(zq::MainQueue& queue)
    : queue_(queue),
      changes_(QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged,
                                QGuiApplication::clipboard(), [this] { ++changeCount_; })),
      others_(SelectionReader::create()) {}

Pasteboard::~Pasteboard() {
  QObject::disconnect(changes_);
}

void Pasteboard::setText(std::string text) {
  QGuiApplication::clipboard()->setText(toQString(text));
}

void Pasteboard::setImage(Bytes encoded) {
  const QByteArray data(reinterpret_cast<const char*>(encoded.data()),
                        static_cast<qsizetype>(encoded.size()));
  const QByteArray format = formatOf(data);
  if (format.isEmpty()) return clear();
  QGuiApplication::clipboard()->setMimeData(mimeOf(format, data, {}));
  if (format == "png") return;
  // What every other program takes costs a while: it is offered, too, once it is made.
  Queue::execute(true, [this, format, data, change = changeCount_] {
    const QuietReading quiet;
    XMain::post([this, format, data, change, png = toPng(QImage::fromData(data))] {
      if (changeCount_ != change || png.isEmpty()) return;
      QGuiApplication::clipboard()->setMimeData(mimeOf(format, data, png));
      changeCount_ = formatsOf_ = change;  // nothing new to whoever follows it
      formats_ = QGuiApplication::clipboard()->mimeData()->formats();
    });
  });
}

void Pasteboard::setUrls(std::vector<std::string> urls) {
  QList<QUrl> list;
  for (const std::string& url : urls) list.push_back(QUrl(toQString(url)));
  auto* mime = new QMimeData;
  mime->setUrls(list);
  QGuiApplication::clipboard()->setMimeData(mime);
}

void Pasteboard::clear() {
  QGuiApplication::clipboard()->clear();
}

template <class T>
void Pasteboard::answerLater(Answer<T> answer, const std::vector<std::string>& types,
                             std::optional<T> (*read)(const QMimeData&, const QStringList&)) {
  if (!answer) return;
  if (!ownerMayHang()) {
    queue_.post([this, answer = std::move(answer), read] {
      const QMimeData* mime = contents();
      answer(mime != nullptr ? read(*mime, formats_) : std::nullopt);
    });
    return;
  }
  others_->read(question(types), [this, answer = std::move(answer), read](auto found) {
    queue_.post([answer, read, found = std::move(found)] {
      QMimeData mime;
      const auto formats = fill(mime, found);
      answer(formats ? read(mime, *formats) : std::nullopt);
    });
  });
}

bool Pasteboard::ownerMayHang() const {
  return others_ != nullptr && !QGuiApplication::clipboard()->ownsClipboard();
}

void Pasteboard::readText(Answer<std::string> answer) {
  answerLater(std::move(answer), SelectionReader::textTypes(), &textOf);
}

void Pasteboard::readImage(Answer<Bytes> answer) {
  if (!answer) return;
  if (ownerMayHang()) {
    others_->read(question({kImageTypes.begin(), kImageTypes.end()}),
                  [this, answer = std::move(answer)](std::optional<SelectionReader::Found> found) {
                    std::optional<Bytes> bytes;
                    if (found && !found->bytes.empty()) bytes = std::move(found->bytes);
                    queue_.post([answer, bytes = std::move(bytes)] { answer(bytes); });
                  });
    return;
  }
  queue_.post([this, answer = std::move(answer)] {
    const QMimeData* mime = contents();
    if (mime == nullptr) return answer(std::nullopt);
    Queue::execute(true, [answer, offered = imageOf(*mime, formats_)] {
      XMain::post([answer, bytes = bytesOf(offered)] { answer(bytes); });
    });
  });
}

void Pasteboard::readUrls(Answer<std::vector<std::string>> answer) {
  answerLater(std::move(answer), {"text/uri-list"}, &urlsOf);
}

const QMimeData* Pasteboard::contents() {
  if (formatsOf_ == changeCount_ && formats_.isEmpty()) return nullptr;
  const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
  if (mime == nullptr) return nullptr;
  if (formatsOf_ != changeCount_) {
    formats_ = mime->formats();
    formatsOf_ = changeCount_;
  }
  return formats_.isEmpty() ? nullptr : mime;
}

}  // namespace zq::qt
