// The button family's widgets: push buttons, check boxes, radio buttons and group
// boxes. A click is the model's (DialogDriver::Click): radio groups and the default
// button are kept by the model, not by Qt.
#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

#include "platform/qt/controls/control_binding.h"
#include "platform/qt/qt_text.h"

namespace vglobal::qt {
namespace {

// A clickable button of widget class W.
template <typename W>
class ButtonBinding : public ControlBinding {
 public:
  ButtonBinding(BindingHost& host, int index, int id, UINT style)
      : ControlBinding(host, index, id, style), button_(new W(host.Surface())) {
    QObject::connect(button_, &QAbstractButton::clicked, button_,
                     [this] { Act([this] { driver().Click(id_); }); });
  }
  QWidget* Widget() const override { return button_; }
  void Sync(CWnd& control, unsigned aspects) override {
    if (aspects & kAspectText) button_->setText(WindowText(control));
    auto* model = dynamic_cast<CButton*>(&control);
    if ((aspects & kAspectCheck) && model) ShowCheck(model->GetCheck());
    ShowDefault();
  }

 protected:
  virtual void ShowCheck(int /*check*/) {}
  virtual void ShowDefault() {}
  W* button_;
};

class PushButtonBinding final : public ButtonBinding<QPushButton> {
 public:
  PushButtonBinding(BindingHost& host, int index, int id, UINT style)
      : ButtonBinding(host, index, id, style) {
    button_->setAutoDefault(false);  // Enter is the model's business (DialogDriver)
  }

 private:
  void ShowDefault() override {
    if (CDialog* dialog = model())
      button_->setDefault(static_cast<int>(dialog->GetDefID() & 0xFFFF) == id_);
  }
};

class CheckBoxBinding final : public ButtonBinding<QCheckBox> {
 public:
  CheckBoxBinding(BindingHost& host, int index, int id, UINT style)
      : ButtonBinding(host, index, id, style) {
    button_->setTristate(style & kTriState);
  }

 private:
  void ShowCheck(int check) override {
    button_->setCheckState(check == BST_INDETERMINATE ? Qt::PartiallyChecked
                           : check == BST_CHECKED     ? Qt::Checked
                                                      : Qt::Unchecked);
  }
};

class RadioButtonBinding final : public ButtonBinding<QRadioButton> {
 public:
  RadioButtonBinding(BindingHost& host, int index, int id, UINT style)
      : ButtonBinding(host, index, id, style) {
    button_->setAutoExclusive(false);  // groups are kept by the model
  }

 private:
  void ShowCheck(int check) override { button_->setChecked(check == BST_CHECKED); }
};

class GroupBoxBinding final : public ControlBinding {
 public:
  GroupBoxBinding(BindingHost& host, int index, int id, UINT style)
      : ControlBinding(host, index, id, style), group_(new QGroupBox(host.Surface())) {}
  QWidget* Widget() const override { return group_; }
  bool TakesMnemonic() const override { return false; }
  // Group boxes frame other controls: kept underneath, or they take the clicks.
  bool Underneath() const override { return true; }
  void Sync(CWnd& control, unsigned aspects) override {
    if (aspects & kAspectText) group_->setTitle(WindowText(control));
  }

 private:
  QGroupBox* group_;
};

}  // namespace

namespace bindings {
std::unique_ptr<ControlBinding> MakePushButton(BindingHost& host, int index, int id, UINT style) {
  return std::make_unique<PushButtonBinding>(host, index, id, style);
}
std::unique_ptr<ControlBinding> MakeCheckBox(BindingHost& host, int index, int id, UINT style) {
  return std::make_unique<CheckBoxBinding>(host, index, id, style);
}
std::unique_ptr<ControlBinding> MakeRadioButton(BindingHost& host, int index, int id, UINT style) {
  return std::make_unique<RadioButtonBinding>(host, index, id, style);
}
std::unique_ptr<ControlBinding> MakeGroupBox(BindingHost& host, int index, int id, UINT style) {
  return std::make_unique<GroupBoxBinding>(host, index, id, style);
}
}  // namespace bindings

}  // namespace vglobal::qt
