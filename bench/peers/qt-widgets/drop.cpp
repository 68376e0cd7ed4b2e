// ZQSwiftUI, MIT licence; see LICENSE.
#include <QFileInfo>
#include <QUrl>

#include "drop_job.hpp"

// What an application writes by hand: everything in the drop event.
namespace bench {
namespace {

class Place final : public QWidget {
 public:
  explicit Place(std::function<void(const QList<QUrl>&)> told) : told_(std::move(told)) {
    setAcceptDrops(true);
  }

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
  }
  void dropEvent(QDropEvent* event) override {
    const QStringList accepted{QStringLiteral("jpg"), QStringLiteral("png")};
    QList<QUrl> taken;
    for (const QUrl& url : event->mimeData()->urls()) {
      if (accepted.contains(QFileInfo(url.path()).suffix().toLower())) taken.push_back(url);
    }
    event->acceptProposedAction();
    told_(taken);
  }

 private:
  std::function<void(const QList<QUrl>&)> told_;
};

}  // namespace

bool drop(const Arguments& arguments) {
  if (arguments.mode() != "drop") return false;
  const int n = arguments.n();
  bool told = false;
  Place place([&](const QList<QUrl>& files) {
    check(files.size() == DroppedFiles::taken(n), "F1 all in one call");
    told = true;
  });
  place.resize(100, 100);
  place.show();
  reportDrop(
      n, place, 0, [&] { told = false; }, [&] { return told; });
  return true;
}

}  // namespace bench
