// ZQSwiftUI, MIT licence; see LICENSE.
#include <QAbstractTableModel>
#include <QDateTime>
#include <QFileInfo>
#include <QHeaderView>
#include <QLocale>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QUrl>
#include <QVBoxLayout>
#include <QXmlStreamReader>

#include "recent_job.hpp"

// What an application writes by hand: a table of the files behind a filter, in a tree view.
namespace bench {
namespace {

constexpr int kRow = 25;

QStringList readList() {
  QFile file(openedList());
  if (!file.open(QIODevice::ReadOnly)) return {};
  QXmlStreamReader reader(&file);
  QStringList paths;
  QString href;
  while (!reader.atEnd()) {
    if (reader.readNext() != QXmlStreamReader::StartElement) continue;
    const auto attributes = reader.attributes();
    if (reader.name() == u"bookmark") href = attributes.value(QLatin1String("href")).toString();
    if (reader.name() == u"application" &&
        attributes.value(QLatin1String("name")) == QCoreApplication::applicationName()) {
      paths << QUrl(href).toLocalFile();
    }
  }
  return paths;
}

class Files final : public QAbstractTableModel {
 public:
  Files() {
    for (const QString& path : readList()) {
      const QFileInfo info(path);
      if (info.exists())
        files_.push_back({path, info.fileName(), info.size(), info.lastModified()});
    }
    std::sort(files_.begin(), files_.end(), [](const File& a, const File& b) {
      return a.date != b.date ? b.date < a.date : a.path < b.path;
    });
  }
  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(files_.size());
  }
  int columnCount(const QModelIndex&) const override { return 3; }
  QVariant data(const QModelIndex& index, int role) const override {
    const File& file = files_[static_cast<std::size_t>(index.row())];
    if (role == Qt::UserRole) return file.path;
    if (role == Qt::SizeHintRole) return QSize(0, kRow);
    if (role == Qt::TextAlignmentRole && index.column() > 0) {
      return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole) return {};
    if (index.column() == 0) return file.name;
    if (index.column() == 1) return locale_.formattedDataSize(file.size, 1);
    return file.date.toString(QStringLiteral("dd MMM yy [HH:mm]"));
  }

 private:
  struct File {
    QString path, name;
    qint64 size;
    QDateTime date;
  };
  std::vector<File> files_;
  QLocale locale_;
};

class Row final : public QStyledItemDelegate {
 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->state.testFlag(QStyle::State_MouseOver)) option->backgroundBrush = Qt::lightGray;
  }
};

class RecentPanel final : public QWidget {
 public:
  RecentPanel() {
    proxy_.setFilterCaseSensitivity(Qt::CaseInsensitive);
    proxy_.setFilterRole(Qt::UserRole);
    proxy_.setSourceModel(&files_);
    view_.setModel(&proxy_);
    view_.setItemDelegate(&row_);
    view_.setRootIsDecorated(false);
    view_.setUniformRowHeights(true);
    view_.setTextElideMode(Qt::ElideMiddle);
    view_.setHeaderHidden(true);
    view_.setMouseTracking(true);
    view_.header()->setStretchLastSection(false);
    view_.header()->setSectionResizeMode(0, QHeaderView::Stretch);
    view_.setColumnWidth(1, 84);
    view_.setColumnWidth(2, 120);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(&search_);
    layout->addWidget(&view_);
    connect(&search_, &QLineEdit::textChanged, &proxy_,
            &QSortFilterProxyModel::setFilterFixedString);
  }
  QTreeView& view() { return view_; }

 private:
  Files files_;
  QSortFilterProxyModel proxy_;
  Row row_;
  QLineEdit search_;
  QTreeView view_;
};

}  // namespace

bool recent(const Arguments& arguments) {
  if (arguments.mode() != "recent") return false;
  reportRecent(arguments.n(), [] {
    auto window = std::make_unique<RecentPanel>();
    window->resize(kPanelWidth, kPanelHeight);
    window->show();
    QWidget* list = window->view().viewport();
    return Panel{std::move(window), list, {0, 0, kPanelWidth, 240}};
  });
  return true;
}

}  // namespace bench
