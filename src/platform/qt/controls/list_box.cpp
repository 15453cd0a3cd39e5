// The list box's widget: a QListWidget whose rows may show images of the list
// box's image list. Rows are as high as the model says and the model's top row is
// the widget's, so that a page holds the same rows on screen as in the model; texts
// of a kUseTabStops list are drawn in columns at the model's tab stops.
#include <QApplication>
#include <QListWidget>
#include <QPainter>
#include <QStyledItemDelegate>
#include <functional>
#include <vector>

#include "platform/qt/controls/control_binding.h"
#include "platform/qt/controls/model_rows_delegate.h"
#include "platform/qt/controls/images.h"
#include "platform/qt/qt_text.h"

namespace vglobal::qt {
namespace {

// Draws a row as the style does, then its text piece by piece: each piece after a
// tab starts at the next tab stop (CListBox::NextTabStop).
class TabStopDelegate final : public ModelRowsDelegate {
 public:
  using NextStop = std::function<int(int x)>;  // -1: no tab stops
  TabStopDelegate(QObject* parent, NextStop nextStop)
      : ModelRowsDelegate(parent), nextStop_(std::move(nextStop)) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const QString text = index.data(Qt::DisplayRole).toString();
    if (!text.contains(QLatin1Char('\t')) || nextStop_(0) < 0) {
      QStyledItemDelegate::paint(painter, option, index);
      return;
    }
    QStyleOptionViewItem opt(option);
    initStyleOption(&opt, index);
    opt.text.clear();
    const QWidget* widget = opt.widget;
    QStyle* style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, widget);
    const QRect textRect = style->subElementRect(QStyle::SE_ItemViewItemText, &opt, widget);
    painter->save();
    painter->setFont(opt.font);
    const bool selected = opt.state & QStyle::State_Selected;
    painter->setPen(opt.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    int x = 0;
    const QStringList pieces = text.split(QLatin1Char('\t'));
    for (qsizetype i = 0; i < pieces.size(); ++i) {
      if (i > 0) x = nextStop_(x);
      const QRect piece(textRect.left() + x, textRect.top(), textRect.width() - x,
                        textRect.height());
      painter->drawText(piece, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, pieces[i]);
      x += opt.fontMetrics.horizontalAdvance(pieces[i]);
    }
    painter->restore();
  }

 private:
  NextStop nextStop_;
};

class ListBoxBinding final : public ControlBinding {
 public:
  ListBoxBinding(BindingHost& host, int index, int id, UINT style)
      : ControlBinding(host, index, id, style), list_(new QListWidget(host.Surface())) {
    const bool multi = style & kMultiSelect;
    list_->setSelectionMode(multi ? QAbstractItemView::ExtendedSelection
                                  : QAbstractItemView::SingleSelection);
    list_->setUniformItemSizes(true);
    list_->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    delegate_ = new TabStopDelegate(list_, [this](int x) {
      CDialog* dialog = model();
      auto* box = dialog ? dialog->GetDlgItemAs<CListBox>(id_) : nullptr;
      return box ? box->NextTabStop(x) : -1;
    });
    list_->setItemDelegate(delegate_);
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
      delegate_->rowHeight = model->GetItemHeight(0);
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
    // Rebuilding the rows or selecting one moves Qt's scrolling: the model's top
    // row is put back on top.
    if (aspects & (kAspectItems | kAspectSelection | kAspectScroll))
      if (QListWidgetItem* top = list_->item(model->GetTopIndex()))
        list_->scrollToItem(top, QAbstractItemView::PositionAtTop);
  }

 private:
  QListWidget* list_;
  TabStopDelegate* delegate_;
};

}  // namespace

namespace bindings {
std::unique_ptr<ControlBinding> MakeListBox(BindingHost& host, int index, int id, UINT style) {
  return std::make_unique<ListBoxBinding>(host, index, id, style);
}
}  // namespace bindings

}  // namespace vglobal::qt
