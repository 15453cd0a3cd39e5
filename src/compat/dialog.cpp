// CDialog: the dialog's own state, its window (controls made from the template),
// the message map, focus, and the control helpers addressed by id.
//
// Map of this file:
//   1. construction, template, modal run and end
//   2. the window: opening, closing, focus, notifications (DialogAccess)
//   3. controls by id
//   4. title, observer, default handlers
#include <algorithm>
#include <cstdio>
#include <limits>

#include "compat/controls_number.h"
#include "compat/dialog_state.h"
#include "vglobal/compat/resources.h"
#include "vglobal/platform.h"

namespace vglobal {
namespace {

DialogHelpHandler& HelpHandler() {
  static DialogHelpHandler handler = nullptr;
  return handler;
}

constexpr DWORD kHasDefId = 0x534B;  // high word of GetDefID: "a default id is set"

}  // namespace

std::pair<int, int> GroupOf(const DialogState& w, int index) {
  const int n = static_cast<int>(w.controls.size());
  int first = index;
  while (first > 0 && !w.controls[first]->HasStyle(kGroup)) --first;
  int last = index + 1;
  while (last < n && !w.controls[last]->HasStyle(kGroup)) ++last;
  return {first, last};
}

void SetDialogHelpHandler(DialogHelpHandler handler) {
  HelpHandler() = handler;
}

DialogObserver::~DialogObserver() = default;
void DialogObserver::ControlAdded(int /*index*/) {}
void DialogObserver::DialogChanged(unsigned /*aspects*/) {}

// ---- 2. the window ---------------------------------------------------------------

ControlState* DialogAccess::Find(const CDialog& d, int id) {
  for (const auto& c : d.impl_->controls)
    if (c->id == id) return c.get();
  return nullptr;
}

ControlState* DialogAccess::At(const CDialog& d, int index) {
  const auto& controls = d.impl_->controls;
  if (index < 0 || static_cast<std::size_t>(index) >= controls.size()) return nullptr;
  return controls[index].get();
}

void DialogAccess::Changed(const ControlState& c, unsigned aspects) {
  DialogState& w = *c.dialog->impl_;
  if (w.observer && !w.closing) w.observer->ControlChanged(c.index, aspects);
}

void DialogAccess::DialogChanged(CDialog& d, unsigned aspects) {
  DialogState& w = *d.impl_;
  if (w.open && w.observer && !w.closing) w.observer->DialogChanged(aspects);
}

bool DialogAccess::Send(CDialog& d, int id, UINT code, NMHDR* hdr, LRESULT* result) {
  DialogState& w = *d.impl_;
  for (std::size_t i = 0; i < w.routes.size(); ++i) {
    const DialogState::Route& r = w.routes[i];
    if (id < r.first || id > r.last || code != r.code) continue;
    const DialogHandler& handler = *r.handler;
    LRESULT answer = 0;
    NMHDR plain{nullptr, static_cast<UINT_PTR>(id), code};
    handler(static_cast<UINT>(id), hdr ? hdr : &plain, &answer);
    if (result) *result = answer;
    return true;
  }
  if (code != BN_CLICKED) return false;
  switch (id) {
    case IDOK:
      d.OnOK();
      return true;
    case IDCANCEL:
      d.OnCancel();
      return true;
    case IDHELP:
      d.OnHelp();
      return true;
    default:
      return false;
  }
}

void DialogAccess::Notify(const ControlState& c, UINT code) {
  CDialog& d = *c.dialog;
  if (!d.impl_->open || d.impl_->closing) return;
  NMHDR hdr{c.own->GetSafeHwnd(), static_cast<UINT_PTR>(c.id), code};
  Send(d, c.id, code, &hdr);
}

LRESULT DialogAccess::NotifyRecord(const ControlState& c, UINT code, NMHDR& hdr) {
  CDialog& d = *c.dialog;
  if (!d.impl_->open || d.impl_->closing) return 0;
  hdr = NMHDR{c.own->GetSafeHwnd(), static_cast<UINT_PTR>(c.id), code};
  LRESULT result = 0;
  Send(d, c.id, code, &hdr, &result);
  return result;
}

void DialogAccess::SetFocus(CDialog& d, int index) {
  DialogState& w = *d.impl_;
  if (!w.open || w.closing || index == w.focus) return;
  if (index >= 0 && !(At(d, index) && At(d, index)->CanFocus())) return;
  const int old = w.focus;
  w.focus = index;
  UINT set = 0, kill = 0;
  if (ControlState* c = At(d, old)) {
    if (c->FocusCodes(set, kill)) Notify(*c, kill);
    if (!w.open || w.focus != index) return;  // a handler moved the focus elsewhere
  }
  if (w.observer) w.observer->FocusChanged(index);
  if (ControlState* c = At(d, index))
    if (c->FocusCodes(set, kill)) Notify(*c, set);
}

void DialogAccess::LostAvailability(const ControlState& c) {
  if (c.dialog->impl_->focus == c.index) SetFocus(*c.dialog, -1);
}

void DialogAccess::Destroy(CDialog& d) {
  DialogState& w = *d.impl_;
  if (!w.open) return;
  d.OnDestroy();
  w.closing = true;
  if (w.observer) w.observer->Closing();
  for (auto& c : w.controls) {
    if (c->member) {
      ControlState::Attach(*c->member, nullptr);
      c->member->SetPlatformWindow(nullptr);
    }
    ControlState::Attach(*c->own, nullptr);
  }
  w.controls.clear();
  w.handles.clear();
  w.templates.clear();
  w.createdTexts.clear();
  w.open = false;
  w.modeless = false;
  w.closing = false;
  w.focus = -1;
  w.openTemplate = nullptr;
  w.observer = nullptr;
}

}  // namespace vglobal

