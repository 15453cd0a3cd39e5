// A dialog with the two lists the audit and sample dialogs are built on: a list box
// whose entries are laid out in columns at tab stops, and a list control with
// fitted columns, full-row selection and grid lines, scrolled to a row. Its picture
// is docs/images/lists-demo.png.
#pragma once

#include "vglobal/compat/dialog.h"

class CListsDemoDlg : public CDialog {
 public:
  CListsDemoDlg();

 protected:
  BOOL OnInitDialog() override;
};
