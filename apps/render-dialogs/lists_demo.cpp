#include "lists_demo.h"

#include <iterator>

namespace {

using namespace vglobal;  // kinds and style bits

enum : int { IDC_CHANGES = 9201, IDC_SAMPLES };

constexpr ControlTemplate kControls[] = {
    {IDC_STATIC, ControlKind::Static, L"Changes:", 7, 7, 100, 8, 0},
    {IDC_CHANGES, ControlKind::ListBox, L"", 7, 17, 300, 60, kTabStop | kUseTabStops},
    {IDC_STATIC, ControlKind::Static, L"Samples:", 7, 84, 100, 8, 0},
    {IDC_SAMPLES, ControlKind::ListCtrl, L"", 7, 94, 300, 80, kTabStop},
    {IDOK, ControlKind::PushButton, L"OK", 257, 181, 50, 14, kDefault | kTabStop},
};
constexpr DialogTemplate kTemplate{9002, L"Lists", 314, 202, 8, kControls, std::size(kControls)};

}  // namespace

CListsDemoDlg::CListsDemoDlg() : CDialog(kTemplate) {}

BOOL CListsDemoDlg::OnInitDialog() {
  CDialog::OnInitDialog();
  auto* changes = GetDlgItemAs<CListBox>(IDC_CHANGES);
  const int stops[] = {76, 170};  // the audit viewer's columns
  changes->SetTabStops(2, stops);
  const wchar_t* kChanges[] = {
      L"18.03.2024 09:12\tjmiller\tMethod quan_pesticides created",
      L"18.03.2024 09:40\tjmiller\tCalibration levels 1-6 entered",
      L"18.03.2024 11:05\tkwalsh\tPeak detection: S/N threshold 3 -> 5",
      L"19.03.2024 08:30\tkwalsh\tSequence seq_0319 attached",
      L"19.03.2024 14:22\tjmiller\tReport template changed",
      L"20.03.2024 10:01\tadmin\tMethod signed (reviewed)",
  };
  for (const wchar_t* change : kChanges) changes->AddString(change);
  changes->SetCurSel(2);

  auto* samples = GetDlgItemAs<CListCtrl>(IDC_SAMPLES);
  samples->SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
  samples->InsertColumn(0, L"Sample");
  samples->InsertColumn(1, L"Vial", LVCFMT_RIGHT);
  samples->InsertColumn(2, L"Type");
  samples->InsertColumn(3, L"Comment");
  for (int i = 0; i < 16; ++i) {
    const std::wstring name = (i % 5 == 0 ? L"Blank_" : L"Calibration level ") + std::to_wstring(i);
    const int row = samples->InsertItem(i, name.c_str());
    samples->SetItemText(row, 1, std::to_wstring(i + 1).c_str());
    samples->SetItemText(row, 2, i % 5 == 0 ? L"Blank" : L"Std Bracket");
  }
  for (int c = 0; c < 3; ++c) samples->SetColumnWidth(c, LVSCW_AUTOSIZE_USEHEADER);
  samples->SetColumnWidth(3, LVSCW_AUTOSIZE_USEHEADER);
  samples->EnsureVisible(12, FALSE);
  samples->SetItemState(9, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  return TRUE;
}
