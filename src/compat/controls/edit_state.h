// The state of an edit, shared by the edit kinds (Edit, NumericEdit).
#pragma once

#include "compat/dialog_state.h"

namespace vglobal {

struct EditState : ControlState {
  static constexpr int kLargestLimit = 0x7FFFFFFE;

  int limit = CEdit::kDefaultLimit;
  bool readOnly = false;
  bool modified = false;
  int selStart = 0;
  int selEnd = 0;

  std::unique_ptr<DialogControl> MakeHandle() const override { return std::make_unique<CEdit>(); }
  // The template's text, cut at the limit; read-only from kReadOnly.
  void Init(const wchar_t* templateText) override;
  bool FocusCodes(UINT& set, UINT& kill) const override;
  void FocusedByDialog() override;
  bool WantsReturn() const override { return HasStyle(kMultiline) && HasStyle(kWantReturn); }
  // Digits only for kNumber edits, cut at the limit (EN_MAXTEXT), refused when
  // read-only; EN_UPDATE and EN_CHANGE when the text changed.
  bool Type(UserAction& act, std::wstring typed) override;
  // Whether the kind lets the user type `typed` at all (the base: always).
  virtual bool Accepts(const std::wstring& /*typed*/) const { return true; }
};

}  // namespace vglobal
