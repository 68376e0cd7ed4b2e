// ZQSwiftUI, MIT licence; see LICENSE.
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <algorithm>
#include <utility>
#include <vector>
#include <zqswiftui/platform/qt/recent_list.hpp>

namespace zq::qt {
namespace {

const QString kRootName = QStringLiteral("xbel");
constexpr qsizetype kMaxHref = 8192;
const QString kBookmarks = QStringLiteral("http://www.freedesktop.org/standards/desktop-bookmarks");
const QString kMime = QStringLiteral("http://www.freedesktop.org/standards/shared-mime-info");
const QString kOwner = QStringLiteral("http://freedesktop.org");

QString timeText(const QDateTime& when) {
  return when.toUTC().toString(Qt::ISODateWithMs);
}

// Names are read as they are written, prefix and all, so that what is copied stays as it was.
QStringView localName(QStringView name) {
  return name.mid(name.lastIndexOf(u':') + 1);
}

// Copies a list token by token, and on the way brings the document into it.
class ListCopy {
 public:
  ListCopy(const QByteArray& list, const OpenedDocument& document)
      : reader_(list), writer_(&copy_), document_(document) {
    reader_.setNamespaceProcessing(false);
  }

  std::optional<QByteArray> run() {
    while (!reader_.atEnd()) {
      reader_.readNext();
      if (reader_.isStartElement()) {
        start();
      } else if (reader_.isEndElement()) {
        end();
      } else if (!reader_.hasError()) {
        writer_.writeCurrentToken(reader_);
      }
    }
    if (reader_.hasError() || !added_) return std::nullopt;
    return std::move(copy_);
  }

 private:
  enum Depth { kRoot = 1, kBookmark = 2, kInfo = 3, kMetadata = 4, kApplications = 5 };

