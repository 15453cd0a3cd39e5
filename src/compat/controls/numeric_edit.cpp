// Numeric edits: an edit whose text can only become a number of its form, with a
// range checked on demand (IsValid).
#include <algorithm>
#include <cmath>
#include <limits>

#include "compat/controls/edit_state.h"
#include "compat/controls_number.h"

namespace vglobal {
namespace {

struct NumericState : EditState {
  double min = -1.7976931348623157e308;
  double max = 1.7976931348623157e308;
  int decimals = -1;
  bool integer = false;

  std::unique_ptr<DialogControl> MakeHandle() const override {
    return std::make_unique<NumericEdit>();
  }
  // Digits, one decimal point unless integer, a leading minus sign when the range
  // admits negative numbers, at most `decimals` places.
  bool Accepts(const std::wstring& typed) const override {
    std::wstring_view s = typed;
    if (!s.empty() && s.front() == L'-') {
      if (min >= 0) return false;
      s.remove_prefix(1);
    }
    bool point = false;
    int places = 0;
    for (wchar_t ch : s) {
      if (ch == L'.') {
        if (point || integer || decimals == 0) return false;
        point = true;
      } else if (ch >= L'0' && ch <= L'9') {
        if (point && decimals >= 0 && ++places > decimals) return false;
      } else {
        return false;
      }
    }
    return true;
  }
};

}  // namespace

namespace controls {
std::unique_ptr<ControlState> MakeNumericEdit() {
  return std::make_unique<NumericState>();
}
}  // namespace controls

bool NumericEdit::Handles(ControlKind kind) const {
  return kind == ControlKind::NumericEdit;
}

BOOL NumericEdit::Create(UINT style, const RECT& rect, CWnd* parent, UINT id) {
  return CreateControl(ControlKind::NumericEdit, L"", style, rect, parent, id);
}

void NumericEdit::InitDouble(double value, double min, double max, int decimals) {
  NumericState* c = StateAs<NumericState>(state());
  if (!c) return;
  c->integer = false;
  c->decimals = std::clamp(decimals, -1, 20);
  SetRange(min, max);
  SetValue(value);
}

void NumericEdit::InitInt(int value, int min, int max) {
  NumericState* c = StateAs<NumericState>(state());
  if (!c) return;
  c->integer = true;
  c->decimals = 0;
  SetRange(min, max);
  SetValue(value);
}

void NumericEdit::SetRange(double min, double max) {
  NumericState* c = StateAs<NumericState>(state());
  if (!c || std::isnan(min) || std::isnan(max)) return;
  c->min = std::min(min, max);
  c->max = std::max(min, max);
  Changed(kAspectLimits);
}

double NumericEdit::GetMin() const {
  NumericState* c = StateAs<NumericState>(state());
  return c ? c->min : 0.0;
}
double NumericEdit::GetMax() const {
  NumericState* c = StateAs<NumericState>(state());
  return c ? c->max : 0.0;
}
int NumericEdit::GetDecimals() const {
  NumericState* c = StateAs<NumericState>(state());
  return c ? c->decimals : -1;
}
BOOL NumericEdit::IsInteger() const {
  NumericState* c = StateAs<NumericState>(state());
  return c && c->integer;
}

std::optional<double> NumericEdit::Value() const {
  NumericState* c = StateAs<NumericState>(state());
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
  NumericState* c = StateAs<NumericState>(state());
  if (!c || !std::isfinite(value)) return;
  SetWindowText(number::FormatReal(value, c->integer ? 0 : c->decimals).c_str());
}

BOOL NumericEdit::IsValid() const {
  NumericState* c = StateAs<NumericState>(state());
  std::optional<double> v = Value();
  return c && v && *v >= c->min && *v <= c->max;
}

BOOL NumericEdit::AcceptsInput(const wchar_t* text) const {
  NumericState* c = StateAs<NumericState>(state());
  return c && c->Accepts(text ? text : L"");
}

}  // namespace vglobal
