// ZQSwiftUI, MIT licence; see LICENSE.
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <algorithm>
#include <mutex>
#include <utility>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/qt/drag_data.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq::qt {
namespace {

constexpr double kDragPatience = 2;  // seconds
constexpr std::string_view kTypes[] = {dragTypeFileUrl, dragTypeUrl, dragTypeText};

QByteArray joined(const std::vector<std::optional<Bytes>>& parts, const char* between) {
  QByteArray all;
  for (const auto& part : parts) {
    if (!part) continue;
    if (!all.isEmpty()) all += between;
    all.append(reinterpret_cast<const char*>(part->data()), static_cast<qsizetype>(part->size()));
  }
  return all;
}

// The drag has the release of the button: what it began with is no longer pressed.
void cancelGestures() {
  for (QWidget* widget : QApplication::allWidgets()) {
    if (auto* host = dynamic_cast<HostWidget*>(widget)) host->host().cancelGestures();
  }
}

}  // namespace

// The items' data as it comes, from any thread. Not the items: one that keeps what it should answer
// would keep itself.
struct DragData::Loading {
  Loading(std::size_t count, std::function<void(DropResult)> told)
      : ended(std::move(told)), addresses(count), texts(count) {}

  void take(std::size_t at, std::string_view type, std::optional<Bytes> bytes) {
    const std::scoped_lock lock(mutex);
    (type == dragTypeText ? texts : addresses)[at] = std::move(bytes);
  }

  const std::function<void(DropResult)> ended;
  bool over = false;  // interface thread only
  std::mutex mutex;
  std::vector<std::optional<Bytes>> addresses;
  std::vector<std::optional<Bytes>> texts;
};

void DragData::begin(DragItems items, std::function<void(DropResult)> ended) {
  if (dragging_ || items.empty()) {
    queue_.post([ended = std::move(ended)] {
      if (ended) ended(DropResult::refused);
    });
    return;
  }
  dragging_ = true;
  const auto loading = std::make_shared<Loading>(items.size(), std::move(ended));
  const auto go = [this, loading] {
    if (!std::exchange(loading->over, true)) drag(loading);
  };
  // Ends when the last answer has come, or is known never to come.
  const std::shared_ptr<void> last(nullptr, [go](void*) {
    if (zq::Platform::installed()) zq::Platform::current().mainQueue().post(go);
  });
  queue_.postDelayed(kDragPatience, go);
  Queue::execute(true, [items = std::move(items), loading, last] {
    for (std::size_t at = 0; at < items.size(); ++at) {
      const DragItem& item = *items[at];
      const std::vector<std::string> types = item.types();
      bool address = false;
      for (const std::string_view type : kTypes) {
        const bool offered = std::find(types.begin(), types.end(), type) != types.end();
        if (!offered || (address && type == dragTypeUrl)) continue;
        address = true;
        item.load(type, [loading, last, at, type](std::optional<Bytes> bytes) {
          loading->take(at, type, std::move(bytes));
        });
      }
    }
  });
}

void DragData::drag(const std::shared_ptr<Loading>& loading) {
  std::unique_ptr<QMimeData> mime;
  {
    const std::scoped_lock lock(loading->mutex);
    mime = draggedMime(loading->addresses, loading->texts);
  }
  DropResult result = DropResult::refused;
  if (mime && QGuiApplication::mouseButtons().testFlag(Qt::LeftButton)) {
    cancelGestures();
    // Of the application, for a window may go while it is dragged from.
    auto* drag = new QDrag(QCoreApplication::instance());
    drag->setMimeData(mime.release());
    if (drag->exec(Qt::CopyAction) == Qt::CopyAction) result = DropResult::copied;
  }
  dragging_ = false;
  if (loading->ended) loading->ended(result);
}

std::unique_ptr<QMimeData> draggedMime(const std::vector<std::optional<Bytes>>& addresses,
                                       const std::vector<std::optional<Bytes>>& texts) {
  const QByteArray list = joined(addresses, "\r\n"), text = joined(texts, "\n");
  if (list.isEmpty() && text.isEmpty()) return nullptr;
  auto mime = std::make_unique<QMimeData>();
  if (!list.isEmpty()) mime->setData(QStringLiteral("text/uri-list"), list + "\r\n");
  if (!text.isEmpty()) mime->setText(QString::fromUtf8(text));
  return mime;
}

}  // namespace zq::qt