using vglobal::ControlState;
using vglobal::DialogAccess;

// ---- 1. construction, template, modal run and end -----------------------------

CDialog::CDialog() : impl_(std::make_unique<vglobal::DialogState>()) {}

CDialog::CDialog(UINT templateId, CWnd* parent) : CDialog() {
  impl_->templateId = templateId;
  impl_->helpId = templateId;
  m_pParentWnd = parent;
  parent_ = parent;
}

CDialog::CDialog(const vglobal::DialogTemplate& dialogTemplate, CWnd* parent) : CDialog() {
  impl_->givenTemplate = &dialogTemplate;
  impl_->templateId = dialogTemplate.id;
  impl_->helpId = dialogTemplate.id;
  m_pParentWnd = parent;
  parent_ = parent;
}

// The derived class is gone by now: OnDestroy runs as the base's.
CDialog::~CDialog() {
  DialogAccess::Destroy(*this);
}

INT_PTR CDialog::DoModal() {
  if (impl_->open) return -1;
  return vglobal::GetPlatform().RunModal(*this);
}

void CDialog::EndDialog(int result) {
  impl_->endCode = result;
  if (impl_->modeless) {
    ShowWindow(SW_HIDE);
    return;
  }
  impl_->ended = true;
  if (impl_->open && impl_->observer) impl_->observer->Ended(result);
}

const vglobal::DialogTemplate* CDialog::GetTemplate() const {
  if (impl_->openTemplate) return impl_->openTemplate;
  if (impl_->givenTemplate) return impl_->givenTemplate;
  return impl_->templateId ? vglobal::FindDialogTemplate(impl_->templateId) : nullptr;
}

UINT CDialog::GetTemplateID() const {
  return impl_->templateId;
}
void CDialog::SetHelpID(UINT helpId) {
  impl_->helpId = helpId;
}
UINT CDialog::GetHelpID() const {
  return impl_->helpId;
}
BOOL CDialog::IsOpen() const {
  return impl_->open;
}
BOOL CDialog::IsEnded() const {
  return impl_->ended;
}
INT_PTR CDialog::GetEndCode() const {
  return impl_->endCode;
}

