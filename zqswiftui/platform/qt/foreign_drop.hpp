// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/services/drag_data.hpp>

class QDropEvent;

namespace zq::qt {

class HostWidget;

// Drops of other programs on an X display. Their data must be asked for, and for one that hangs Qt
// waits long on the interface thread. So it is fetched here, a second at most for all of it, while
// the event loop goes on without the user's input: as the drop reaches the window and before Qt
// hands it on to the widget, for either may be gone afterwards. Interface thread only.
class ForeignDrop final : public QObject, private QAbstractNativeEventFilter {
 public:
  struct Fetched {
    std::vector<std::string> types;  // those that were asked for
    DragItems items;
    bool late = false;  // the program did not answer in time
  };

  // Null where the display is none of X.
  static std::unique_ptr<ForeignDrop> create(HostWidget& host);
  ~ForeignDrop() override;

  // A drag has come over the host, or has left it.
  void entered();
  void left() { over_ = false; }
  // What was fetched for the drop that is now handed on; absent where it was not waited for.
  std::optional<Fetched> take();

 private:
  struct Waiting {
    bool gone = false;  // the window that was dropped on
    std::optional<Fetched> fetched;
  };
  ForeignDrop(HostWidget& host, std::vector<std::uint32_t> messages);
  bool eventFilter(QObject* window, QEvent* event) override;
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr*) override;
  Fetched fetch(const QDropEvent& drop) const;

  HostWidget& host_;
  const std::vector<std::uint32_t> messages_;  // that a target hears, the drop's first
  std::uint32_t time_ = 0;                     // of the last drop
  bool over_ = false;
  const std::shared_ptr<Waiting> waiting_ = std::make_shared<Waiting>();
};

}  // namespace zq::qt
