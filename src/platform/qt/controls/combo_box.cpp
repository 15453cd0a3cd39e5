// The combo box's widget: a QComboBox, editable unless kDropDownList. Its line
// edit takes the focus for the control.
#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>
#include <algorithm>

#include "platform/qt/controls/control_binding.h"
#include "platform/qt/qt_text.h"

namespace vglobal::qt {
namespace {

class ComboBoxBinding final : public ControlBinding {
 public:
  ComboBoxBinding(BindingHost& host, int index, int id, UINT style)
      : ControlBinding(host, index, id, style), combo_(new QComboBox(host.Surface())) {
    combo_->setEditable(!(style & kDropDownList));
    combo_->setInsertPolicy(QComboBox::NoInsert);
    QObject::connect(combo_, &QComboBox::activated, combo_,
                     [this](int row) { Act([this, row] { driver().Select(id_, row); }); });
    if (QLineEdit* edit = combo_->lineEdit()) {
      host.Watch(edit, index);
      QObject::connect(edit, &QLineEdit::textEdited, edit, [this](const QString& text) {
        Act([this, &text] { driver().Type(id_, ToWide(text).c_str()); });
      });
    }
  }
  QWidget* Widget() const override { return combo_; }
  QWidget* FocusTarget() const override {
    return combo_->lineEdit() ? static_cast<QWidget*>(combo_->lineEdit()) : combo_;
  }
  // The template's height includes the dropped-down list.
  QRect Fit(const QRect& r) const override {
    return {r.topLeft(), QSize(r.width(), std::min(r.height(), combo_->sizeHint().height()))};
  }

  void Sync(CWnd& control, unsigned aspects) override {
    auto* model = dynamic_cast<CComboBox*>(&control);
    if (!model) return;
    QSignalBlocker blockEdit(combo_->lineEdit());
    if (aspects & kAspectItems) {
      combo_->clear();
      CString row;
      for (int i = 0; i < model->GetCount(); ++i) {
        model->GetLBText(i, row);
        combo_->addItem(FromWide(row));
      }
    }
    if (aspects & (kAspectItems | kAspectSelection | kAspectText)) {
      combo_->setCurrentIndex(model->GetCurSel());
      const QString text = WindowText(*model);
      if (QLineEdit* edit = combo_->lineEdit(); edit && edit->text() != text) edit->setText(text);
    }
  }

 private:
  QComboBox* combo_;
};

}  // namespace

namespace bindings {
std::unique_ptr<ControlBinding> MakeComboBox(BindingHost& host, int index, int id, UINT style) {
  return std::make_unique<ComboBoxBinding>(host, index, id, style);
}
}  // namespace bindings

}  // namespace vglobal::qt