void CDialog::AddRoute(int first, int last, UINT code, vglobal::DialogHandler handler) {
  impl_->routes.push_back(
      {first, last, code, std::make_unique<const vglobal::DialogHandler>(std::move(handler))});
}

// ---- 3. controls by id -------------------------------------------------------------

CWnd* CDialog::GetDlgItem(int id) const {
  ControlState* c = DialogAccess::Find(*this, id);
  if (!c) return nullptr;
  return c->member ? static_cast<CWnd*>(c->member) : c->own;
}

void CDialog::SetDlgItemText(int id, const wchar_t* text) {
  if (CWnd* c = GetDlgItem(id)) c->SetWindowText(text);
}

int CDialog::GetDlgItemText(int id, CString& text) const {
  text.Empty();
  if (CWnd* c = GetDlgItem(id)) c->GetWindowText(text);
  return text.GetLength();
}

void CDialog::SetDlgItemInt(int id, UINT value, BOOL isSigned) {
  CString text;
  if (isSigned)
    text.Format(L"%d", static_cast<int>(value));
  else
    text.Format(L"%u", value);
  SetDlgItemText(id, text);
}

UINT CDialog::GetDlgItemInt(int id, BOOL* translated, BOOL isSigned) const {
  if (translated) *translated = FALSE;
  CWnd* c = GetDlgItem(id);
  if (!c) return 0;
  CString text;
  c->GetWindowText(text);
  std::optional<long long> v = vglobal::number::ParseInteger(text.view());
  if (!v) return 0;
  const bool fits =
      isSigned ? (*v >= std::numeric_limits<int>::min() && *v <= std::numeric_limits<int>::max())
               : (*v >= 0 && *v <= std::numeric_limits<UINT>::max() && text.Find(L'-') < 0);
  if (!fits) return 0;
  if (translated) *translated = TRUE;
  return static_cast<UINT>(*v);
}

void CDialog::CheckDlgButton(int id, UINT check) {
  if (auto* b = GetDlgItemAs<CButton>(id)) b->SetCheck(static_cast<int>(check));
}

UINT CDialog::IsDlgButtonChecked(int id) const {
  auto* b = GetDlgItemAs<CButton>(id);
  return b ? static_cast<UINT>(b->GetCheck()) : 0;
}

void CDialog::CheckRadioButton(int first, int last, int check) {
  for (const auto& c : impl_->controls)
    if (c->id >= first && c->id <= last)
      if (auto* b = dynamic_cast<CButton*>(c->own)) b->SetCheck(c->id == check);
}

int CDialog::GetCheckedRadioButton(int first, int last) const {
  int found = 0;
  for (const auto& c : impl_->controls) {
    auto* button = dynamic_cast<CButton*>(c->own);
    if (c->id >= first && c->id <= last && button && button->GetCheck() == BST_CHECKED &&
        (found == 0 || c->id < found))
      found = c->id;
  }
  return found;
}

BOOL CDialog::EnableDlgItem(int id, BOOL enable) {
  CWnd* c = GetDlgItem(id);
  return c ? c->EnableWindow(enable) : FALSE;
}

BOOL CDialog::ShowDlgItem(int id, int cmdShow) {
  CWnd* c = GetDlgItem(id);
  return c ? c->ShowWindow(cmdShow) : FALSE;
}

CWnd* CDialog::GetFocus() const {
  ControlState* c = DialogAccess::At(*this, impl_->focus);
  if (!c) return nullptr;
  return c->member ? static_cast<CWnd*>(c->member) : c->own;
}

