// CEdit and vglobal::NumericEdit.
#include <algorithm>
#include <cmath>
#include <limits>

#include "compat/controls_number.h"
#include "compat/dialog_state.h"

using vglobal::ControlKind;
using vglobal::ControlState;

namespace {
constexpr int kLargestLimit = 0x7FFFFFFE;
}

bool CEdit::Handles(ControlKind kind) const {
  return kind == ControlKind::Edit || kind == ControlKind::NumericEdit;
}

void CEdit::SetWindowText(const wchar_t* text) {
  ControlState* c = state();
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
  ControlState* c = state();
  if (!c) return;
  c->limit = maxChars <= 0 ? kLargestLimit : maxChars;
  Changed(vglobal::kAspectLimits);
}

UINT CEdit::GetLimitText() const {
  ControlState* c = state();
  return c ? static_cast<UINT>(c->limit) : 0;
}

void CEdit::SetSel(int start, int end, BOOL /*noScroll*/) {
  ControlState* c = state();
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
  ControlState* c = state();
  start = c ? c->selStart : 0;
  end = c ? c->selEnd : 0;
}

void CEdit::ReplaceSel(const wchar_t* text, BOOL /*canUndo*/) {
  ControlState* c = state();
  if (!c) return;
  std::wstring insert = text ? text : L"";
  const std::size_t length = c->text.size();
  const std::size_t start = std::min<std::size_t>(c->selStart, length);
  const std::size_t end = std::clamp<std::size_t>(c->selEnd, start, length);
  const std::size_t kept = length - (end - start);
  const std::size_t room = c->limit > static_cast<int>(kept) ? c->limit - kept : 0;
  if (insert.size() > room) insert.resize(room);
  c->text.replace(start, end - start, insert);
  c->selStart = c->selEnd = static_cast<int>(start + insert.size());
  Changed(vglobal::kAspectText | vglobal::kAspectSelection);
  Notify(EN_UPDATE);
  Notify(EN_CHANGE);
}

BOOL CEdit::SetReadOnly(BOOL readOnly) {
  ControlState* c = state();
  if (!c) return FALSE;
  c->readOnly = readOnly != FALSE;
  Changed(vglobal::kAspectLimits);
  return TRUE;
}

BOOL CEdit::IsReadOnly() const {
  return state() && state()->readOnly;
}
BOOL CEdit::GetModify() const {
  return state() && state()->modified;
}

void CEdit::SetModify(BOOL modified) {
  if (ControlState* c = state()) c->modified = modified != FALSE;
}

BOOL CEdit::IsMultiline() const {
  return state() && state()->HasStyle(vglobal::kMultiline);
}

namespace vglobal {

bool NumericEdit::Handles(ControlKind kind) const {
  return kind == ControlKind::NumericEdit;
}

void NumericEdit::InitDouble(double value, double min, double max, int decimals) {
  ControlState* c = state();
  if (!c) return;
  c->integer = false;
  c->decimals = std::clamp(decimals, -1, 20);
  SetRange(min, max);
  SetValue(value);
}

void NumericEdit::InitInt(int value, int min, int max) {
  ControlState* c = state();
  if (!c) return;
  c->integer = true;
  c->decimals = 0;
  SetRange(min, max);
  SetValue(value);
}

void NumericEdit::SetRange(double min, double max) {
  ControlState* c = state();
  if (!c || std::isnan(min) || std::isnan(max)) return;
  c->min = std::min(min, max);
  c->max = std::max(min, max);
  Changed(kAspectLimits);
}

double NumericEdit::GetMin() const {
  return state() ? state()->min : 0.0;
}
double NumericEdit::GetMax() const {
  return state() ? state()->max : 0.0;
}
int NumericEdit::GetDecimals() const {
  return state() ? state()->decimals : -1;
}
BOOL NumericEdit::IsInteger() const {
  return state() && state()->integer;
}

std::optional<double> NumericEdit::Value() const {
  ControlState* c = state();
  if (!c) return std::nullopt;
  if (c->integer) {
    std::optional<long long> v = number::ParseInteger(c->text);
    if (!v) return std::nullopt;
    return static_cast<double>(*v);
  }
  return number::ParseReal(c->text);
}

int NumericEdit::GetIntValue() const {
  std::optional<double> v = Value();
  if (!v) return 0;
  double r = std::round(*v);
  r = std::clamp(r, static_cast<double>(std::numeric_limits<int>::min()),
                 static_cast<double>(std::numeric_limits<int>::max()));
  return static_cast<int>(r);
}

void NumericEdit::SetValue(double value) {
  ControlState* c = state();
  if (!c || !std::isfinite(value)) return;
  SetWindowText(number::FormatReal(value, c->integer ? 0 : c->decimals).c_str());
}

BOOL NumericEdit::IsValid() const {
  ControlState* c = state();
  std::optional<double> v = Value();
  return c && v && *v >= c->min && *v <= c->max;
}

BOOL NumericEdit::AcceptsInput(const wchar_t* text) const {
  ControlState* c = state();
  if (!c) return FALSE;
  std::wstring_view s = text ? text : L"";
  if (!s.empty() && s.front() == L'-') {
    if (c->min >= 0) return FALSE;
    s.remove_prefix(1);
  }
  bool point = false;
  int places = 0;
  for (wchar_t ch : s) {
    if (ch == L'.') {
      if (point || c->integer || c->decimals == 0) return FALSE;
      point = true;
    } else if (ch >= L'0' && ch <= L'9') {
      if (point && c->decimals >= 0 && ++places > c->decimals) return FALSE;
    } else {
      return FALSE;
    }
  }
  return TRUE;
}

}  // namespace vglobal
