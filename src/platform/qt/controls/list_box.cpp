// The list box's widget: a QListWidget whose rows may show images of the list
// box's image list.
#include <QListWidget>
#include <vector>

#include "platform/qt/controls/control_binding.h"
#include "platform/qt/controls/images.h"
#include "platform/qt/qt_text.h"

namespace vglobal::qt {
namespace {

class ListBoxBinding final : public ControlBinding {
 public:
  ListBoxBinding(BindingHost& host, int index, int id, UINT style)
      : ControlBinding(host, index, id, style), list_(new QListWidget(host.Surface())) {
    const bool multi = style & kMultiSelect;
    list_->setSelectionMode(multi ? QAbstractItemView::ExtendedSelection
                                  : QAbstractItemView::SingleSelection);
    QObject::connect(list_, &QListWidget::itemSelectionChanged, list_, [this] {
      std::vector<int> rows;
      for (QListWidgetItem* item : list_->selectedItems()) rows.push_back(list_->row(item));
      SelectedByUser(std::move(rows));
    });
    QObject::connect(list_, &QListWidget::itemDoubleClicked, list_, [this](QListWidgetItem* item) {
      const int row = list_->row(item);
      Act([this, row] { driver().DoubleClick(id_, row); });
    });
  }
  QWidget* Widget() const override { return list_; }

  void Sync(CWnd& control, unsigned aspects) override {
    auto* model = dynamic_cast<CListBox*>(&control);
    if (!model) return;
    if (aspects & kAspectItems) {
      list_->clear();
      const CImageList* images = model->GetImageList();
      if (images) list_->setIconSize(ImageSize(images));
      CString row;
      for (int i = 0; i < model->GetCount(); ++i) {
        model->GetText(i, row);
        auto* item = new QListWidgetItem(FromWide(row), list_);
        if (images) item->setIcon(ImageIcon(images, model->GetItemImage(i)));
      }
    }
    if (aspects & (kAspectItems | kAspectSelection)) {
      if (list_->selectionMode() == QAbstractItemView::SingleSelection) {
        const int selected = model->GetCurSel();
        list_->setCurrentRow(selected);
        if (selected < 0) list_->clearSelection();
      } else {
        for (int i = 0; i < list_->count(); ++i) list_->item(i)->setSelected(model->GetSel(i) > 0);
      }
    }
    if (aspects & kAspectScroll)
      if (QListWidgetItem* top = list_->item(model->GetTopIndex()))
        list_->scrollToItem(top, QAbstractItemView::PositionAtTop);
  }

 private:
  QListWidget* list_;
};

}  // namespace

namespace bindings {
std::unique_ptr<ControlBinding> MakeListBox(BindingHost& host, int index, int id, UINT style) {
  return std::make_unique<ListBoxBinding>(host, index, id, style);
}
}  // namespace bindings

}  // namespace vglobal::qt
