// The library frame: joining the library's resources to a client module, and the
// "under construction" notice.
#pragma once

#include "vglobal/compat/dialog.h"
#include "vglobal/compat/types.h"
#include "vglobal/export.h"

// Adds the library's resources (strings, dialog templates) to the process's
// resource chain once more. A client module other than the application calls it
// once at its own start so that the library's dialogs and strings can be found from
// it. Returns 1 in all cases, also when the entry could not be allocated.
VGLOBAL_EXPORT int VG_Init();

// ---- The "under construction" notice ----

// Shows the notice "Hard Hat Area" for an unfinished feature, unless switched off:
// by the user for `section` (int "DoNotShowConstructionDlg" under that key of the
// user's settings; null means "Global"), or for everyone (the same value under
// "Global" in the machine-wide settings). Settings that cannot be read count as
// "show". The notice is modal and has no parent window.
VGLOBAL_EXPORT void UnderConstruction(const wchar_t* section = nullptr);

// The notice itself (dialog 5806): a line of text and the check box "Do not show
// this dialog again". OK stores the box's state as "DoNotShowConstructionDlg" under
// the section's key of the user's settings (creating the key); Cancel stores
// nothing.
class VGLOBAL_EXPORT CDlgUnderConstruction : public CDialog {
 public:
  CDlgUnderConstruction(const wchar_t* section, CWnd* parent = nullptr);

  int m_doNotShowAgain = 0;  // the check box

 protected:
  void DoDataExchange(CDataExchange* dx) override;
  void OnOK() override;

 private:
  CString section_;
};
