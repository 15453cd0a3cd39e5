// The item delegate of the Qt lists: rows as tall as the model says (the dialog font's
// height, or the images' when taller), so that a page holds the same rows on screen
// as headless. The list bindings derive their own drawing from it.
#pragma once

#include <QStyledItemDelegate>

namespace vglobal::qt {

class ModelRowsDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  int rowHeight = 0;  // 0: the style's own height

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    if (rowHeight > 0) size.setHeight(rowHeight);
    return size;
  }
};

}  // namespace vglobal::qt
