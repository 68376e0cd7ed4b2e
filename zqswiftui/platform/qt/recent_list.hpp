// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <optional>

namespace zq::qt {

// The desktop's list of recently used documents, an XML Bookmark Exchange Language file with the
// elements of the freedesktop.org desktop bookmarks; as bytes, no disk is asked.
// Any thread.

struct OpenedDocument {
  QString href;         // its address, percent-encoded
  QString mimeType;     // empty where it is not known
  QString application;  // the name under which a program finds its documents again
  QString exec;         // how a program opens it, as in "viewer %u"
  QDateTime when;
};

// The addresses that one of these applications has registered, the last opened first. Of a damaged
// list what stands before the damage. An address longer than 8,192 characters is left out.
QStringList documentsOf(const QByteArray& list, const QStringList& applications);

// The list with the document in it, opened once more: everything else stays, what other programs
// keep with the document too. An empty list is made. Absent where the list is damaged.
std::optional<QByteArray> withDocument(const QByteArray& list, const OpenedDocument& document);

// What stands before the damage of a list, ended as it should be.
QByteArray undamaged(const QByteArray& list);

}  // namespace zq::qt
