// DialogView, binding: the model's changes are shown in the widgets, the user's
// actions on the widgets become DialogDriver calls, keys and the close button
// become the model's Enter, Escape, F1 and close.
//
// Map of this file:
//   1. life: construction, opening, closing
//   2. model -> widgets (DialogObserver, Sync)
//   3. user -> model (Act, keys, focus, close)
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <algorithm>
#include <climits>
#include <cstdio>
#include <exception>

#include "platform/qt/dialog_view.h"
#include "platform/qt/qt_text.h"

namespace vglobal::qt {
namespace {

constexpr unsigned kAllAspects = ~0u;

// A handler that throws must not unwind through Qt's event loop: report it where a
// developer sees it and keep the application running.
template <typename F>
void Guarded(F&& f) {
  try {
    f();
  } catch (const std::exception& e) {
    std::fprintf(stderr, "vglobal: a dialog handler failed: %s\n", e.what());
  } catch (...) {
    std::fprintf(stderr, "vglobal: a dialog handler failed\n");
  }
}

CString TextOf(const CWnd& window) {
  CString text;
  window.GetWindowText(text);
  return text;
}

}  // namespace

// ---- 1. life -------------------------------------------------------------------

DialogView::DialogView(CDialog& dialog, QWidget* parent)
    : QDialog(parent), dialog_(&dialog), driver_(dialog) {
  if (const DialogTemplate* t = dialog.GetTemplate()) Build(*t);
}

DialogView::~DialogView() {
  if (dialog_) DialogDriver(*dialog_).Destroy();  // Closing() lets go of the model
}

bool DialogView::Start() {
  if (!dialog_ || dialog_->IsOpen() || !dialog_->GetTemplate()) {
    dialog_ = nullptr;  // not ours to close
    return false;
  }
  dialog_->SetObserver(this);
  dialog_->SetPlatformWindow(this);
  Guarded([this] { driver_.Open(); });
  return true;
}

QWidget* DialogView::WidgetFor(int id) const {
  for (std::size_t i = 0; i < ids_.size(); ++i)
    if (ids_[i] == id) return widgets_[i];
  return nullptr;
}

void DialogView::Closing() {
  for (std::size_t i = 0; i < widgets_.size(); ++i) {
    if (CWnd* own = dialog_->GetControlAt(static_cast<int>(i))) own->SetPlatformWindow(nullptr);
  }
  dialog_->SetPlatformWindow(nullptr);
  dialog_ = nullptr;
}

// ---- 2. model -> widgets -------------------------------------------------------

void DialogView::Opened() {
  for (std::size_t i = 0; i < widgets_.size(); ++i) {
    if (CWnd* own = dialog_->GetControlAt(static_cast<int>(i))) own->SetPlatformWindow(widgets_[i]);
    Sync(static_cast<int>(i), kAllAspects);
  }
}

void DialogView::ControlChanged(int index, unsigned aspects) {
  Sync(index, aspects);
}

void DialogView::FocusChanged(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= widgets_.size()) return;
  QWidget* widget = widgets_[index];
  if (auto* combo = qobject_cast<QComboBox*>(widget); combo && combo->lineEdit())
    widget = combo->lineEdit();
  if (widget->hasFocus()) return;
  ++syncing_;
  widget->setFocus(Qt::OtherFocusReason);
  --syncing_;
}

void DialogView::TitleChanged() {
  if (dialog_) setWindowTitle(FromWide(TextOf(*dialog_)));
}

void DialogView::Ended(INT_PTR code) {
  ending_ = true;
  QDialog::done(static_cast<int>(code));
}

