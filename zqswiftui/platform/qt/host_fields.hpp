// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QObject>
#include <cstdint>
#include <unordered_map>
#include <zqswiftui/platform/toolkit/view_host.hpp>

class QLineEdit;

namespace zq::qt {

class HostWidget;

// The native editors over a host's text fields. One lives as long as its field does, whatever
// is rebuilt around it, so that focus, selection and a half-composed character survive; and
// the focus of the editors and that of the tree follow each other.
class FieldEditors final : public QObject {
 public:
  explicit FieldEditors(HostWidget& host) : host_(host) {}
  ~FieldEditors() override;

  // After each frame.
  void sync();
  // Gives the window's focus to what has the tree's, if the window's is in this host.
  void followFocus();
  // The same, and takes it from other widgets.
  void takeFocus(Qt::FocusReason reason);
  // From an editor to the widget around it, unnoticed by the tree.
  void giveFocusToHost();
  bool haveFocus() const;
  void fontsChanged();
  bool movingFocus() const { return movingFocus_; }
  QLineEdit* editor(std::uint64_t id) const;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Editor {
    QLineEdit* edit = nullptr;
    TextFieldState state;
    bool seen = false;
  };
  Editor& editorOf(std::uint64_t id);
  void remove(QLineEdit* edit);
  void apply(Editor& editor, const TextFieldState& state);
  bool keyPressed(std::uint64_t id, QEvent& event);

  HostWidget& host_;
  std::unordered_map<std::uint64_t, Editor> editors_;
  std::uint64_t nodesSeen_ = ~std::uint64_t{0};
  std::uint64_t focused_ = 0;  // the tree's focused field
  bool movingFocus_ = false;
};

}  // namespace zq::qt
