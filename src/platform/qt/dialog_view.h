// DialogView: a QDialog that shows a dialog model. It builds one widget per control
// from the template, keeps model and widgets in step (the generic binder), and
// turns keys and the window's close button into the model's actions.
#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "vglobal/compat/dialog.h"

class QEvent;
class QKeyEvent;
class QCloseEvent;

namespace vglobal::qt {

class DialogView final : public QDialog, public DialogObserver {
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

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Building (dialog_view_build.cpp)
  void Build(const DialogTemplate& t);
  QWidget* MakeWidget(int index, const ControlTemplate& ct);
  void Wire(int index, const ControlTemplate& ct, QWidget* widget);
  int ToPixelsX(int dlu) const;
  int ToPixelsY(int dlu) const;

  // Binding (dialog_view.cpp)
  void Sync(int index, unsigned aspects);
  void SyncText(int index, const ControlTemplate& ct, QWidget* widget);
  void SyncList(int index, unsigned aspects, QWidget* widget);
  // Runs a user action on the model, then shows the control as the model has it
  // (the model may have refused or changed what the user did).
  void Act(int index, const std::function<void()>& action);
  // Hands a list's new selection (rows in any order) to the model as the user made it.
  void SelectRows(int index, int id, bool multi, std::vector<int> rows);
  bool Live() const { return dialog_ && !ending_; }

  CDialog* dialog_;  // null once the model has closed
  DialogDriver driver_;
  std::vector<QWidget*> widgets_;  // by control index
  std::vector<int> ids_;           // control id by index
  int baseX_ = 6;                  // dialog base units of the font, in pixels
  int baseY_ = 13;
  int syncing_ = 0;  // > 0 while the model is shown: widget signals are not the user's
  bool ending_ = false;
};

}  // namespace vglobal::qt
