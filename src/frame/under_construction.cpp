// The "under construction" notice: whether to show it, and remembering the user's
// "do not show again".
#include "frame/under_construction.h"

#include "vglobal/frame.h"
#include "vglobal/settings.h"

namespace {

constexpr const wchar_t* kGlobalSection = L"Global";

// The switch under root\section: true only when it can be read and is on.
bool SwitchedOff(HKEY root, const wchar_t* section) {
  CVRegKey key(root, section, 0, 0);
  int value = 0;
  return key.ReadInt(vglobal::kDoNotShowValueName, &value) && value != 0;
}

}  // namespace

void UnderConstruction(const wchar_t* section) {
  if (!section) section = kGlobalSection;
  if (SwitchedOff(HKEY_CURRENT_USER, section)) return;
  // The machine-wide switch is always the "Global" one, whatever the section.
  if (SwitchedOff(HKEY_LOCAL_MACHINE, kGlobalSection)) return;
  CDlgUnderConstruction notice(section, nullptr);
  notice.DoModal();
}

CDlgUnderConstruction::CDlgUnderConstruction(const wchar_t* section, CWnd* parent)
    : CDialog(vglobal::kUnderConstructionDialogId, parent),
      section_(section ? section : kGlobalSection) {}

void CDlgUnderConstruction::DoDataExchange(CDataExchange* dx) {
  CDialog::DoDataExchange(dx);
  DDX_Check(dx, vglobal::kDoNotShowAgainId, m_doNotShowAgain);
}

void CDlgUnderConstruction::OnOK() {
  UpdateData(TRUE);
  CVRegKey key(HKEY_CURRENT_USER, section_, 1, 1);
  key.WriteInt(vglobal::kDoNotShowValueName, m_doNotShowAgain);
  key.Close();
  EndDialog(IDOK);
}
