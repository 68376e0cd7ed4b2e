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
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/pasteboard.hpp>

namespace zq::qt {
namespace {

constexpr qsizetype kMaxBytes = qsizetype{256} << 20;
constexpr qsizetype kMaxUrls = 10000;
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

std::optional<Bytes> imageOf(const QMimeData& mime, const QStringList& formats) {
  QByteArray data;
  for (const char* type : kImageTypes) {
    if (!formats.contains(QLatin1String(type))) continue;
    data = mime.data(QLatin1String(type));
    break;
  }
  if (data.isEmpty() && formats.contains(QStringLiteral("application/x-qt-image"))) {
    data = toPng(qvariant_cast<QImage>(mime.imageData()));
  }
  if (data.isEmpty() || data.size() > kMaxBytes) return std::nullopt;
  return toBytes(data);
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
std::optional<QStringList> fill(QMimeData& mime, std::optional<SelectionReader::Found> found) {
  if (!found) return std::nullopt;
  const QByteArray data(reinterpret_cast<const char*>(found->bytes.data()),
                        static_cast<qsizetype>(found->bytes.size()));
  QString type = QString::fromStdString(found->type);
  if (type == QLatin1String("STRING")) mime.setText(QString::fromLatin1(data));
  if (type == QLatin1String("UTF8_STRING") || type.startsWith(QLatin1String("text/plain"))) {
    mime.setText(QString::fromUtf8(data));
  }
  if (mime.hasText()) return QStringList{QStringLiteral("text/plain")};
  mime.setData(type, data);
  return QStringList{type};
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
  auto* mime = new QMimeData;
  mime->setData(QStringLiteral("image/") + QString::fromLatin1(format), data);
  // What every other program takes.
  if (format != "png") mime->setData(QStringLiteral("image/png"), toPng(QImage::fromData(data)));
  QGuiApplication::clipboard()->setMimeData(mime);
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
  others_->read(types, static_cast<std::size_t>(kMaxBytes),
                [this, answer = std::move(answer), read](auto found) {
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
  answerLater(std::move(answer),
              {"UTF8_STRING", "text/plain;charset=utf-8", "text/plain", "STRING"}, &textOf);
}

void Pasteboard::readImage(Answer<Bytes> answer) {
  answerLater(std::move(answer), {kImageTypes.begin(), kImageTypes.end()}, &imageOf);
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
