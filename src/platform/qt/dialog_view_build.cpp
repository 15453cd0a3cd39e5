// DialogView, building and placing: one binding per control, made by the control's
// kind (MakeBinding); widgets and the window put where the model's geometry says
// (pixels the model computed from dialog units with the platform's base units).
#include <QLabel>
#include <QSignalBlocker>

#include "platform/qt/dialog_view.h"

namespace vglobal::qt {
namespace {

QRect ToQRect(const RECT& r) {
  return QRect(r.left, r.top, r.right - r.left, r.bottom - r.top);
}

}  // namespace

ControlBinding* DialogView::BindingAt(int index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= bindings_.size()) return nullptr;
  return bindings_[index].get();
}

void DialogView::Bind(int index) {
  const ControlTemplate* ct = dialog_->GetControlTemplateAt(index);
  if (static_cast<std::size_t>(index) >= bindings_.size()) bindings_.resize(index + 1);
  if (!ct) return;
  std::unique_ptr<ControlBinding> binding = MakeBinding(ct->kind, *this, index, ct->id, ct->style);
  if (!binding) return;
  QWidget* widget = binding->Widget();
  Watch(widget, index);
  if (binding->Underneath()) widget->lower();
  if (CWnd* own = dialog_->GetControlAt(index)) own->SetPlatformWindow(widget);
  widget->show();
  bindings_[index] = std::move(binding);
}

// A static text's mnemonic moves the focus to the next control that takes it; the
// next static text ends the search.
void DialogView::LinkMnemonics() {
  for (std::size_t i = 0; i < bindings_.size(); ++i) {
    QLabel* label = bindings_[i] ? bindings_[i]->Label() : nullptr;
    const ControlTemplate* ct = dialog_->GetControlTemplateAt(static_cast<int>(i));
    if (!label || !ct || (ct->style & kNoPrefix)) continue;
    for (std::size_t j = i + 1; j < bindings_.size(); ++j) {
      if (!bindings_[j]) continue;
      if (bindings_[j]->Label()) break;
      if (bindings_[j]->TakesMnemonic()) {
        label->setBuddy(bindings_[j]->Widget());
        break;
      }
    }
  }
}

void DialogView::PlaceWindow() {
  CRect r;
  if (!dialog_ || !dialog_->GetWindowRect(&r)) return;
  ++syncing_;
  // A window without a parent is placed on the screen; the window manager may move
  // it (its title bar), and then tells us where it put it.
  setGeometry(ToQRect(r));
  --syncing_;
}

void DialogView::Sync(int index, unsigned aspects) {
  ControlBinding* binding = BindingAt(index);
  CWnd* control = dialog_ ? dialog_->GetControlAt(index) : nullptr;
  if (!binding || !control) return;
  QWidget* widget = binding->Widget();
  ++syncing_;
  {
    QSignalBlocker block(widget);
    if (aspects & kAspectState) {
      widget->setEnabled(control->IsWindowEnabled());
      widget->setHidden(!control->IsWindowVisible());
    }
    if (aspects & kAspectGeometry) {
      CRect r;
      control->GetWindowRect(&r);
      dialog_->ScreenToClient(&r);
      widget->setGeometry(binding->Fit(ToQRect(r)));
    }
    binding->Sync(*control, aspects);
  }
  --syncing_;
}

}  // namespace vglobal::qt
