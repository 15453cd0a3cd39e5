// The element symbol of an element constraint lives in a fixed three-character field.
// A text that does not fit is refused whole rather than cut: a cut symbol would name
// another element ("Nab" is not "Na").
#include "vglobal/fileio/constraints.h"

#include <cwchar>

CIndividualConstraint::CIndividualConstraint() {
  Element(L"");
}

int CIndividualConstraint::Element(const wchar_t* symbol) {
  if (!symbol) symbol = L"";
  int length = 0;
  while (length <= kMaxElementLength && symbol[length] != L'\0') ++length;
  if (length > kMaxElementLength) return 0;
  std::wmemcpy(m_Element, symbol, length);
  m_Element[length] = L'\0';
  return 1;
}

int CIndividualConstraint::Element(const CString& symbol) {
  // Counted by the string's own length, so a text hiding characters behind a null
  // character is refused too.
  if (symbol.GetLength() > kMaxElementLength) return 0;
  return Element(symbol.GetString());
}
