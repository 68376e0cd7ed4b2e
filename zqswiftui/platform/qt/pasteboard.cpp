// ZQSwiftUI, MIT licence; see LICENSE.
#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QMimeData>
#include <QUrl>
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

}  // namespace

Pasteboard::Pasteboard(zq::MainQueue& queue)
    : queue_(queue),
      changes_(QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged,
                                QGuiApplication::clipboard(), [this] { ++changeCount_; })) {}

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
void Pasteboard::answerLater(Answer<T> answer, std::optional<T> (Pasteboard::*read)()) {
  if (!answer) return;
  queue_.post([this, answer = std::move(answer), read] { answer((this->*read)()); });
}

void Pasteboard::readText(Answer<std::string> answer) {
  answerLater(std::move(answer), &Pasteboard::text);
}

void Pasteboard::readImage(Answer<Bytes> answer) {
  answerLater(std::move(answer), &Pasteboard::image);
}

void Pasteboard::readUrls(Answer<std::vector<std::string>> answer) {
  answerLater(std::move(answer), &Pasteboard::urls);
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

std::optional<std::string> Pasteboard::text() {
  const QMimeData* mime = contents();
  if (mime == nullptr || formats_.filter(QStringLiteral("text/plain")).isEmpty()) {
    return std::nullopt;
  }
  const QString text = mime->text();
  if (text.isEmpty() || text.size() > kMaxBytes) return std::nullopt;
  return text.toStdString();
}

std::optional<Bytes> Pasteboard::image() {
  const QMimeData* mime = contents();
  if (mime == nullptr) return std::nullopt;
  QByteArray data;
  for (const char* type : kImageTypes) {
    if (!formats_.contains(QLatin1String(type))) continue;
    data = mime->data(QLatin1String(type));
    break;
  }
  if (data.isEmpty() && formats_.contains(QStringLiteral("application/x-qt-image"))) {
    data = toPng(qvariant_cast<QImage>(mime->imageData()));
  }
  if (data.isEmpty() || data.size() > kMaxBytes) return std::nullopt;
  return toBytes(data);
}

std::optional<std::vector<std::string>> Pasteboard::urls() {
  const QMimeData* mime = contents();
  if (mime == nullptr || !formats_.contains(QStringLiteral("text/uri-list"))) return std::nullopt;
  std::vector<std::string> result;
  const QList<QUrl> list = mime->urls();
  for (const QUrl& url : list.first(std::min(list.size(), kMaxUrls))) {
    if (!url.isValid() || url.isRelative()) continue;  // a comment of the list, or no URL
    result.push_back(url.toEncoded().toStdString());
  }
  if (result.empty()) return std::nullopt;
  return result;
}

}  // namespace zq::qt
