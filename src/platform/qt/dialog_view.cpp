// DialogView, binding: the model's changes are shown in the widgets, the user's
// actions on the widgets become DialogDriver calls, keys and the close button
// become the model's Enter, Escape, F1 and close.
//
// Map of this file:
//   1. life: construction, opening, closing
//   2. model -> view (DialogObserver)
//   3. user -> model (Act, keys, focus, close, moving and resizing)
#include <QCloseEvent>
#include <QKeyEvent>
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

}  // namespace

// ---- 1. life -------------------------------------------------------------------

DialogView::DialogView(CDialog& dialog, QWidget* parent)
    : QDialog(parent), dialog_(&dialog), driver_(dialog) {
  if (const DialogTemplate* t = dialog.GetTemplate()) {
    QFont dialogFont = font();
    if (t->fontSize > 0) dialogFont.setPointSize(t->fontSize);
    setFont(dialogFont);
    setWindowTitle(FromWide(t->title));
  }
}

DialogView::~DialogView() {
  if (dialog_) DialogDriver(*dialog_).Destroy();  // Closing() lets go of the model
  // The widgets go before their bindings: signals they send while going find the
  // bindings still there (and the model gone, so nothing is acted on).
  for (const auto& binding : bindings_)
    if (binding) delete binding->Widget();
}

bool DialogView::Start() {
  if (!dialog_ || dialog_->IsOpen() || !dialog_->GetTemplate()) {
    dialog_ = nullptr;  // not ours to close
    return false;
  }
  dialog_->SetObserver(this);
  dialog_->SetPlatformWindow(this);
  bool opened = false;
  Guarded([this, &opened] { opened = driver_.Open(); });
  if (!opened && dialog_ && !dialog_->IsOpen()) {
    dialog_->SetObserver(nullptr);
    dialog_->SetPlatformWindow(nullptr);
    dialog_ = nullptr;
    return false;
  }
  return true;
}

QWidget* DialogView::WidgetFor(int id) const {
  for (const auto& binding : bindings_)
    if (binding && binding->id() == id) return binding->Widget();
  return nullptr;
}

void DialogView::Closing() {
  for (std::size_t i = 0; i < bindings_.size(); ++i)
    if (CWnd* own = dialog_->GetControlAt(static_cast<int>(i))) own->SetPlatformWindow(nullptr);
  dialog_->SetPlatformWindow(nullptr);
  const bool modeless = dialog_->IsModeless();
  dialog_ = nullptr;
  // A modeless dialog's view belongs to its window: it goes when the window does,
  // once control is back in the event loop (a handler of ours may be running).
  if (modeless) {
    hide();
    deleteLater();
  }
}

// ---- 2. model -> view ------------------------------------------------------------

void DialogView::Opened() {
  for (int i = 0; i < dialog_->GetControlCount(); ++i) Bind(i);
  LinkMnemonics();
  PlaceWindow();
  for (int i = 0; i < dialog_->GetControlCount(); ++i) Sync(i, kAllAspects);
}

void DialogView::ControlAdded(int index) {
  Bind(index);
  Sync(index, kAllAspects);
}

void DialogView::ControlChanged(int index, unsigned aspects) {
  Sync(index, aspects);
}

void DialogView::DialogChanged(unsigned aspects) {
  if (!dialog_) return;
  if (aspects & kAspectGeometry) PlaceWindow();
  if (aspects & kAspectState) {
    ++syncing_;
    setVisible(dialog_->IsWindowVisible());
    --syncing_;
  }
}

void DialogView::FocusChanged(int index) {
  ControlBinding* binding = BindingAt(index);
  QWidget* widget = binding ? binding->FocusTarget() : nullptr;
  if (!widget || widget->hasFocus()) return;
  ++syncing_;
  widget->setFocus(Qt::OtherFocusReason);
  --syncing_;
}

void DialogView::TitleChanged() {
  if (dialog_) setWindowTitle(WindowText(*dialog_));
}

void DialogView::Ended(INT_PTR code) {
  ending_ = true;
  QDialog::done(static_cast<int>(code));
}

// ---- 3. user -> model ------------------------------------------------------------

void DialogView::Act(int index, const std::function<void()>& action) {
  if (!Live() || syncing_) return;
  Guarded(action);
  // Show the control as the model has it now, except its rows (the user did not
  // change them, and rebuilding them under the user's hand would lose the widget's
  // own position).
  Sync(index, kAllAspects & ~kAspectItems);
}

void DialogView::Watch(QWidget* widget, int index) {
  widget->setProperty("vglobalControlIndex", index);
  widget->installEventFilter(this);
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
  ControlBinding* binding = index.isValid() ? BindingAt(index.toInt()) : nullptr;
  if (!binding || !Live() || syncing_) return QDialog::eventFilter(watched, event);
  if (event->type() == QEvent::FocusIn) {
    Guarded([this, binding] { driver_.Focus(binding->id()); });
  } else if (event->type() == QEvent::KeyPress) {
    bool taken = false;
    Guarded(
        [binding, event, &taken] { taken = binding->KeyPressed(static_cast<QKeyEvent*>(event)); });
    if (taken) return true;
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

void DialogView::moveEvent(QMoveEvent* event) {
  QDialog::moveEvent(event);
  UserPlaced();
}

void DialogView::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  UserPlaced();
}

void DialogView::UserPlaced() {
  if (!Live() || syncing_ || !isVisible()) return;
  const QRect g = geometry();
  const RECT placed{g.left(), g.top(), g.left() + g.width(), g.top() + g.height()};
  Guarded([this, &placed] { driver_.MoveWindow(placed); });
}

}  // namespace vglobal::qt