void DialogView::Sync(int index, unsigned aspects) {
  if (!dialog_ || index < 0 || static_cast<std::size_t>(index) >= widgets_.size()) return;
  CWnd* control = dialog_->GetControlAt(index);
  const ControlTemplate* ct = dialog_->GetControlTemplateAt(index);
  if (!control || !ct) return;
  QWidget* widget = widgets_[index];
  ++syncing_;
  {
    QSignalBlocker block(widget);
    if (aspects & kAspectState) {
      widget->setEnabled(control->IsWindowEnabled());
      widget->setHidden(!control->IsWindowVisible());
    }
    switch (ct->kind) {
      case ControlKind::ListBox:
      case ControlKind::ComboBox:
      case ControlKind::ListCtrl:
        SyncList(index, aspects, widget);
        break;
      default:
        if (aspects & (kAspectText | kAspectLimits | kAspectSelection))
          SyncText(index, *ct, widget);
        break;
    }
    auto* button = dynamic_cast<CButton*>(control);
    if ((aspects & kAspectCheck) && button) {
      const int check = button->GetCheck();
      if (auto* box = qobject_cast<QCheckBox*>(widget))
        box->setCheckState(check == BST_INDETERMINATE ? Qt::PartiallyChecked
                           : check == BST_CHECKED     ? Qt::Checked
                                                      : Qt::Unchecked);
      else if (auto* radio = qobject_cast<QRadioButton*>(widget))
        radio->setChecked(check == BST_CHECKED);
    }
    if (auto* push = qobject_cast<QPushButton*>(widget))
      push->setDefault(static_cast<int>(dialog_->GetDefID() & 0xFFFF) == ct->id);
  }
  --syncing_;
}

void DialogView::SyncText(int index, const ControlTemplate& ct, QWidget* widget) {
  CWnd* control = dialog_->GetControlAt(index);
  const QString text = FromWide(TextOf(*control));
  if (auto* label = qobject_cast<QLabel*>(widget)) {
    const bool mnemonic = !(ct.style & kNoPrefix) && label->buddy();
    label->setText(mnemonic || (ct.style & kNoPrefix) ? text : StripMnemonic(text));
  } else if (auto* group = qobject_cast<QGroupBox*>(widget)) {
    group->setTitle(text);
  } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
    button->setText(text);
  } else if (auto* line = qobject_cast<QLineEdit*>(widget)) {
    auto* edit = static_cast<CEdit*>(control);
    const qsizetype limit = std::max<qsizetype>(edit->GetLimitText(), text.size());
    line->setMaxLength(static_cast<int>(std::min<qsizetype>(limit, INT_MAX)));
    line->setReadOnly(edit->IsReadOnly());
    if (line->text() != text) {
      const int cursor = line->cursorPosition();
      line->setText(text);
      line->setCursorPosition(std::min(cursor, static_cast<int>(text.size())));
    }
    int start = 0, end = 0;
    edit->GetSel(start, end);
    if (end > start) line->setSelection(start, end - start);
  } else if (auto* plain = qobject_cast<QPlainTextEdit*>(widget)) {
    plain->setReadOnly(static_cast<CEdit*>(control)->IsReadOnly());
    const QString shown = FromWindowsLines(text);
    if (plain->toPlainText() != shown) plain->setPlainText(shown);
  }
}

