// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/services/drag_data.hpp>

class QMimeData;

namespace zq::qt {

// What another program offers in a drag, as items. Other programs are not trusted: what is not an
// address is left out, lists end after a hundred thousand and texts after 16 Mi characters. Only
// names of formats are asked for while a drag is over a window; its data waits for the drop.
// Interface thread only; the items may be loaded on any thread, and answer before that returns.

// How the data of a drop is had; absent or empty where it is not given.
class DropData {
 public:
  virtual ~DropData() = default;
  virtual std::optional<QByteArray> bytes(const QString& format) = 0;
  virtual std::optional<QString> text() = 0;
};

// Formats of addresses: of a file manager, and of a browser with titles.
inline const QString kUriList = QStringLiteral("text/uri-list");
inline const QString kMozUrl = QStringLiteral("text/x-moz-url");
inline constexpr qsizetype kLongestText = qsizetype{16} << 20;

// The types that its formats promise, the best first.
std::vector<std::string> offeredTypes(const QMimeData& mime);

// One item for each address, then one for the text, where these types are among the wanted.
DragItems offeredItems(const QStringList& formats, const std::vector<std::string>& wanted,
                       DropData& data);
// The data as Qt gives it. A source that is slow to give one format is not asked for a second.
DragItems offeredItems(const QMimeData& mime, const std::vector<std::string>& wanted);

}  // namespace zq::qt
