// Data exchange: UpdateData, CDataExchange, and the DDX_ and DDV_ functions.
//
// A refused value ends the pass with an exception that only UpdateData catches; the
// user is told in a message box before it is thrown.
#include <cstdio>
#include <limits>

#include "compat/controls_number.h"
#include "compat/dialog_state.h"
#include "vglobal/platform.h"

namespace {

struct Refused {};

void Tell(CDataExchange* dx, const CString& text) {
  vglobal::GetPlatform().MessageBox(dx->m_pDlgWnd, text, nullptr, MB_OK | MB_ICONEXCLAMATION);
}

// A DDX_ for a control the dialog does not have is a mistake in the dialog class;
// say so where a developer sees it and leave the member alone.
void ReportMissing(CDataExchange* dx, int id, const char* what) {
  std::fprintf(stderr, "vglobal: dialog %u has no %s control %d to exchange\n",
               dx->m_pDlgWnd->GetTemplateID(), what, id);
}

template <typename T>
T* Prepare(CDataExchange* dx, int id, bool edit, const char* what) {
  CWnd* control = edit ? dx->PrepareEditCtrl(id) : dx->PrepareCtrl(id);
  T* typed = dynamic_cast<T*>(control);
  if (!typed) ReportMissing(dx, id, what);
  return typed;
}

CString TextOf(const CWnd& control) {
  CString text;
  control.GetWindowText(text);
  return text;
}

}  // namespace

BOOL CDialog::UpdateData(BOOL saveAndValidate) {
  if (!IsOpen()) return FALSE;
  CDataExchange dx(this, saveAndValidate);
  try {
    DoDataExchange(&dx);
  } catch (const Refused&) {
    return FALSE;
  }
  return TRUE;
}

CDataExchange::CDataExchange(CDialog* dialog, BOOL saveAndValidate)
    : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog) {}

CWnd* CDataExchange::PrepareCtrl(int id) {
  m_idLastControl = id;
  m_bEditLastControl = FALSE;
  return m_pDlgWnd->GetDlgItem(id);
}

CWnd* CDataExchange::PrepareEditCtrl(int id) {
  CWnd* control = PrepareCtrl(id);
  m_bEditLastControl = TRUE;
  return control;
}

void CDataExchange::Fail() {
  if (CWnd* control = m_pDlgWnd->GetDlgItem(m_idLastControl)) m_pDlgWnd->GotoDlgCtrl(control);
  throw Refused{};
}

void DDX_Text(CDataExchange* dx, int id, CString& value) {
  CWnd* control = Prepare<CWnd>(dx, id, true, "text");
  if (!control) return;
  if (dx->m_bSaveAndValidate)
    control->GetWindowText(value);
  else
    control->SetWindowText(value);
}

void DDX_Text(CDataExchange* dx, int id, int& value) {
  CWnd* control = Prepare<CWnd>(dx, id, true, "text");
  if (!control) return;
  if (!dx->m_bSaveAndValidate) {
    CString text;
    text.Format(L"%d", value);
    control->SetWindowText(text);
    return;
  }
  std::optional<long long> v = vglobal::number::ParseInteger(TextOf(*control).view());
  if (!v || *v < std::numeric_limits<int>::min() || *v > std::numeric_limits<int>::max()) {
    Tell(dx, L"Please enter an integer.");
    dx->Fail();
  }
  value = static_cast<int>(*v);
}

void DDX_Text(CDataExchange* dx, int id, UINT& value) {
  CWnd* control = Prepare<CWnd>(dx, id, true, "text");
  if (!control) return;
  if (!dx->m_bSaveAndValidate) {
    CString text;
    text.Format(L"%u", value);
    control->SetWindowText(text);
    return;
  }
  const CString text = TextOf(*control);
  std::optional<long long> v = vglobal::number::ParseInteger(text.view());
  if (!v || *v < 0 || *v > std::numeric_limits<UINT>::max() || text.Find(L'-') >= 0) {
    Tell(dx, L"Please enter a positive integer.");
    dx->Fail();
  }
  value = static_cast<UINT>(*v);
}

void DDX_Text(CDataExchange* dx, int id, double& value) {
  CWnd* control = Prepare<CWnd>(dx, id, true, "text");
  if (!control) return;
  if (!dx->m_bSaveAndValidate) {
    auto* numeric = dynamic_cast<vglobal::NumericEdit*>(control);
    if (numeric && numeric->GetDecimals() >= 0)
      numeric->SetValue(value);
    else
      control->SetWindowText(vglobal::number::FormatReal(value, -1).c_str());
    return;
  }
  std::optional<double> v = vglobal::number::ParseReal(TextOf(*control).view());
  if (!v) {
    Tell(dx, L"Please enter a number.");
    dx->Fail();
  }
  value = *v;
}

void DDX_Check(CDataExchange* dx, int id, int& value) {
  auto* button = Prepare<CButton>(dx, id, false, "check box");
  if (!button) return;
  if (dx->m_bSaveAndValidate)
    value = button->GetCheck();
  else
    button->SetCheck(value);
}

