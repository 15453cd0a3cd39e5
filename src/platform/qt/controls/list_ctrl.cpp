// The list control's widget: a QTreeWidget in report view (no tree decoration),
// with the rows' images from the control's LVSIL_SMALL image list. Rows, headings
// and columns take the model's sizes and the model's top row is the widget's, so
// that a page holds the same rows on screen as in the model; the extended styles
// show as the delegate draws the cells.
#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <algorithm>
#include <vector>

#include "platform/qt/controls/control_binding.h"
#include "platform/qt/controls/model_rows_delegate.h"
#include "platform/qt/controls/images.h"
#include "platform/qt/qt_text.h"

namespace vglobal::qt {
namespace {

// Draws the cells as LVS_EX_ bits ask: without LVS_EX_FULLROWSELECT only the first
// column of a selected row is highlighted; with LVS_EX_GRIDLINES each cell has a
// line at its right and bottom edges.
class CellDelegate final : public ModelRowsDelegate {
 public:
  using ModelRowsDelegate::ModelRowsDelegate;

  DWORD extendedStyle = 0;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem opt(option);
    if (!(extendedStyle & LVS_EX_FULLROWSELECT) && index.column() > 0)
      opt.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
    QStyledItemDelegate::paint(painter, opt, index);
    if (extendedStyle & LVS_EX_GRIDLINES) {
      painter->save();
      painter->setPen(opt.palette.color(QPalette::Mid));
      const QRect r = opt.rect;
      painter->drawLine(r.topRight(), r.bottomRight());
      painter->drawLine(r.bottomLeft(), r.bottomRight());
      painter->restore();
    }
  }
};

class ListCtrlBinding final : public ControlBinding {
 public:
  ListCtrlBinding(BindingHost& host, int index, int id, UINT style)
      : ControlBinding(host, index, id, style), tree_(new QTreeWidget(host.Surface())) {
    const bool multi = style & kMultiSelect;
    tree_->setRootIsDecorated(false);
    tree_->setUniformRowHeights(true);
    tree_->setAllColumnsShowFocus(true);
    tree_->header()->setStretchLastSection(false);
    tree_->header()->setSectionsClickable(true);
    tree_->setSelectionMode(multi ? QAbstractItemView::ExtendedSelection
                                  : QAbstractItemView::SingleSelection);
    tree_->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    delegate_ = new CellDelegate(tree_);
    tree_->setItemDelegate(delegate_);
    QObject::connect(tree_, &QTreeWidget::itemSelectionChanged, tree_, [this] {
      std::vector<int> rows;
      for (QTreeWidgetItem* item : tree_->selectedItems())
        rows.push_back(tree_->indexOfTopLevelItem(item));
      SelectedByUser(std::move(rows));
    });
    QObject::connect(tree_, &QTreeWidget::itemDoubleClicked, tree_,
                     [this](QTreeWidgetItem* item, int) {
                       const int row = tree_->indexOfTopLevelItem(item);
                       Act([this, row] { driver().DoubleClick(id_, row); });
                     });
    QObject::connect(tree_->header(), &QHeaderView::sectionClicked, tree_, [this](int column) {
      Act([this, column] { driver().ClickColumn(id_, column); });
    });
  }
  QWidget* Widget() const override { return tree_; }

  void Sync(CWnd& control, unsigned aspects) override {
    auto* model = dynamic_cast<CListCtrl*>(&control);
    if (!model) return;
    if (aspects & kAspectItems) ShowRows(*model);
    if (aspects & (kAspectItems | kAspectSelection)) {
      for (int r = 0; r < tree_->topLevelItemCount(); ++r)
        tree_->topLevelItem(r)->setSelected(model->GetItemState(r, LVIS_SELECTED) != 0);
      const int focused = model->GetNextItem(-1, LVNI_FOCUSED);
      if (focused >= 0)
        tree_->selectionModel()->setCurrentIndex(tree_->model()->index(focused, 0),
                                                 QItemSelectionModel::NoUpdate);
    }
    // Rebuilding the rows or selecting one moves Qt's scrolling: the model's top
    // row is put back on top.
    if (aspects & (kAspectItems | kAspectSelection | kAspectScroll))
      if (QTreeWidgetItem* row = tree_->topLevelItem(model->GetTopIndex()))
        tree_->scrollToItem(row, QAbstractItemView::PositionAtTop);
  }

 private:
  void ShowRows(CListCtrl& model) {
    const int columns = model.GetColumnCount();
    const CImageList* images = model.GetImageList(LVSIL_SMALL);
    delegate_->extendedStyle = model.GetExtendedStyle();
    // The model's geometry: the first row shown starts below the headings, inside
    // a border as wide as the row's left edge is far from the control's.
    CRect row;
    if (model.GetItemRect(model.GetTopIndex(), &row, LVIR_BOUNDS)) {
      const int border = row.left;
      delegate_->rowHeight = row.Height();
      tree_->header()->setFixedHeight(row.top - border);
    }
    tree_->clear();
    tree_->setColumnCount(std::max(columns, 1));
    if (images) tree_->setIconSize(ImageSize(images));
    QStringList headings;
    for (int c = 0; c < columns; ++c) headings << FromWide(model.GetColumnHeading(c));
    tree_->setHeaderLabels(headings);
    for (int r = 0; r < model.GetItemCount(); ++r) {
      auto* item = new QTreeWidgetItem;
      for (int c = 0; c < std::max(columns, 1); ++c) {
        item->setText(c, FromWide(model.GetItemText(r, c)));
        const int format = model.GetColumnFormat(c);
        item->setTextAlignment(c, format == LVCFMT_RIGHT    ? Qt::AlignRight | Qt::AlignVCenter
                                  : format == LVCFMT_CENTER ? Qt::AlignCenter
                                                            : Qt::AlignLeft | Qt::AlignVCenter);
      }
      if (images) item->setIcon(0, ImageIcon(images, model.GetItemImage(r)));
      tree_->addTopLevelItem(item);
    }
    for (int c = 0; c < columns; ++c) tree_->setColumnWidth(c, model.GetColumnWidth(c));
    tree_->viewport()->update();
  }

  QTreeWidget* tree_;
  CellDelegate* delegate_;
};

}  // namespace

namespace bindings {
std::unique_ptr<ControlBinding> MakeListCtrl(BindingHost& host, int index, int id, UINT style) {
  return std::make_unique<ListCtrlBinding>(host, index, id, style);
}
}  // namespace bindings

}  // namespace vglobal::qt
