// The controls demonstration dialog: its layout (in dialog units, as the suite's
// layouts are) and what it shows. Images come from the library's strips: the
// demonstration master toolbar for the toolbar, the command images for the lists.
#include "controls_demo.h"

#include <iterator>

namespace {

using namespace vglobal;  // kinds and style bits

enum : int {
  IDC_TOOLBAR = 100,
  IDC_NAME,
  IDC_REPLICATES,
  IDC_REPLICATES_SPIN,
  IDC_THRESHOLD,
  IDC_UNITS,
  IDC_COLUMN,
  IDC_AUTOMATIC,
  IDC_MANUAL,
  IDC_SMOOTH,
  IDC_NEGATIVE,
  IDC_COMMANDS,
  IDC_PREVIEW,
  IDC_HISTORY,
};

// Commands of the toolbar and the images of the demonstration strip they use.
enum : int {
  ID_NEW = 0xE100,
  ID_OPEN,
  ID_SAVE,
  ID_PRINT,
  ID_CUT,
  ID_COPY,
  ID_PASTE,
  ID_UNDO,
  ID_REDO,
  ID_RUN,
  ID_STOP,
  ID_CHART,
  ID_PROPERTIES,
  ID_HELP_TOPICS
};

constexpr ControlTemplate kControls[] = {
    {IDC_TOOLBAR, ControlKind::ToolBar, L"", 2, 2, 326, 16, 0},
    {IDC_STATIC, ControlKind::Frame, L"", 0, 19, 330, 1, kEtchedHorz},
    {IDC_STATIC, ControlKind::Static, L"&Method name:", 7, 27, 60, 8, 0},
    {IDC_NAME, ControlKind::Edit, L"Quantitation 07", 70, 25, 120, 12, kTabStop | kGroup},
    {IDC_STATIC, ControlKind::Static, L"&Replicates:", 7, 43, 60, 8, 0},
    {IDC_REPLICATES, ControlKind::NumericEdit, L"3", 70, 41, 40, 12, kTabStop},
    {IDC_REPLICATES_SPIN, ControlKind::SpinButton, L"", 0, 0, 10, 12,
     kAutoBuddy | kSetBuddyInt | kAlignRight},
    {IDC_STATIC, ControlKind::Static, L"&Threshold:", 7, 59, 60, 8, 0},
    {IDC_THRESHOLD, ControlKind::NumericEdit, L"2.5", 70, 57, 40, 12, kTabStop},
    {IDC_STATIC, ControlKind::Static, L"&Units:", 7, 75, 60, 8, 0},
    {IDC_UNITS, ControlKind::ComboBox, L"", 70, 73, 60, 60, kTabStop | kDropDownList},
    {IDC_STATIC, ControlKind::Static, L"&Column:", 7, 91, 60, 8, 0},
    {IDC_COLUMN, ControlKind::ComboBox, L"C18, 150 mm", 70, 89, 120, 60, kTabStop},
    {IDC_STATIC, ControlKind::GroupBox, L"Detection", 7, 108, 183, 42, 0},
    {IDC_AUTOMATIC, ControlKind::RadioButton, L"&Automatic", 14, 121, 70, 10, kTabStop | kGroup},
    {IDC_MANUAL, ControlKind::RadioButton, L"&Manual", 14, 135, 70, 10, 0},
    {IDC_SMOOTH, ControlKind::CheckBox, L"&Smooth the baseline", 90, 121, 96, 10,
     kTabStop | kGroup},
    {IDC_NEGATIVE, ControlKind::CheckBox, L"&Negative peaks", 90, 135, 96, 10,
     kTabStop | kTriState},
    {IDC_STATIC, ControlKind::Static, L"C&ommands:", 200, 27, 100, 8, 0},
    {IDC_COMMANDS, ControlKind::ListBox, L"", 200, 37, 123, 58, kTabStop | kGroup},
    {IDC_STATIC, ControlKind::Static, L"Font preview:", 200, 100, 100, 8, 0},
    {IDC_STATIC, ControlKind::Frame, L"", 200, 110, 123, 22, kEtchedFrame},
    {IDC_PREVIEW, ControlKind::OwnerDrawn, L"", 202, 112, 119, 18, 0},
    {IDC_STATIC, ControlKind::Static, L"Trace colours:", 200, 139, 60, 8, 0},
    {IDC_STATIC, ControlKind::Frame, L"", 262, 138, 14, 10, kBlackRect},
    {IDC_STATIC, ControlKind::Frame, L"", 280, 138, 14, 10, kGrayRect},
    {IDC_STATIC, ControlKind::Static, L"&History:", 7, 157, 100, 8, 0},
    {IDC_HISTORY, ControlKind::ListCtrl, L"", 7, 167, 316, 52, kTabStop | kGroup},
    {IDC_STATIC, ControlKind::Frame, L"", 0, 226, 330, 1, kEtchedHorz},
    {IDHELP, ControlKind::PushButton, L"&Help", 7, 233, 50, 14, kTabStop | kGroup},
    {IDOK, ControlKind::PushButton, L"OK", 219, 233, 50, 14, kDefault | kTabStop},
    {IDCANCEL, ControlKind::PushButton, L"Cancel", 273, 233, 50, 14, kTabStop},
};

constexpr DialogTemplate kTemplate{9001,      L"Every Control Kind", 330, 253, 8,
                                   kControls, std::size(kControls)};

constexpr TBBUTTON Button(int image, int command, BYTE state = TBSTATE_ENABLED,
                          BYTE style = TBSTYLE_BUTTON) {
  return {image, command, state, style, {0, 0}, 0, 0};
}
constexpr TBBUTTON kSeparator{0, 0, TBSTATE_ENABLED, TBSTYLE_SEP, {0, 0}, 0, 0};

}  // namespace

