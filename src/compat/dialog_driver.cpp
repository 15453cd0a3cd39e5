// DialogDriver: the user's actions on an open dialog, each as the windowing system
// carries it out: focus first, then the control's state, then the notification.
//
// Handlers run in the middle of an action and may change anything, close the
// dialog included, so each step looks the control up again by id.
#include <algorithm>
#include <cwctype>

#include "compat/dialog_state.h"

namespace vglobal {
namespace {

// The control `id` if the user can act on it now, else null.
ControlState* Usable(CDialog& d, int id) {
  const DialogState& w = DialogAccess::Of(d);
  if (!w.open || w.ended || w.closing) return nullptr;
  ControlState* c = DialogAccess::Find(d, id);
  return c && c->enabled && c->visible ? c : nullptr;
}

// Moves the focus to the control as a click or keystroke does. Answers the control
// again, or null when the focus handlers made it unusable.
ControlState* TakeFocus(CDialog& d, ControlState* c) {
  const int id = c->id;
  if (c->CanFocus()) DialogAccess::SetFocus(d, c->index);
  return Usable(d, id);
}

void Send(CDialog& d, int id, UINT code) {
  if (ControlState* c = Usable(d, id)) DialogAccess::Notify(*c, code);
}

// Clicks the button `id` by key: false when that button exists but is unavailable.
bool PressButton(CDialog& d, int id) {
  const DialogState& w = DialogAccess::Of(d);
  if (!w.open || w.ended) return false;
  if (ControlState* b = DialogAccess::Find(d, id); b && (!b->enabled || !b->visible)) return false;
  DialogAccess::Send(d, id, BN_CLICKED);
  return true;
}

bool IsList(const ControlState& c) {
  return c.Is(ControlKind::ListBox) || c.Is(ControlKind::ComboBox) || c.Is(ControlKind::ListCtrl);
}

// List control rows: makes exactly `rows` selected (each changed row sends
// LVN_ITEMCHANGED through CListCtrl::SetItemState) and focuses `focusRow`.
void SelectListCtrlRows(CDialog& d, int id, const std::vector<int>& rows, int focusRow) {
  auto* list = d.GetDlgItemAs<CListCtrl>(id);
  if (!list) return;
  for (int i = 0; i < list->GetItemCount(); ++i)
    if (std::find(rows.begin(), rows.end(), i) == rows.end() &&
        list->GetItemState(i, LVIS_SELECTED))
      list->SetItemState(i, 0, LVIS_SELECTED);
  for (int row : rows) {
    if (!Usable(d, id)) return;
    UINT state = LVIS_SELECTED | (row == focusRow ? LVIS_FOCUSED : 0);
    list->SetItemState(row, state, state);
  }
}

}  // namespace

bool DialogDriver::Open() {
  DialogState& w = DialogAccess::Of(dialog_);
  if (w.open || !dialog_.GetTemplate()) return false;
  DialogAccess::Open(dialog_);
  const bool defaultFocus = DialogAccess::OnInitDialog(dialog_);
  if (!defaultFocus || !w.open || w.ended || w.focus >= 0) return true;
  // The first control reached with Tab, else the first that can take the focus.
  ControlState* first = nullptr;
  for (const auto& c : w.controls)
    if (c->CanFocus() && (c->HasStyle(kTabStop) || !first)) {
      first = c.get();
      if (c->HasStyle(kTabStop)) break;
    }
  if (first) dialog_.GotoDlgCtrl(first->own);
  return true;
}

void DialogDriver::Destroy() {
  DialogAccess::Destroy(dialog_);
}

bool DialogDriver::Type(int id, const wchar_t* text) {
  ControlState* c = Usable(dialog_, id);
  const bool combo = c && c->Is(ControlKind::ComboBox) && !c->HasStyle(kDropDownList);
  if (!c || !(c->IsEdit() || combo)) return false;
  if (!(c = TakeFocus(dialog_, c)) || c->readOnly) return false;

  std::wstring typed = text ? text : L"";
  if (c->Is(ControlKind::Edit) && c->HasStyle(kNumber))
    std::erase_if(typed, [](wchar_t ch) { return !std::iswdigit(static_cast<wint_t>(ch)); });
  if (auto* numeric = dynamic_cast<NumericEdit*>(c->own);
      numeric && !numeric->AcceptsInput(typed.c_str()))
    return false;
  const bool cut = typed.size() > static_cast<std::size_t>(c->limit);
  if (cut) typed.resize(static_cast<std::size_t>(c->limit));
  const bool changed = typed != c->text;

  if (changed) {
    c->text = typed;
    c->modified = true;
    c->selStart = c->selEnd = static_cast<int>(typed.size());
    unsigned aspects = kAspectText;
    if (combo) {
      auto* box = static_cast<CComboBox*>(c->own);
      c->curSel = typed.empty() ? -1 : box->FindStringExact(-1, typed.c_str());
      aspects |= kAspectSelection;
    }
    DialogAccess::Changed(*c, aspects);
  }
  if (cut && !combo) Send(dialog_, id, EN_MAXTEXT);
  if (changed) {
    Send(dialog_, id, combo ? CBN_EDITUPDATE : EN_UPDATE);
    Send(dialog_, id, combo ? CBN_EDITCHANGE : EN_CHANGE);
  }
  return true;
}

bool DialogDriver::Click(int id) {
  ControlState* c = Usable(dialog_, id);
  if (!c || !c->IsButton()) return false;
  if (!(c = TakeFocus(dialog_, c))) return false;
  if (c->Is(ControlKind::CheckBox)) {
    c->check = c->HasStyle(kTriState) ? (c->check + 1) % 3
                                      : (c->check == BST_CHECKED ? BST_UNCHECKED : BST_CHECKED);
    DialogAccess::Changed(*c, kAspectCheck);
  } else if (c->Is(ControlKind::RadioButton)) {
    const DialogState& w = DialogAccess::Of(dialog_);
    auto [first, last] = GroupOf(w, c->index);
    for (int i = first; i < last; ++i) {
      ControlState& other = *w.controls[i];
      if (i != c->index && other.Is(ControlKind::RadioButton) && other.check != BST_UNCHECKED) {
        other.check = BST_UNCHECKED;
        DialogAccess::Changed(other, kAspectCheck);
      }
    }
    if (c->check != BST_CHECKED) {
      c->check = BST_CHECKED;
      DialogAccess::Changed(*c, kAspectCheck);
    }
  }
  Send(dialog_, id, BN_CLICKED);
  return true;
}

bool DialogDriver::Select(int id, int index) {
  ControlState* c = Usable(dialog_, id);
  if (!c || !IsList(*c) || !c->InRange(index)) return false;
  if (!(c = TakeFocus(dialog_, c))) return false;
  switch (c->kind) {
    case ControlKind::ListBox: {
      bool changed;
      if (c->HasStyle(kMultiSelect)) {
        changed = false;
        for (int i = 0; i < static_cast<int>(c->items.size()); ++i) {
          changed |= c->items[i].selected != (i == index);
          c->items[i].selected = i == index;
        }
        c->caret = index;
      } else {
        changed = c->curSel != index;
        c->curSel = index;
      }
      if (changed) {
        DialogAccess::Changed(*c, kAspectSelection);
        Send(dialog_, id, LBN_SELCHANGE);
      }
      return true;
    }
    case ControlKind::ComboBox:
      if (c->curSel != index) {
        c->curSel = index;
        c->text = c->items[index].text;
        DialogAccess::Changed(*c, kAspectSelection | kAspectText);
        Send(dialog_, id, CBN_SELCHANGE);
        Send(dialog_, id, CBN_SELENDOK);
      }
      return true;
    default:
      SelectListCtrlRows(dialog_, id, {index}, index);
      if ((c = Usable(dialog_, id))) DialogAccess::NotifyListView(*c, NM_CLICK, index, 0, 0, 0);
      return true;
  }
}

bool DialogDriver::SelectRows(int id, const std::vector<int>& rows) {
  ControlState* c = Usable(dialog_, id);
  if (!c || !(c->Is(ControlKind::ListBox) || c->Is(ControlKind::ListCtrl))) return false;
  if (!std::all_of(rows.begin(), rows.end(), [c](int r) { return c->InRange(r); })) return false;
  if (!c->HasStyle(kMultiSelect)) return rows.size() == 1 && Select(id, rows.front());
  if (!(c = TakeFocus(dialog_, c))) return false;
  if (c->Is(ControlKind::ListCtrl)) {
    SelectListCtrlRows(dialog_, id, rows, rows.empty() ? -1 : rows.back());
    return true;
  }
  bool changed = false;
  for (int i = 0; i < static_cast<int>(c->items.size()); ++i) {
    bool want = std::find(rows.begin(), rows.end(), i) != rows.end();
    changed |= c->items[i].selected != want;
    c->items[i].selected = want;
  }
  if (!rows.empty()) c->caret = rows.back();
  if (changed) {
    DialogAccess::Changed(*c, kAspectSelection);
    Send(dialog_, id, LBN_SELCHANGE);
  }
  return true;
}

bool DialogDriver::DoubleClick(int id, int index) {
  ControlState* c = Usable(dialog_, id);
  if (!c || !(c->Is(ControlKind::ListBox) || c->Is(ControlKind::ListCtrl))) return false;
  const bool listCtrl = c->Is(ControlKind::ListCtrl);
  if (!Select(id, index) || !(c = Usable(dialog_, id))) return false;
  if (listCtrl)
    DialogAccess::NotifyListView(*c, NM_DBLCLK, index, 0, 0, 0);
  else
    DialogAccess::Notify(*c, LBN_DBLCLK);
  return true;
}

bool DialogDriver::BeginDrag(int id, int index) {
  ControlState* c = Usable(dialog_, id);
  if (!c || !c->Is(ControlKind::ListCtrl) || !c->InRange(index)) return false;
  if (!(c = TakeFocus(dialog_, c))) return false;
  UINT state = c->items[index].selected ? LVIS_SELECTED : 0;
  DialogAccess::NotifyListView(*c, LVN_BEGINDRAG, index, 0, state, state);
  return true;
}

bool DialogDriver::ClickColumn(int id, int column) {
  ControlState* c = Usable(dialog_, id);
  if (!c || !c->Is(ControlKind::ListCtrl) || column < 0 ||
      static_cast<std::size_t>(column) >= c->columns.size())
    return false;
  if (!(c = TakeFocus(dialog_, c))) return false;
  DialogAccess::NotifyListView(*c, LVN_COLUMNCLICK, -1, column, 0, 0);
  return true;
}

bool DialogDriver::Focus(int id) {
  ControlState* c = Usable(dialog_, id);
  if (!c || !c->CanFocus()) return false;
  DialogAccess::SetFocus(dialog_, c->index);
  return DialogAccess::Of(dialog_).focus == c->index;
}

bool DialogDriver::PressEnter() {
  const DialogState& w = DialogAccess::Of(dialog_);
  if (!w.open || w.ended) return false;
  const ControlState* f = DialogAccess::At(dialog_, w.focus);
  if (f && f->IsEdit() && f->HasStyle(kMultiline) && f->HasStyle(kWantReturn)) return false;
  const int target =
      f && f->Is(ControlKind::PushButton) ? f->id : static_cast<int>(dialog_.GetDefID() & 0xFFFF);
  return PressButton(dialog_, target);
}

bool DialogDriver::PressEscape() {
  return PressButton(dialog_, IDCANCEL);
}

bool DialogDriver::PressHelp() {
  return PressButton(dialog_, IDHELP);
}

bool DialogDriver::Close() {
  const DialogState& w = DialogAccess::Of(dialog_);
  if (!w.open || w.ended) return false;
  DialogAccess::OnClose(dialog_);
  return true;
}

}  // namespace vglobal
