// Combo boxes: an edit field with a drop-down list, or (kDropDownList) the list
// only; the ComboBox kind's state and the CComboBox handle.
#include "compat/controls/list_rows.h"

namespace vglobal {
namespace {

struct ComboState : RowsState {
  static constexpr int kLargestLimit = 0x7FFFFFFE;
  int limit = CEdit::kDefaultLimit;

  std::unique_ptr<DialogControl> MakeHandle() const override {
    return std::make_unique<CComboBox>();
  }
  // A drop-down list's text is its selected row's: the template's is not used.
  void Init(const wchar_t* templateText) override {
    if (!HasStyle(kDropDownList)) ControlState::Init(templateText);
  }
  bool FocusCodes(UINT& set, UINT& kill) const override {
    set = CBN_SETFOCUS;
    kill = CBN_KILLFOCUS;
    return true;
  }
  // Typing into the edit field selects the row with that text, if any.
  bool Type(UserAction& act, std::wstring typed) override {
    if (HasStyle(kDropDownList)) return false;
    auto* c = StateAs<ComboState>(act.TakeFocus());
    if (!c) return false;
    if (typed.size() > static_cast<std::size_t>(c->limit))
      typed.resize(static_cast<std::size_t>(c->limit));
    if (typed == c->text) return true;
    c->text = typed;
    c->curSel = typed.empty() ? -1 : rows::Find(*c, -1, typed.c_str(), true);
    DialogAccess::Changed(*c, kAspectText | kAspectSelection);
    act.Send(CBN_EDITUPDATE);
    act.Send(CBN_EDITCHANGE);
    return true;
  }
  bool Select(UserAction& act, int row) override {
    if (!InRange(row)) return false;
    auto* c = StateAs<ComboState>(act.TakeFocus());
    if (!c) return false;
    if (c->curSel != row) {
      c->curSel = row;
      c->text = c->items[row].text;
      DialogAccess::Changed(*c, kAspectSelection | kAspectText);
      act.Send(CBN_SELCHANGE);
      act.Send(CBN_SELENDOK);
    }
    return true;
  }
};

}  // namespace

namespace controls {
std::unique_ptr<ControlState> MakeComboBox() {
  return std::make_unique<ComboState>();
}
}  // namespace controls

}  // namespace vglobal

using vglobal::ComboState;
using vglobal::ControlKind;
using vglobal::StateAs;
namespace rows = vglobal::rows;

bool CComboBox::Handles(ControlKind kind) const {
  return kind == ControlKind::ComboBox;
}

BOOL CComboBox::Create(UINT style, const RECT& rect, CWnd* parent, UINT id) {
  return CreateControl(ControlKind::ComboBox, L"", style, rect, parent, id);
}

BOOL CComboBox::IsDropDownList() const {
  ComboState* c = StateAs<ComboState>(state());
  return c && c->HasStyle(vglobal::kDropDownList);
}

void CComboBox::SetWindowText(const wchar_t* text) {
  ComboState* c = StateAs<ComboState>(state());
  if (!c) return;
  if (IsDropDownList()) {
    int found = rows::Find(*c, -1, text, true);
    if (found >= 0) SetCurSel(found);
    return;
  }
  std::wstring t = text ? text : L"";
  if (t.size() > static_cast<std::size_t>(c->limit)) t.resize(static_cast<std::size_t>(c->limit));
  c->text = std::move(t);
  Changed(vglobal::kAspectText);
}

int CComboBox::GetCount() const {
  ComboState* c = StateAs<ComboState>(state());
  return c ? static_cast<int>(c->items.size()) : CB_ERR;
}

int CComboBox::AddString(const wchar_t* text) {
  ComboState* c = StateAs<ComboState>(state());
  if (!c) return CB_ERR;
  int index = rows::Insert(*c, -1, text, c->HasStyle(vglobal::kSort));
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return index;
}

int CComboBox::InsertString(int index, const wchar_t* text) {
  ComboState* c = StateAs<ComboState>(state());
  if (!c) return CB_ERR;
  index = rows::Insert(*c, index, text, false);
  if (index >= 0) Changed(vglobal::kAspectItems | vglobal::kAspectSelection);
  return index < 0 ? CB_ERR : index;
}

int CComboBox::DeleteString(UINT index) {
  ComboState* c = StateAs<ComboState>(state());
  if (!c) return CB_ERR;
  const bool wasSelected = c->curSel == static_cast<int>(index);
  int left = rows::Delete(*c, index);
  if (left < 0) return CB_ERR;
  if (wasSelected && IsDropDownList()) c->text.clear();
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection | vglobal::kAspectText);
  return left;
}

void CComboBox::ResetContent() {
  ComboState* c = StateAs<ComboState>(state());
  if (!c) return;
  c->items.clear();
  c->curSel = -1;
  c->text.clear();
  Changed(vglobal::kAspectItems | vglobal::kAspectSelection | vglobal::kAspectText);
}

int CComboBox::GetLBText(int index, CString& text) const {
  return rows::Text(StateAs<ComboState>(state()), index, text);
}
int CComboBox::GetLBTextLen(int index) const {
  return rows::TextLength(StateAs<ComboState>(state()), index);
}

int CComboBox::FindString(int startAfter, const wchar_t* text) const {
  ComboState* c = StateAs<ComboState>(state());
  return c ? rows::Find(*c, startAfter, text, false) : CB_ERR;
}

int CComboBox::FindStringExact(int startAfter, const wchar_t* text) const {
  ComboState* c = StateAs<ComboState>(state());
  return c ? rows::Find(*c, startAfter, text, true) : CB_ERR;
}

int CComboBox::SelectString(int startAfter, const wchar_t* text) {
  ComboState* c = StateAs<ComboState>(state());
  if (!c) return CB_ERR;
  int found = rows::Find(*c, startAfter, text, false);
  return found < 0 ? CB_ERR : SetCurSel(found);
}

int CComboBox::GetCurSel() const {
  ComboState* c = StateAs<ComboState>(state());
  return c ? c->curSel : CB_ERR;
}

int CComboBox::SetCurSel(int index) {
  ComboState* c = StateAs<ComboState>(state());
  if (!c) return CB_ERR;
  const int selection = c->InRange(index) ? index : -1;
  c->curSel = selection;
  c->text = selection >= 0 ? c->items[selection].text : L"";
  Changed(vglobal::kAspectSelection | vglobal::kAspectText);
  return selection < 0 ? CB_ERR : selection;
}

DWORD_PTR CComboBox::GetItemData(int index) const {
  return rows::Data(StateAs<ComboState>(state()), index);
}
int CComboBox::SetItemData(int index, DWORD_PTR data) {
  return rows::SetData(StateAs<ComboState>(state()), index, data);
}

void* CComboBox::GetItemDataPtr(int index) const {
  ComboState* c = StateAs<ComboState>(state());
  return c && c->InRange(index) ? reinterpret_cast<void*>(c->items[index].data) : nullptr;
}

int CComboBox::SetItemDataPtr(int index, void* data) {
  return SetItemData(index, reinterpret_cast<DWORD_PTR>(data));
}

BOOL CComboBox::LimitText(int maxChars) {
  ComboState* c = StateAs<ComboState>(state());
  if (!c || IsDropDownList()) return FALSE;
  c->limit = maxChars <= 0 ? ComboState::kLargestLimit : maxChars;
  Changed(vglobal::kAspectLimits);
  return TRUE;
}
