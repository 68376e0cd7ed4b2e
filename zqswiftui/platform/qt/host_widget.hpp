// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QElapsedTimer>
#include <QPoint>
#include <QString>
#include <QWidget>
#include <memory>
#include <optional>
#include <zqswiftui/platform/toolkit/view_host.hpp>

class QDropEvent;
class QTimer;

namespace zq::qt {

class AccessibleTree;
class FieldEditors;
class ForeignDrop;
class InspectorOverlay;

// Shows a view as a widget, a window of its own or inside others. Needs an installed platform.
// Interface thread only.
//   zq::qt::HostWidget window(zq::Text("Hello"));
//   window.show();
// In a debug build F12 shows and hides an inspector over the views: what each part is, and what the
// last frame evaluated and painted.
class HostWidget final : public QWidget, private HostDelegate {
 public:
  explicit HostWidget(View root, QWidget* parent = nullptr);
  ~HostWidget() override;

  void setRoot(View root);
  ViewHost& host() { return *host_; }
  const std::shared_ptr<AccessibleTree>& accessible() const { return accessible_; }
  const FieldEditors& fields() const { return *fields_; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

  // Brings the view up to date at once, where it otherwise waits for the event loop.
  void runFrame();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  friend class FieldEditors;

  void frameRequested() override;
  void cursorChanged(Cursor cursor) override;
  void helpChanged(const std::string& text, const Rect& bounds) override;

  void updateAppearance();
  void repaintDamage();
  void pace();
  void tellLayout();
  void showHelp(QPoint position);
  void answerDrag(QDropEvent& event);
  std::optional<DragItems> itemsOf(const QDropEvent& event, const DropInfo& info);
  int countClicks(const QMouseEvent& event);

  std::unique_ptr<ViewHost> host_;
  std::unique_ptr<FieldEditors> fields_;
  std::shared_ptr<AccessibleTree> accessible_;
  std::unique_ptr<InspectorOverlay> inspector_;  // while it is open
  std::unique_ptr<ForeignDrop> foreignDrop_;     // once something was dragged here on an X display
  unsigned fonts_;                               // the generation that the view was measured with
  QTimer* frameTimer_;
  unsigned long appearanceListener_ = 0;
  AppearanceValues appearance_;
  QSize lastHint_;
  QString help_;
  QRect helpBounds_;
  QElapsedTimer sincePress_;
  QPoint lastPress_;
  int clicks_ = 0;
  bool inFrame_ = false;
};

}  // namespace zq::qt
