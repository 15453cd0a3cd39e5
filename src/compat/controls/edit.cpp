// Edits: the Edit kind's state and the CEdit handle, which also stands for
// numeric edits (numeric_edit.cpp).
#include <algorithm>
#include <cwctype>

#include "compat/controls/edit_state.h"

namespace vglobal {

void EditState::Init(const wchar_t* templateText) {
  ControlState::Init(templateText);
  if (static_cast<int>(text.size()) > limit) text.resize(static_cast<std::size_t>(limit));
  readOnly = HasStyle(kReadOnly);
}

bool EditState::FocusCodes(UINT& set, UINT& kill) const {
  set = EN_SETFOCUS;
  kill = EN_KILLFOCUS;
  return true;
}

void EditState::FocusedByDialog() {
  selStart = 0;
  selEnd = static_cast<int>(text.size());
  DialogAccess::Changed(*this, kAspectSelection);
}

bool EditState::Type(UserAction& act, std::wstring typed) {
  auto* c = StateAs<EditState>(act.TakeFocus());
  if (!c || c->readOnly) return false;
  if (c->HasStyle(kNumber))
    std::erase_if(typed, [](wchar_t ch) { return !std::iswdigit(static_cast<wint_t>(ch)); });
  if (!c->Accepts(typed)) return false;
  const bool cut = typed.size() > static_cast<std::size_t>(c->limit);
  if (cut) typed.resize(static_cast<std::size_t>(c->limit));
  const bool changed = typed != c->text;
  if (changed) {
    c->text = typed;
    c->modified = true;
    c->selStart = c->selEnd = static_cast<int>(typed.size());
    DialogAccess::Changed(*c, kAspectText);
  }
  if (cut) act.Send(EN_MAXTEXT);
  if (changed) {
    act.Send(EN_UPDATE);
    act.Send(EN_CHANGE);
  }
  return true;
}

namespace controls {
std::unique_ptr<ControlState> MakeEdit() {
  return std::make_unique<EditState>();
}
}  // namespace controls

}  // namespace vglobal

using vglobal::ControlKind;
using vglobal::EditState;
using vglobal::StateAs;

bool CEdit::Handles(ControlKind kind) const {
  return kind == ControlKind::Edit || kind == ControlKind::NumericEdit;
}

BOOL CEdit::Create(UINT style, const RECT& rect, CWnd* parent, UINT id) {
  return CreateControl(ControlKind::Edit, L"", style, rect, parent, id);
}

void CEdit::SetWindowText(const wchar_t* text) {
  EditState* c = StateAs<EditState>(state());
  if (!c) return;
  std::wstring t = text ? text : L"";
  if (t.size() > static_cast<std::size_t>(c->limit)) t.resize(static_cast<std::size_t>(c->limit));
  c->text = std::move(t);
  c->selStart = c->selEnd = 0;
  c->modified = false;
  Changed(vglobal::kAspectText | vglobal::kAspectSelection);
  if (!c->HasStyle(vglobal::kMultiline)) {
    Notify(EN_UPDATE);
    Notify(EN_CHANGE);
  }
}

void CEdit::LimitText(int maxChars) {
  EditState* c = StateAs<EditState>(state());
  if (!c) return;
  c->limit = maxChars <= 0 ? EditState::kLargestLimit : maxChars;
  Changed(vglobal::kAspectLimits);
}

UINT CEdit::GetLimitText() const {
  EditState* c = StateAs<EditState>(state());
  return c ? static_cast<UINT>(c->limit) : 0;
}

void CEdit::SetSel(int start, int end, BOOL /*noScroll*/) {
  EditState* c = StateAs<EditState>(state());
  if (!c) return;
  const int length = static_cast<int>(c->text.size());
  if (start < 0) {  // -1 removes the selection, leaving the caret where it was
    c->selStart = c->selEnd;
  } else {
    if (end < 0 || end > length) end = length;
    start = std::min(start, length);
    c->selStart = std::min(start, end);
    c->selEnd = std::max(start, end);
  }
  Changed(vglobal::kAspectSelection);
}

void CEdit::GetSel(int& start, int& end) const {
  EditState* c = StateAs<EditState>(state());
  start = c ? c->selStart : 0;
  end = c ? c->selEnd : 0;
}

void CEdit::ReplaceSel(const wchar_t* text, BOOL /*canUndo*/) {
  EditState* c = StateAs<EditState>(state());
  if (!c) return;
  std::wstring insert = text ? text : L"";
  const std::size_t length = c->text.size();
  const std::size_t start = std::min<std::size_t>(c->selStart, length);
  const std::size_t end = std::clamp<std::size_t>(c->selEnd, start, length);
  const std::size_t kept = length - (end - start);
  const std::size_t room = c->limit > static_cast<int>(kept) ? c->limit - kept : 0;
  if (insert.size() > room) insert.resize(room);
  c->text.replace(start, end - start, insert);
  c->modified = true;  // an edit of the text, unlike SetWindowText's replacing it
  c->selStart = c->selEnd = static_cast<int>(start + insert.size());
  Changed(vglobal::kAspectText | vglobal::kAspectSelection);
  Notify(EN_UPDATE);
  Notify(EN_CHANGE);
}

BOOL CEdit::SetReadOnly(BOOL readOnly) {
  EditState* c = StateAs<EditState>(state());
  if (!c) return FALSE;
  c->readOnly = readOnly != FALSE;
  Changed(vglobal::kAspectLimits);
  return TRUE;
}

BOOL CEdit::IsReadOnly() const {
  EditState* c = StateAs<EditState>(state());
  return c && c->readOnly;
}
BOOL CEdit::GetModify() const {
  EditState* c = StateAs<EditState>(state());
  return c && c->modified;
}

void CEdit::SetModify(BOOL modified) {
  if (EditState* c = StateAs<EditState>(state())) c->modified = modified != FALSE;
}

BOOL CEdit::IsMultiline() const {
  return state() && state()->HasStyle(vglobal::kMultiline);
}

LRESULT CEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == EM_GETMODIFY) return GetModify();
  if (message == EM_SETMODIFY) {
    SetModify(wParam != 0);
    return 0;
  }
  return DialogControl::WindowProc(message, wParam, lParam);
}
