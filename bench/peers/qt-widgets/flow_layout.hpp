// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QLayout>
#include <QWidget>

// A layout that wraps, as toolkits of widgets have it; heights are kept by width.
class FlowLayout final : public QLayout {
 public:
  FlowLayout(QWidget* parent, int gap) : QLayout(parent), gap_(gap) {
    setContentsMargins(0, 0, 0, 0);
  }
  ~FlowLayout() override { qDeleteAll(items_); }

  void addItem(QLayoutItem* item) override {
    items_.push_back(item);
    invalidate();
  }
  void insertWidget(int i, QWidget* widget) {
    addChildWidget(widget);
    items_.insert(i, new QWidgetItemV2(widget));
    invalidate();
  }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int i) const override {
    return i >= 0 && i < items_.size() ? items_[i] : nullptr;
  }
  QLayoutItem* takeAt(int i) override {
    if (i < 0 || i >= items_.size()) return nullptr;
    invalidate();
    return items_.takeAt(i);
  }
  Qt::Orientations expandingDirections() const override { return {}; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override {
    if (width != knownWidth_) {
      knownHeight_ = arrange(QRect(0, 0, width, 0), false);
      knownWidth_ = width;
    }
    return knownHeight_;
  }
  void invalidate() override {
    knownWidth_ = -1;
    QLayout::invalidate();
  }
  void setGeometry(const QRect& rect) override {
    QLayout::setGeometry(rect);
    arrange(rect, true);
  }
  QSize sizeHint() const override { return minimumSize(); }
  QSize minimumSize() const override { return QSize(0, 0); }  // a tag too wide is cut off

 private:
  int arrange(const QRect& rect, bool apply) const {
    int x = rect.x(), y = rect.y(), row = 0;
    const int right = rect.x() + rect.width();
    for (QLayoutItem* item : items_) {
      const QSize size = item->sizeHint();
      if (x > rect.x() && x + size.width() > right) {
        x = rect.x();
        y += row + gap_;
        row = 0;
      }
      if (apply) item->setGeometry(QRect(QPoint(x, y), size));
      x += size.width() + gap_;
      row = qMax(row, size.height());
    }
    return y + row - rect.y();
  }

  QList<QLayoutItem*> items_;
  int gap_;
  mutable int knownWidth_ = -1, knownHeight_ = 0;
};