  void start() {
    ++depth_;
    const QStringView name = localName(reader_.qualifiedName());
    QXmlStreamAttributes attributes = reader_.attributes();
    if (depth_ == kRoot) {
      if (name != kRootName) return reader_.raiseError(QStringLiteral("no list of bookmarks"));
      takePrefixes(attributes);
    }
    if (depth_ == kBookmark && name == u"bookmark" && !added_ &&
        attributes.value(QLatin1String("href")) == document_.href) {
      inDocument_ = true;
      set(attributes, u"modified", timeText(document_.when));
      set(attributes, u"visited", timeText(document_.when));
    }
    if (depth_ == kMetadata && inDocument_ && name == u"metadata") {
      inOwnMetadata_ = attributes.value(QLatin1String("owner")) == kOwner;
    }
    if (depth_ == kApplications + 1 && inOwnMetadata_ && name == u"application" &&
        attributes.value(QLatin1String("name")) == document_.application) {
      added_ = true;
      set(attributes, u"exec", document_.exec);
      set(attributes, u"modified", timeText(document_.when));
      const int count =
          std::clamp(attributes.value(QLatin1String("count")).toInt(), 0, 1'000'000'000);
      set(attributes, u"count", QString::number(count + 1));
    }
    writer_.writeStartElement(reader_.qualifiedName().toString());
    writer_.writeAttributes(attributes);
  }

  void end() {
    const QStringView name = localName(reader_.qualifiedName());
    if (inDocument_ && !added_) {
      if (depth_ == kApplications && inOwnMetadata_ && name == u"applications") addApplication();
      if (depth_ == kMetadata && inOwnMetadata_) addApplications();
      if (depth_ == kInfo && name == u"info") addMetadata();
      if (depth_ == kBookmark) addInfo();
    }
    if (depth_ == kRoot && !added_) addDocument();
    if (depth_ == kMetadata) inOwnMetadata_ = false;
    if (depth_ == kBookmark) inDocument_ = false;
    writer_.writeEndElement();
    --depth_;
  }

  void takePrefixes(QXmlStreamAttributes& attributes) {
    bookmarkPrefix_ = prefix(attributes, kBookmarks, QStringLiteral("bookmark"));
    mimePrefix_ = prefix(attributes, kMime, QStringLiteral("mime"));
  }
  // The one that the list has for a namespace; else it gets it.
  static QString prefix(QXmlStreamAttributes& attributes, const QString& uri,
                        const QString& usual) {
    for (const QXmlStreamAttribute& attribute : std::as_const(attributes)) {
      if (attribute.value() == uri && attribute.qualifiedName().startsWith(u"xmlns:")) {
        return attribute.qualifiedName().mid(6).toString();
      }
    }
    set(attributes, QStringLiteral("xmlns:") + usual, uri);
    return usual;
  }
  static void set(QXmlStreamAttributes& attributes, QStringView name, const QString& value) {
    const QXmlStreamAttribute made(name.toString(), value);
    const auto found =
        std::find_if(attributes.begin(), attributes.end(),
                     [&](const QXmlStreamAttribute& a) { return a.qualifiedName() == name; });
    if (found == attributes.end()) {
      attributes.append(made);
    } else {
      *found = made;
    }
  }

  void addApplication() {
    added_ = true;
    writer_.writeEmptyElement(bookmarkPrefix_ + QStringLiteral(":application"));
    writer_.writeAttribute(QStringLiteral("name"), document_.application);
    writer_.writeAttribute(QStringLiteral("exec"), document_.exec);
    writer_.writeAttribute(QStringLiteral("modified"), timeText(document_.when));
    writer_.writeAttribute(QStringLiteral("count"), QStringLiteral("1"));
  }
  void addApplications() {
    writer_.writeStartElement(bookmarkPrefix_ + QStringLiteral(":applications"));
    addApplication();
    writer_.writeEndElement();
  }
  void addMetadata() {
    writer_.writeStartElement(QStringLiteral("metadata"));
    writer_.writeAttribute(QStringLiteral("owner"), kOwner);
    writer_.writeEmptyElement(mimePrefix_ + QStringLiteral(":mime-type"));
    writer_.writeAttribute(QStringLiteral("type"), document_.mimeType.isEmpty()
                                                       ? QStringLiteral("application/octet-stream")
                                                       : document_.mimeType);
    addApplications();
    writer_.writeEndElement();
  }
  void addInfo() {
    writer_.writeStartElement(QStringLiteral("info"));
    addMetadata();
    writer_.writeEndElement();
  }
  void addDocument() {
    writer_.writeCharacters(QStringLiteral("  "));
    writer_.writeStartElement(QStringLiteral("bookmark"));
    writer_.writeAttribute(QStringLiteral("href"), document_.href);
    for (const char* attribute : {"added", "modified", "visited"}) {
      writer_.writeAttribute(QLatin1String(attribute), timeText(document_.when));
    }
    addInfo();
    writer_.writeEndElement();
    writer_.writeCharacters(QStringLiteral("\n"));
  }

  QByteArray copy_;
  QXmlStreamReader reader_;
  QXmlStreamWriter writer_;
  const OpenedDocument& document_;
  QString bookmarkPrefix_;
  QString mimePrefix_;
  int depth_ = 0;
  bool inDocument_ = false;
  bool inOwnMetadata_ = false;
  bool added_ = false;
};

QByteArray emptyList() {
  return QByteArray(R"(<?xml version="1.0" encoding="UTF-8"?>
<xbel version="1.0" xmlns:bookmark=")") +
         kBookmarks.toUtf8() + "\" xmlns:mime=\"" + kMime.toUtf8() + "\">\n</xbel>\n";
}

// The last time at which one of the applications opened the document, in milliseconds; absent
// where none of them has registered it. Reads to the end of the bookmark.
std::optional<qint64> registration(QXmlStreamReader& reader, const QString& modified,
                                   const QStringList& applications) {
  const auto moment = [](const QString& text) {
    const QDateTime when = QDateTime::fromString(text, Qt::ISODateWithMs);
    return when.isValid() ? when.toMSecsSinceEpoch() : 0;
  };
  std::optional<qint64> last;
  for (int depth = 1; depth > 0 && !reader.atEnd();) {
    reader.readNext();
    if (reader.isEndElement()) --depth;
    if (!reader.isStartElement()) continue;
    ++depth;
    if (localName(reader.qualifiedName()) != u"application") continue;
    const QXmlStreamAttributes attributes = reader.attributes();
    if (!applications.contains(attributes.value(QLatin1String("name")))) continue;
    const qint64 own = moment(attributes.value(QLatin1String("modified")).toString());
    last = std::max(last.value_or(0), own > 0 ? own : moment(modified));
  }
  if (reader.hasError()) return std::nullopt;  // half an entry is none
  return last;
}

}  // namespace

QStringList documentsOf(const QByteArray& list, const QStringList& applications) {
  QXmlStreamReader reader(list);
  reader.setNamespaceProcessing(false);
  std::vector<std::pair<qint64, QString>> found;
  while (!reader.atEnd()) {
    reader.readNext();
    if (!reader.isStartElement() || localName(reader.qualifiedName()) != u"bookmark") continue;
    const QXmlStreamAttributes attributes = reader.attributes();
    const QString href = attributes.value(QLatin1String("href")).toString();
    const QString modified = attributes.value(QLatin1String("modified")).toString();
    const auto when = registration(reader, modified, applications);
    if (when && !href.isEmpty() && href.size() <= kMaxHref) found.emplace_back(*when, href);
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const auto& a, const auto& b) { return b.first < a.first; });
  QStringList documents;
  for (auto& [when, href] : found) documents.push_back(std::move(href));
  return documents;
}

std::optional<QByteArray> withDocument(const QByteArray& list, const OpenedDocument& document) {
  if (list.contains('\0')) return std::nullopt;  // Qt's reader lets it pass in some places
  return ListCopy(list.trimmed().isEmpty() ? emptyList() : list, document).run();
}

QByteArray undamaged(const QByteArray& list) {
  QXmlStreamReader reader(list.split('\0').front());
  reader.setNamespaceProcessing(false);
  QByteArray copy;
  QXmlStreamWriter writer(&copy);
  qsizetype whole = 0;  // how much of the copy holds whole entries
  QString root;
  for (int depth = 0; !reader.atEnd();) {
    reader.readNext();
    if (reader.hasError()) break;
    if (reader.isStartElement()) {
      if (depth++ == 0) root = reader.qualifiedName().toString();
      writer.writeStartElement(reader.qualifiedName().toString());
      writer.writeAttributes(reader.attributes());
    } else {
      if (reader.isEndElement()) --depth;
      writer.writeCurrentToken(reader);
    }
    if (depth == 1 && reader.isEndElement()) whole = copy.size();
  }
  if (whole == 0 || root != kRootName) return emptyList();
  return copy.first(whole) + "\n</xbel>\n";
}

}  // namespace zq::qt