CControlsDemoDlg::CControlsDemoDlg() : CDialog(kTemplate) {}

BOOL CControlsDemoDlg::OnInitDialog() {
  CDialog::OnInitDialog();
  FillToolbar();
  FillLists();
  GetDlgItemAs<CSpinButtonCtrl>(IDC_REPLICATES_SPIN)->SetRange32(1, 10);
  GetDlgItemAs<NumericEdit>(IDC_THRESHOLD)->InitDouble(2.5, 0.0, 100.0, 1);
  auto* units = GetDlgItemAs<CComboBox>(IDC_UNITS);
  for (const wchar_t* unit : {L"ng/mL", L"ppm", L"ppb"}) units->AddString(unit);
  units->SetCurSel(1);
  CheckRadioButton(IDC_AUTOMATIC, IDC_MANUAL, IDC_AUTOMATIC);
  CheckDlgButton(IDC_SMOOTH, BST_CHECKED);
  CheckDlgButton(IDC_NEGATIVE, BST_INDETERMINATE);
  return TRUE;
}

void CControlsDemoDlg::FillToolbar() {
  auto* bar = GetDlgItemAs<CToolBarCtrl>(IDC_TOOLBAR);
  bar->AddBitmap(kDemoToolbarImageCount, kDemoToolbarImagesSmall);
  const TBBUTTON buttons[] = {Button(0, ID_NEW),
                              Button(1, ID_OPEN),
                              Button(2, ID_SAVE),
                              Button(3, ID_PRINT),
                              kSeparator,
                              Button(4, ID_CUT),
                              Button(5, ID_COPY),
                              Button(6, ID_PASTE),
                              kSeparator,
                              Button(7, ID_UNDO),
                              Button(8, ID_REDO),
                              kSeparator,
                              Button(13, ID_RUN, TBSTATE_ENABLED | TBSTATE_CHECKED, TBSTYLE_CHECK),
                              Button(14, ID_STOP, 0),
                              kSeparator,
                              Button(15, ID_CHART),
                              Button(16, ID_PROPERTIES),
                              kSeparator,
                              Button(17, ID_HELP_TOPICS)};
  bar->AddButtons(static_cast<int>(std::size(buttons)), buttons);
}

void CControlsDemoDlg::FillLists() {
  commandImages_.Create(kCommandImagesSmall, 16, 0, 0);
  auto* commands = GetDlgItemAs<CListBox>(IDC_COMMANDS);
  commands->SetImageList(&commandImages_);
  const struct {
    const wchar_t* text;
    int image;
  } rows[] = {{L"Open", 1}, {L"Save", 2}, {L"Print", 4}, {L"Find", 12}, {L"Run", 19}};
  for (const auto& row : rows) commands->SetItemImage(commands->AddString(row.text), row.image);
  commands->SetCurSel(1);

  auto* history = GetDlgItemAs<CListCtrl>(IDC_HISTORY);
  history->SetImageList(&commandImages_, LVSIL_SMALL);
  history->SetExtendedStyle(LVS_EX_FULLROWSELECT);
  history->InsertColumn(0, L"Saved", LVCFMT_LEFT, 150);
  history->InsertColumn(1, L"By", LVCFMT_LEFT, 90);
  history->InsertColumn(2, L"Change", LVCFMT_LEFT, 220);
  const struct {
    const wchar_t* when;
    const wchar_t* who;
    const wchar_t* what;
    int image;
  } saves[] = {{L"2024-03-18 09:12", L"mhalden", L"Created from a template", 0},
               {L"2024-03-18 11:40", L"mhalden", L"Peak detection threshold", 2},
               {L"2024-03-19 08:05", L"tsolberg", L"Calibration levels", 22}};
  for (int i = 0; i < static_cast<int>(std::size(saves)); ++i) {
    history->InsertItem(i, saves[i].when, saves[i].image);
    history->SetItemText(i, 1, saves[i].who);
    history->SetItemText(i, 2, saves[i].what);
  }
}

// The preview shows sample text in the dialog's font, centred in the control.
void CControlsDemoDlg::OnDrawItem(int id, LPDRAWITEMSTRUCT drawItem) {
  if (id != IDC_PREVIEW) return CDialog::OnDrawItem(id, drawItem);
  // A sample of the chosen font on a white card, as a font preview shows it.
  CDC& dc = *drawItem->pDC;
  CRect area(drawItem->rcItem);
  dc.FillSolidRect(&area, RGB(0xFF, 0xFF, 0xFF));
  CFont sample;
  sample.CreatePointFont(120, L"Serif");
  CFont* font = dc.SelectObject(&sample);
  dc.SetBkMode(TRANSPARENT);
  dc.DrawText(L"AaBbYyZz 0123", -1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  dc.SelectObject(font);
}
