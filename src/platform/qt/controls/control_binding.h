// The Qt side of a control kind: a binding makes the control's widget, turns the
// user's actions on it into DialogDriver calls (Act) and shows the model's state in
// it (Sync). The dialog view keeps one binding per control and does what every
// control shares (enabled and visible states, geometry, focus events).
//
// A new kind adds a unit here with its binding and a line in registry.cpp.
#pragma once

#include <QRect>
#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

#include "vglobal/compat/dialog.h"

class QKeyEvent;
class QLabel;
class QWidget;

namespace vglobal::qt {

// What a binding needs of the view that holds it.
class BindingHost {
 public:
  // The model; null once it has closed.
  virtual CDialog* Model() const = 0;
  virtual DialogDriver& Driver() = 0;
  // Runs a user action on the model, then shows control `index` as the model has
  // it (the model may have refused or changed what the user did). Nothing happens
  // while the model is being shown in the widgets or is ending.
  virtual void Act(int index, const std::function<void()>& action) = 0;
  // The widget the controls' widgets are children of.
  virtual QWidget* Surface() = 0;
  // Focus events of `widget` (a part of control `index`'s widget, like a combo
  // box's line edit) count as the control's.
  virtual void Watch(QWidget* widget, int index) = 0;

 protected:
  ~BindingHost() = default;
};

class ControlBinding {
 public:
  ControlBinding(BindingHost& host, int index, int id, UINT style)
      : host_(host), index_(index), id_(id), style_(style) {}
  virtual ~ControlBinding() = default;
  ControlBinding(const ControlBinding&) = delete;
  ControlBinding& operator=(const ControlBinding&) = delete;

  int id() const { return id_; }
  virtual QWidget* Widget() const = 0;
  // Shows the model's `aspects` (ControlAspect bits) of `control`, the dialog's
  // own handle of the control.
  virtual void Sync(CWnd& control, unsigned aspects) = 0;
  // The rectangle the widget takes for the control's rectangle `r`.
  virtual QRect Fit(const QRect& r) const { return r; }
  // The widget that takes the keyboard focus for the control.
  virtual QWidget* FocusTarget() const { return Widget(); }
  // A static text's label, whose mnemonic leads to the next control; else null.
  virtual QLabel* Label() const { return nullptr; }
  // Whether a label's mnemonic may lead to this control.
  virtual bool TakesMnemonic() const { return true; }
  // Frames and group boxes lie under the controls they surround.
  virtual bool Underneath() const { return false; }
  // A key pressed in the control's widget; true when the binding took it.
  virtual bool KeyPressed(QKeyEvent* /*event*/) { return false; }

 protected:
  void Act(const std::function<void()>& action) { host_.Act(index_, action); }
  // Hands a list's new selection (rows in any order) to the model as the user made
  // it: one row of a single-selection list is a click on it, anything else the rows.
  void SelectedByUser(std::vector<int> rows) {
    std::sort(rows.begin(), rows.end());
    Act([this, &rows] {
      if (!(style_ & kMultiSelect) && rows.size() == 1)
        driver().Select(id_, rows.front());
      else
        driver().SelectRows(id_, rows);
    });
  }
  DialogDriver& driver() { return host_.Driver(); }
  CDialog* model() const { return host_.Model(); }

  BindingHost& host_;
  const int index_;
  const int id_;
  const UINT style_;
};

// The binding of a control of `kind`; null for a kind that has no widget here.
std::unique_ptr<ControlBinding> MakeBinding(ControlKind kind, BindingHost& host, int index, int id,
                                            UINT style);

}  // namespace vglobal::qt