void DialogView::SyncList(int index, unsigned aspects, QWidget* widget) {
  CWnd* control = dialog_->GetControlAt(index);
  if (auto* list = qobject_cast<QListWidget*>(widget)) {
    auto* model = static_cast<CListBox*>(control);
    if (aspects & kAspectItems) {
      list->clear();
      CString row;
      for (int i = 0; i < model->GetCount(); ++i) {
        model->GetText(i, row);
        list->addItem(FromWide(row));
      }
    }
    if (aspects & (kAspectItems | kAspectSelection)) {
      if (list->selectionMode() == QAbstractItemView::SingleSelection) {
        const int selected = model->GetCurSel();
        list->setCurrentRow(selected);
        if (selected < 0) list->clearSelection();
      } else {
        for (int i = 0; i < list->count(); ++i) list->item(i)->setSelected(model->GetSel(i) > 0);
      }
    }
    if (aspects & kAspectScroll)
      if (QListWidgetItem* top = list->item(model->GetTopIndex()))
        list->scrollToItem(top, QAbstractItemView::PositionAtTop);
  } else if (auto* combo = qobject_cast<QComboBox*>(widget)) {
    auto* model = static_cast<CComboBox*>(control);
    QSignalBlocker blockEdit(combo->lineEdit());
    if (aspects & kAspectItems) {
      combo->clear();
      CString row;
      for (int i = 0; i < model->GetCount(); ++i) {
        model->GetLBText(i, row);
        combo->addItem(FromWide(row));
      }
    }
    if (aspects & (kAspectItems | kAspectSelection | kAspectText)) {
      combo->setCurrentIndex(model->GetCurSel());
      const QString text = FromWide(TextOf(*model));
      if (QLineEdit* edit = combo->lineEdit(); edit && edit->text() != text) edit->setText(text);
    }
  } else if (auto* tree = qobject_cast<QTreeWidget*>(widget)) {
    auto* model = static_cast<CListCtrl*>(control);
    const int columns = model->GetColumnCount();
    if (aspects & kAspectItems) {
      tree->clear();
      tree->setColumnCount(std::max(columns, 1));
      QStringList headings;
      for (int c = 0; c < columns; ++c) headings << FromWide(model->GetColumnHeading(c));
      tree->setHeaderLabels(headings);
      for (int r = 0; r < model->GetItemCount(); ++r) {
        auto* item = new QTreeWidgetItem;
        for (int c = 0; c < std::max(columns, 1); ++c) {
          item->setText(c, FromWide(model->GetItemText(r, c)));
          const int format = model->GetColumnFormat(c);
          item->setTextAlignment(c, format == LVCFMT_RIGHT    ? Qt::AlignRight | Qt::AlignVCenter
                                    : format == LVCFMT_CENTER ? Qt::AlignCenter
                                                              : Qt::AlignLeft | Qt::AlignVCenter);
        }
        tree->addTopLevelItem(item);
      }
      for (int c = 0; c < columns; ++c) {
        const int width = model->GetColumnWidth(c);
        if (width >= 0)
          tree->setColumnWidth(c, width);
        else
          tree->resizeColumnToContents(c);
      }
    }
    if (aspects & (kAspectItems | kAspectSelection)) {
      for (int r = 0; r < tree->topLevelItemCount(); ++r)
        tree->topLevelItem(r)->setSelected(model->GetItemState(r, LVIS_SELECTED) != 0);
      const int focused = model->GetNextItem(-1, LVNI_FOCUSED);
      if (focused >= 0)
        tree->selectionModel()->setCurrentIndex(tree->model()->index(focused, 0),
                                                QItemSelectionModel::NoUpdate);
    }
    if (aspects & kAspectScroll)
      if (QTreeWidgetItem* row = tree->topLevelItem(model->GetTopIndex())) tree->scrollToItem(row);
  }
}

// ---- 3. user -> model ------------------------------------------------------------

void DialogView::SelectRows(int index, int id, bool multi, std::vector<int> rows) {
  std::sort(rows.begin(), rows.end());
  Act(index, [this, id, multi, &rows] {
    if (!multi && rows.size() == 1)
      driver_.Select(id, rows.front());
    else
      driver_.SelectRows(id, rows);
  });
}

void DialogView::Act(int index, const std::function<void()>& action) {
  if (!Live() || syncing_) return;
  Guarded(action);
  // Show the control as the model has it now, except its rows (the user did not
  // change them, and rebuilding them under the user's hand would lose the widget's
  // own position).
  Sync(index, kAllAspects & ~kAspectItems);
}

void DialogView::keyPressEvent(QKeyEvent* event) {
  if (!Live()) return QDialog::keyPressEvent(event);
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Guarded([this] { driver_.PressEnter(); });
      return;
    case Qt::Key_Escape:
      Guarded([this] { driver_.PressEscape(); });
      return;
    case Qt::Key_F1:
      Guarded([this] { driver_.PressHelp(); });
      return;
    default:
      QDialog::keyPressEvent(event);
  }
}

bool DialogView::eventFilter(QObject* watched, QEvent* event) {
  const QVariant index = watched->property("vglobalControlIndex");
  if (!index.isValid() || !Live() || syncing_) return QDialog::eventFilter(watched, event);
  const int i = index.toInt();
  if (event->type() == QEvent::FocusIn) {
    Guarded([this, i] { driver_.Focus(ids_[i]); });
  } else if (event->type() == QEvent::KeyPress && qobject_cast<QPlainTextEdit*>(watched)) {
    // Enter in a multi-line edit presses the default button unless the edit wants it.
    auto* key = static_cast<QKeyEvent*>(event);
    const ControlTemplate* ct = dialog_->GetControlTemplateAt(i);
    if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) && ct &&
        !(ct->style & kWantReturn)) {
      Guarded([this] { driver_.PressEnter(); });
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

void DialogView::closeEvent(QCloseEvent* event) {
  if (!Live()) return QDialog::closeEvent(event);
  event->ignore();  // the model decides: OnClose may keep the dialog open
  Guarded([this] { driver_.Close(); });
}

void DialogView::reject() {
  if (!Live()) return QDialog::reject();
  Guarded([this] { driver_.Close(); });
}

}  // namespace vglobal::qt
