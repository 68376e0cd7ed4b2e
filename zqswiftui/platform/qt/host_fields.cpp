// ZQSwiftUI, MIT licence; see LICENSE.
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPalette>
#include <QRegion>
#include <utility>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/font_cache.hpp>
#include <zqswiftui/platform/qt/host_fields.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>

namespace zq::qt {
namespace {

// What a line edit keeps free on either side of its text, beyond any margin that can be set.
constexpr int kOwnMargin = 2;
constexpr int kFarAway = 20000;
constexpr const char* kIdProperty = "zq.field";

std::uint64_t idOf(const QObject& edit) {
  return edit.property(kIdProperty).toULongLong();
}

Qt::Alignment alignmentOf(TextAlignment alignment) {
  switch (alignment) {
    case TextAlignment::center:
      return Qt::AlignHCenter | Qt::AlignVCenter;
    case TextAlignment::trailing:
      return Qt::AlignRight | Qt::AlignVCenter;
    case TextAlignment::leading:
      break;
  }
  return Qt::AlignLeft | Qt::AlignVCenter;
}

void setColors(QLineEdit& edit, const RGBA& color) {
  QPalette palette = edit.palette();
  const QColor text = toQColor(color);
  palette.setColor(QPalette::Base, Qt::transparent);
  palette.setColor(QPalette::Text, text);
  palette.setColor(QPalette::PlaceholderText, toQColor(color, TextFieldState::kPlaceholderOpacity));
  palette.setColor(QPalette::Disabled, QPalette::Text,
                   toQColor(color, TextFieldState::kDisabledOpacity));
  edit.setPalette(palette);
}

// Only what shows of the field; one that is scrolled out waits outside, still focused.
void setPlace(QLineEdit& edit, const TextFieldState& state) {
  const QRect bounds =
      toQRectF(state.bounds).toAlignedRect().adjusted(-kOwnMargin, 0, kOwnMargin, 0);
  const QRect clip = toQRectF(state.clip).toAlignedRect().adjusted(-kOwnMargin, 0, kOwnMargin, 0);
  QRegion shown = QRegion(bounds) & clip;
  for (const Rect& covered : state.covered) shown -= toQRectF(covered).toAlignedRect();
  if (state.clip.empty() || shown.isEmpty()) {
    edit.setGeometry(bounds.translated(-kFarAway, 0));
    return;
  }
  edit.setGeometry(bounds);
  if (shown == QRegion(bounds)) {
    edit.clearMask();
  } else {
    edit.setMask(shown.translated(-bounds.topLeft()));
  }
}

}  // namespace

FieldEditors::~FieldEditors() {
  for (const auto& [id, editor] : editors_) remove(editor.edit);
}

QLineEdit* FieldEditors::editor(std::uint64_t id) const {
  const auto found = editors_.find(id);
  return found == editors_.end() ? nullptr : found->second.edit;
}

FieldEditors::Editor& FieldEditors::editorOf(std::uint64_t id) {
  Editor& editor = editors_[id];
  if (editor.edit != nullptr) return editor;
  auto* edit = new QLineEdit(&host_);
  editor.edit = edit;
  edit->setProperty(kIdProperty, qulonglong{id});
  edit->setFrame(false);
  edit->setTextMargins(0, 0, 0, 0);
  edit->setAttribute(Qt::WA_MacShowFocusRect, false);
  // The order of Tab is the tree's.
  edit->setFocusPolicy(Qt::ClickFocus);
  edit->setMouseTracking(true);
  edit->installEventFilter(this);
  connect(edit, &QLineEdit::textEdited, this, [this, id](const QString& text) {
    const std::string utf8 = text.toStdString();
    // What comes back from the tree is compared with this, and left alone where it is the same.
    editors_.at(id).state.text = utf8;
    host_.host().fieldEdited(id, utf8);
  });
  return editor;
}

void FieldEditors::remove(QLineEdit* edit) {
  edit->removeEventFilter(this);
  edit->disconnect(this);
  edit->hide();
  // Its own event handler may be what took the field away.
  edit->deleteLater();
}

void FieldEditors::sync() {
  ViewHost& host = host_.host();
  // Without fields, one can only have come with a new node.
  const std::uint64_t nodes = host.counts().nodesCreated;
  if (editors_.empty() && std::exchange(nodesSeen_, nodes) == nodes) return;
  nodesSeen_ = nodes;
  for (auto& [id, editor] : editors_) editor.seen = false;
  focused_ = 0;
  for (const TextFieldState& state : host.textFields()) {
    Editor& editor = editorOf(state.id);
    editor.seen = true;
    if (state.focused) focused_ = state.id;
    apply(editor, state);
  }
  followFocus();
  std::erase_if(editors_, [&](const auto& entry) {
    if (entry.second.seen) return false;
    remove(entry.second.edit);
    return true;
  });
}

void FieldEditors::apply(Editor& editor, const TextFieldState& state) {
  QLineEdit& edit = *editor.edit;
  const TextFieldState& old = editor.state;
  const bool fresh = old.id == 0;
  if (!fresh && old == state) return;
  if (fresh || old.text != state.text) {
    const QString text = toQString(state.text);
    if (edit.text() != text) edit.setText(text);
  }
  if (fresh || old.placeholder != state.placeholder) {
    edit.setPlaceholderText(toQString(state.placeholder));
    edit.setAccessibleName(toQString(state.placeholder));
  }
  if (fresh || old.font != state.font) edit.setFont(fontEntry(state.font).font);
  if (fresh || old.color != state.color) setColors(edit, state.color);
  if (fresh || old.alignment != state.alignment || old.direction != state.direction) {
    edit.setLayoutDirection(state.direction == LayoutDirection::rightToLeft ? Qt::RightToLeft
                                                                            : Qt::LeftToRight);
    edit.setAlignment(alignmentOf(state.alignment));
  }
  if (fresh || old.enabled != state.enabled) edit.setEnabled(state.enabled);
  if (fresh || old.bounds != state.bounds || old.clip != state.clip ||
      old.covered != state.covered) {
    setPlace(edit, state);
  }
  if (fresh) edit.show();
  editor.state = state;
}

void FieldEditors::fontsChanged() {
  for (const auto& [id, editor] : editors_) editor.edit->setFont(fontEntry(editor.state.font).font);
}

bool FieldEditors::haveFocus() const {
  const QWidget* focus = QApplication::focusWidget();
  return focus != nullptr && focus->parentWidget() == &host_ && editor(idOf(*focus)) == focus;
}

void FieldEditors::followFocus() {
  if (host_.hasFocus() || haveFocus()) takeFocus(Qt::OtherFocusReason);
}

void FieldEditors::takeFocus(Qt::FocusReason reason) {
  focused_ = 0;
  if (!editors_.empty()) {
    for (const TextFieldState& state : host_.host().textFields()) {
      if (state.focused) focused_ = state.id;
    }
  }
  QLineEdit* edit = editor(focused_);
  QWidget* target = edit != nullptr ? static_cast<QWidget*>(edit) : &host_;
  if (target->hasFocus()) return;
  // Moves inside the host are none for the tree, which made them.
  const bool inside = host_.hasFocus() || haveFocus();
  const bool outer = std::exchange(movingFocus_, inside);
  target->setFocus(reason);
  movingFocus_ = outer;
  if (edit != nullptr && reason != Qt::OtherFocusReason && reason != Qt::MouseFocusReason) {
    edit->selectAll();
  }
}

void FieldEditors::giveFocusToHost() {
  if (!haveFocus()) return;
  const bool outer = std::exchange(movingFocus_, true);
  host_.setFocus(Qt::OtherFocusReason);
  movingFocus_ = outer;
}

bool FieldEditors::keyPressed(std::uint64_t id, QEvent& event) {
  const auto& key = static_cast<QKeyEvent&>(event);
  // An editor takes these also where it has nothing to undo, and the window's own is meant.
  const QLineEdit* const edit = editor(id);
  if (edit != nullptr && ((key.matches(QKeySequence::Undo) && !edit->isUndoAvailable()) ||
                          (key.matches(QKeySequence::Redo) && !edit->isRedoAvailable()))) {
    event.ignore();
    return true;  // on to the window
  }
  const bool plain = !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  if (key.key() == Qt::Key_Escape) {
    return host_.host().key({Key::escape, {}, {}});
  }
  if (plain && (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab)) {
    host_.host().fieldFocused(id);
    return host_.focusNextPrevChild(key.key() == Qt::Key_Tab &&
                                    !key.modifiers().testFlag(Qt::ShiftModifier));
  }
  return false;
}

bool FieldEditors::eventFilter(QObject* watched, QEvent* event) {
  const std::uint64_t id = idOf(*watched);
  switch (event->type()) {
    case QEvent::KeyPress:
      return keyPressed(id, *event);
    case QEvent::FocusIn:
      if (movingFocus_) break;
      host_.host().focusIn();
      host_.host().fieldFocused(id);
      break;
    case QEvent::FocusOut: {
      const auto reason = static_cast<QFocusEvent*>(event)->reason();
      if (movingFocus_ || reason == Qt::PopupFocusReason || host_.hasFocus() || haveFocus()) break;
      host_.host().focusOut();
      break;
    }
    case QEvent::MouseMove: {
      // The host's own moves end at the editor's edge, and what lies below would stay hovered.
      const auto* move = static_cast<QMouseEvent*>(event);
      host_.host().pointerMove(
          toPoint(static_cast<QWidget*>(watched)->mapTo(&host_, move->position())));
      break;
    }
    default:
      break;
  }
  return false;
}

}  // namespace zq::qt
