// The list control's widget: a QTreeWidget in report view (no tree decoration),
// with the rows' images from the control's LVSIL_SMALL image list.
#include <QHeaderView>
#include <QTreeWidget>
#include <algorithm>
#include <vector>

#include "platform/qt/controls/control_binding.h"
#include "platform/qt/controls/images.h"
#include "platform/qt/qt_text.h"

namespace vglobal::qt {
namespace {

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
    if (aspects & kAspectScroll)
      if (QTreeWidgetItem* row = tree_->topLevelItem(model->GetTopIndex()))
        tree_->scrollToItem(row);
  }

 private:
  void ShowRows(CListCtrl& model) {
    const int columns = model.GetColumnCount();
    const CImageList* images = model.GetImageList(LVSIL_SMALL);
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
    for (int c = 0; c < columns; ++c) {
      const int width = model.GetColumnWidth(c);
      if (width >= 0)
        tree_->setColumnWidth(c, width);
      else
        tree_->resizeColumnToContents(c);
    }
  }

  QTreeWidget* tree_;
};

}  // namespace

namespace bindings {
std::unique_ptr<ControlBinding> MakeListCtrl(BindingHost& host, int index, int id, UINT style) {
  return std::make_unique<ListCtrlBinding>(host, index, id, style);
}
}  // namespace bindings

}  // namespace vglobal::qt
