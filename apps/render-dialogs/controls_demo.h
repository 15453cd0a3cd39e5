// A dialog that shows every control kind the library has, filled as a dialog of the
// suite would fill it: the picture of it (docs/images/controls-demo.png) is where a
// reader sees what each kind looks like.
#pragma once

#include "vglobal/compat/dialog.h"
#include "vglobal/compat/image_list.h"

class CControlsDemoDlg : public CDialog {
 public:
  CControlsDemoDlg();

 protected:
  BOOL OnInitDialog() override;
  void OnDrawItem(int id, LPDRAWITEMSTRUCT drawItem) override;

 private:
  void FillToolbar();
  void FillLists();

  CImageList commandImages_;
};