void DDX_Radio(CDataExchange* dx, int id, int& value) {
  dx->PrepareCtrl(id);
  CDialog& dialog = *dx->m_pDlgWnd;
  vglobal::ControlState* first = vglobal::DialogAccess::Find(dialog, id);
  if (!first || !first->InRadioGroup()) {
    ReportMissing(dx, id, "radio button");
    return;
  }
  if (dx->m_bSaveAndValidate) value = -1;
  const int count = dialog.GetControlCount();
  int button = 0;
  for (int i = first->index; i < count; ++i) {
    vglobal::ControlState& c = *vglobal::DialogAccess::At(dialog, i);
    if (i > first->index && c.HasStyle(vglobal::kGroup)) break;
    auto* handle = dynamic_cast<CButton*>(c.own);
    if (!c.InRadioGroup() || !handle) continue;
    if (dx->m_bSaveAndValidate) {
      if (handle->GetCheck() == BST_CHECKED) value = button;
    } else {
      handle->SetCheck(button == value ? BST_CHECKED : BST_UNCHECKED);
    }
    ++button;
  }
}

void DDX_LBIndex(CDataExchange* dx, int id, int& index) {
  auto* list = Prepare<CListBox>(dx, id, false, "list box");
  if (!list) return;
  if (dx->m_bSaveAndValidate)
    index = list->GetCurSel();
  else
    list->SetCurSel(index);
}

void DDX_CBIndex(CDataExchange* dx, int id, int& index) {
  auto* combo = Prepare<CComboBox>(dx, id, false, "combo box");
  if (!combo) return;
  if (dx->m_bSaveAndValidate)
    index = combo->GetCurSel();
  else
    combo->SetCurSel(index);
}

void DDX_LBString(CDataExchange* dx, int id, CString& value) {
  auto* list = Prepare<CListBox>(dx, id, false, "list box");
  if (!list) return;
  if (dx->m_bSaveAndValidate) {
    list->GetText(list->GetCurSel(), value);
  } else if (list->SelectString(-1, value) == LB_ERR) {
    list->SetCurSel(-1);
  }
}

void DDX_CBString(CDataExchange* dx, int id, CString& value) {
  auto* combo = Prepare<CComboBox>(dx, id, false, "combo box");
  if (!combo) return;
  if (dx->m_bSaveAndValidate) {
    combo->GetWindowText(value);
  } else if (combo->SelectString(-1, value) == CB_ERR) {
    combo->SetWindowText(value);  // a drop-down list ignores a text it does not have
  }
}

void DDX_Control(CDataExchange* dx, int id, CWnd& control) {
  auto* handle = dynamic_cast<vglobal::DialogControl*>(&control);
  if (handle && handle->IsAttached() && handle->GetParent() == dx->m_pDlgWnd &&
      handle->GetDlgCtrlID() == id)
    return;
  if (!handle || !handle->SubclassDlgItem(static_cast<UINT>(id), dx->m_pDlgWnd))
    ReportMissing(dx, id, "matching");
}

void DDV_MaxChars(CDataExchange* dx, const CString& value, int maxChars) {
  if (!dx->m_bSaveAndValidate) {
    CWnd* control = dx->m_pDlgWnd->GetDlgItem(dx->m_idLastControl);
    if (auto* edit = dynamic_cast<CEdit*>(control); edit && dx->m_bEditLastControl)
      edit->LimitText(maxChars);
    else if (auto* combo = dynamic_cast<CComboBox*>(control); combo && dx->m_bEditLastControl)
      combo->LimitText(maxChars);
    return;
  }
  if (value.GetLength() > maxChars) {
    CString text;
    text.Format(L"Please enter no more than %d characters.", maxChars);
    Tell(dx, text);
    dx->Fail();
  }
}

void DDV_MinMaxInt(CDataExchange* dx, int value, int min, int max) {
  if (!dx->m_bSaveAndValidate || (value >= min && value <= max)) return;
  CString text;
  text.Format(L"Please enter an integer between %d and %d.", min, max);
  Tell(dx, text);
  dx->Fail();
}

void DDV_MinMaxUInt(CDataExchange* dx, UINT value, UINT min, UINT max) {
  if (!dx->m_bSaveAndValidate || (value >= min && value <= max)) return;
  CString text;
  text.Format(L"Please enter an integer between %u and %u.", min, max);
  Tell(dx, text);
  dx->Fail();
}

void DDV_MinMaxDouble(CDataExchange* dx, const double& value, double min, double max) {
  if (!dx->m_bSaveAndValidate || (value >= min && value <= max)) return;
  CString text;
  text.Format(L"Please enter a number between %s and %s.", vglobal::number::FormatReal(min, -1),
              vglobal::number::FormatReal(max, -1));
  Tell(dx, text);
  dx->Fail();
}