void CDialog::GotoDlgCtrl(CWnd* control) {
  auto* dc = dynamic_cast<vglobal::DialogControl*>(control);
  ControlState* c = dc ? ControlState::Of(*dc) : nullptr;
  if (!c || c->dialog != this) return;
  const int index = c->index;
  DialogAccess::SetFocus(*this, index);
  if (impl_->focus == index) DialogAccess::At(*this, index)->FocusedByDialog();
}

void CDialog::SetDefID(UINT id) {
  const int before = static_cast<int>(GetDefID() & 0xFFFF);
  impl_->defId = id;
  for (int changed : {before, static_cast<int>(id)})
    if (ControlState* c = DialogAccess::Find(*this, changed))
      DialogAccess::Changed(*c, vglobal::kAspectState);
}

DWORD CDialog::GetDefID() const {
  UINT id = impl_->defId;
  if (id == 0) {
    id = IDOK;
    if (const vglobal::DialogTemplate* t = GetTemplate())
      for (std::size_t i = 0; i < t->controlCount; ++i) {
        const vglobal::ControlClass* cls = vglobal::FindControlClass(t->controls[i].kind);
        if (cls && (t->controls[i].style & cls->styles & vglobal::kDefault)) {
          id = static_cast<UINT>(t->controls[i].id);
          break;
        }
      }
  }
  return (vglobal::kHasDefId << 16) | (id & 0xFFFF);
}

// ---- 4. title, observer, default handlers --------------------------------------

void CDialog::SetWindowText(const wchar_t* text) {
  impl_->title = text;
  impl_->titleSet = true;
  if (impl_->open && impl_->observer) impl_->observer->TitleChanged();
}

void CDialog::GetWindowText(CString& text) const {
  if (impl_->titleSet || impl_->open) {
    text = impl_->title;
  } else {
    const vglobal::DialogTemplate* t = GetTemplate();
    text = t ? t->title : L"";
  }
}

int CDialog::GetControlCount() const {
  return static_cast<int>(impl_->controls.size());
}

CWnd* CDialog::GetControlAt(int index) const {
  ControlState* c = DialogAccess::At(*this, index);
  return c ? c->own : nullptr;
}

const vglobal::ControlTemplate* CDialog::GetControlTemplateAt(int index) const {
  const auto& templates = impl_->templates;
  if (index < 0 || static_cast<std::size_t>(index) >= templates.size()) return nullptr;
  return &templates[index];
}

void CDialog::SetObserver(vglobal::DialogObserver* observer) {
  impl_->observer = observer;
}

BOOL CDialog::OnInitDialog() {
  UpdateData(FALSE);
  return TRUE;
}

void CDialog::OnOK() {
  if (!UpdateData(TRUE)) return;
  EndDialog(IDOK);
  if (impl_->modeless) DestroyWindow();
}

void CDialog::OnCancel() {
  EndDialog(IDCANCEL);
  if (impl_->modeless) DestroyWindow();
}

void CDialog::OnHelp() {
  if (vglobal::DialogHelpHandler handler = vglobal::HelpHandler(); handler && impl_->helpId)
    handler(*this, impl_->helpId);
}

void CDialog::OnClose() {
  if (impl_->modeless) {
    DestroyWindow();
    return;
  }
  if (CWnd* cancel = GetDlgItem(IDCANCEL); cancel && !cancel->IsWindowEnabled()) return;
  DialogAccess::Send(*this, IDCANCEL, BN_CLICKED);
}

void CDialog::OnDestroy() {}

LRESULT CDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_COMMAND && impl_->open && !impl_->closing &&
      DialogAccess::Send(*this, LOWORD(wParam), HIWORD(wParam)))
    return 0;
  return CWnd::WindowProc(message, wParam, lParam);
}

void CDialog::OnDrawItem(int id, LPDRAWITEMSTRUCT drawItem) {
  if (auto* control = GetDlgItemAs<CStatic>(id)) control->DrawItem(drawItem);
}

void CDialog::DoDataExchange(CDataExchange* /*dx*/) {}
