// DialogView: a QDialog that shows a dialog model. It keeps one binding per control
// (src/platform/qt/controls: each kind makes, wires and shows its own widget),
// places the widgets and itself where the model's geometry says, keeps enabled and
// visible states and the focus in step, and turns keys, the window's close button
// and the user's moving and resizing into the model's actions.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <vector>

#include "platform/qt/controls/control_binding.h"
#include "vglobal/compat/dialog.h"

class QEvent;
class QKeyEvent;
class QCloseEvent;

namespace vglobal::qt {

class DialogView final : public QDialog, public DialogObserver, private BindingHost {
  Q_OBJECT

 public:
  DialogView(CDialog& dialog, QWidget* parent);
  ~DialogView() override;

  // Opens the model (its OnInitDialog runs); false when it cannot be opened.
  bool Start();
  // The widget of control `id` (the first with that id), or null.
  QWidget* WidgetFor(int id) const;

  // DialogObserver
  void Opened() override;
  void ControlChanged(int index, unsigned aspects) override;
  void FocusChanged(int index) override;
  void TitleChanged() override;
  void Ended(INT_PTR code) override;
  void Closing() override;
  void ControlAdded(int index) override;
  void DialogChanged(unsigned aspects) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // BindingHost
  CDialog* Model() const override { return dialog_; }
  DialogDriver& Driver() override { return driver_; }
  void Act(int index, const std::function<void()>& action) override;
  QWidget* Surface() override { return this; }
  void Watch(QWidget* widget, int index) override;

  // Building (dialog_view_build.cpp)
  void Bind(int index);
  void LinkMnemonics();
  void PlaceWindow();
  void Sync(int index, unsigned aspects);
  ControlBinding* BindingAt(int index) const;

  // The user moved or resized the window: the model learns it.
  void UserPlaced();
  bool Live() const { return dialog_ && !ending_; }

  CDialog* dialog_;  // null once the model has closed
  DialogDriver driver_;
  std::vector<std::unique_ptr<ControlBinding>> bindings_;  // by control index
  int syncing_ = 0;  // > 0 while the model is shown: widget signals are not the user's
  bool ending_ = false;
};

}  // namespace vglobal::qt
