// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QWidget>
#include <zqswiftui/platform/toolkit/inspector.hpp>

class QTimer;

namespace zq::qt {

class HostWidget;

// Lies over the views and the native editors of a host, and lets the pointer through. What is
// painted here is no damage of the views. Interface thread only.
class InspectorOverlay final : public QWidget {
 public:
  explicit InspectorOverlay(HostWidget& host);
  ~InspectorOverlay() override;

  void frameEnded();  // while the damage of the frame still stands

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void setPointer(std::optional<Point> point);

  HostWidget& host_;
  Inspector inspector_;
  QTimer* flash_;
};

}  // namespace zq::qt
