// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <vector>
#include <zqswiftui/platform/services/drag_data.hpp>
#include <zqswiftui/platform/services/main_queue.hpp>

class QMimeData;

namespace zq::qt {

// Drags out of our windows. The items are loaded first, in the background and for two seconds at
// most; then the drag begins, unless the button was released meanwhile. Interface thread only.
class DragData final : public zq::DragData {
 public:
  explicit DragData(zq::MainQueue& queue) : queue_(queue) {}
  void begin(DragItems items, std::function<void(DropResult)> ended) override;

 private:
  struct Loading;
  void drag(const std::shared_ptr<Loading>& loading);

  zq::MainQueue& queue_;
  bool dragging_ = false;
};

// What was loaded as other programs read it: addresses as a list, texts one a line. An item that
// gave nothing is left out. Null where nothing is left.
std::unique_ptr<QMimeData> draggedMime(const std::vector<std::optional<Bytes>>& addresses,
                                       const std::vector<std::optional<Bytes>>& texts);

}  // namespace zq::qt
