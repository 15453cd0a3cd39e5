// CString: positions and counts are clamped to the string as the legacy class did,
// so that callers' off-by-one arithmetic yields short strings instead of faults.
#include "vglobal/compat/cstring.h"

#include <algorithm>
#include <cwctype>
#include <limits>
#include <stdexcept>

#include "vglobal/compat/resources.h"
#include "vglobal/compat/unicode.h"

namespace {

std::size_t Clamp(int v, std::size_t size) {
  if (v < 0) return 0;
  return std::min(static_cast<std::size_t>(v), size);
}

bool IsSpace(wchar_t c) {
  return std::iswspace(static_cast<wint_t>(c)) != 0;
}

// A BSTR keeps its length in bytes in the four bytes before the text.
struct BstrHeader {
  std::uint32_t bytes;
};

}  // namespace

CString::CString(const wchar_t* text) : s_(text ? text : L"") {}
CString::CString(const wchar_t* text, int length) {
  if (text && length > 0) s_.assign(text, static_cast<std::size_t>(length));
}
CString::CString(const char* utf8) : s_(utf8 ? vglobal::Utf8ToWide(utf8) : std::wstring()) {}
CString::CString(wchar_t ch, int repeat)
    : s_(repeat > 0 ? static_cast<std::size_t>(repeat) : 0, ch) {}
CString::CString(std::wstring_view text) : s_(text) {}
CString::CString(std::wstring text) : s_(std::move(text)) {}

wchar_t CString::GetAt(int index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= s_.size())
    throw std::out_of_range("CString::GetAt: index outside the string");
  return s_[static_cast<std::size_t>(index)];
}

void CString::SetAt(int index, wchar_t ch) {
  if (index < 0 || static_cast<std::size_t>(index) >= s_.size())
    throw std::out_of_range("CString::SetAt: index outside the string");
  s_[static_cast<std::size_t>(index)] = ch;
}

std::string CString::ToUtf8() const {
  return vglobal::WideToUtf8(s_);
}

CString& CString::operator=(const wchar_t* text) {
  s_ = text ? text : L"";
  return *this;
}
CString& CString::operator=(wchar_t ch) {
  s_.assign(1, ch);
  return *this;
}
CString& CString::operator+=(const CString& other) {
  s_ += other.s_;
  return *this;
}
CString& CString::operator+=(const wchar_t* text) {
  if (text) s_ += text;
  return *this;
}
CString& CString::operator+=(wchar_t ch) {
  s_.push_back(ch);
  return *this;
}
void CString::Append(const wchar_t* text, int length) {
  if (text && length > 0) s_.append(text, static_cast<std::size_t>(length));
}

CString operator+(const CString& a, const CString& b) {
  return CString(a.s_ + b.s_);
}
CString operator+(const CString& a, const wchar_t* b) {
  CString r(a);
  r += b;
  return r;
}
CString operator+(const wchar_t* a, const CString& b) {
  CString r(a);
  r += b;
  return r;
}
CString operator+(const CString& a, wchar_t b) {
  CString r(a);
  r += b;
  return r;
}
CString operator+(wchar_t a, const CString& b) {
  CString r(a);
  r += b;
  return r;
}

int CString::Compare(const wchar_t* other) const {
  int c = s_.compare(other ? other : L"");
  return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

int CString::CompareNoCase(const wchar_t* other) const {
  std::wstring a = vglobal::FoldCase(s_);
  std::wstring b = vglobal::FoldCase(other ? other : L"");
  int c = a.compare(b);
  return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

int CString::Find(wchar_t ch, int start) const {
  if (start < 0 || static_cast<std::size_t>(start) > s_.size()) return -1;
  auto pos = s_.find(ch, static_cast<std::size_t>(start));
  return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

int CString::Find(const wchar_t* sub, int start) const {
  if (!sub || start < 0 || static_cast<std::size_t>(start) > s_.size()) return -1;
  auto pos = s_.find(sub, static_cast<std::size_t>(start));
  return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

int CString::ReverseFind(wchar_t ch) const {
  auto pos = s_.rfind(ch);
  return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

int CString::FindOneOf(const wchar_t* chars) const {
  if (!chars) return -1;
  auto pos = s_.find_first_of(chars);
  return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

CString CString::Mid(int first) const {
  return Mid(first, std::numeric_limits<int>::max());
}

CString CString::Mid(int first, int count) const {
  std::size_t f = Clamp(first, s_.size());
  std::size_t n = Clamp(count, s_.size() - f);
  return CString(s_.substr(f, n));
}

CString CString::Left(int count) const {
  return CString(s_.substr(0, Clamp(count, s_.size())));
}

CString CString::Right(int count) const {
  std::size_t n = Clamp(count, s_.size());
  return CString(s_.substr(s_.size() - n));
}

CString CString::SpanIncluding(const wchar_t* chars) const {
  if (!chars) return CString();
  auto pos = s_.find_first_not_of(chars);
  return CString(s_.substr(0, pos));
}

CString CString::SpanExcluding(const wchar_t* chars) const {
  if (!chars) return *this;
  auto pos = s_.find_first_of(chars);
  return CString(s_.substr(0, pos));
}

CString CString::Tokenize(const wchar_t* delimiters, int& start) const {
  if (start < 0 || static_cast<std::size_t>(start) >= s_.size()) {
    start = -1;
    return CString();
  }
  const wchar_t* delims = delimiters ? delimiters : L"";
  auto first = s_.find_first_not_of(delims, static_cast<std::size_t>(start));
  if (first == std::wstring::npos) {
    start = -1;
    return CString();
  }
  auto end = s_.find_first_of(delims, first);
  if (end == std::wstring::npos) end = s_.size();
  start = static_cast<int>(std::min(end + 1, s_.size() + 1));
  return CString(s_.substr(first, end - first));
}

CString& CString::MakeUpper() {
  for (wchar_t& c : s_) c = vglobal::FoldCase(c);
  return *this;
}

CString& CString::MakeLower() {
  for (wchar_t& c : s_) c = vglobal::LowerCase(c);
  return *this;
}

CString& CString::MakeReverse() {
  std::reverse(s_.begin(), s_.end());
  return *this;
}

CString& CString::Trim() {
  return TrimRight().TrimLeft();
}
CString& CString::Trim(wchar_t ch) {
  return TrimRight(ch).TrimLeft(ch);
}
CString& CString::Trim(const wchar_t* chars) {
  return TrimRight(chars).TrimLeft(chars);
}

CString& CString::TrimLeft() {
  auto it = std::find_if(s_.begin(), s_.end(), [](wchar_t c) { return !IsSpace(c); });
  s_.erase(s_.begin(), it);
  return *this;
}
CString& CString::TrimLeft(wchar_t ch) {
  s_.erase(0, s_.find_first_not_of(ch));
  return *this;
}
CString& CString::TrimLeft(const wchar_t* chars) {
  if (chars) s_.erase(0, s_.find_first_not_of(chars));
  return *this;
}
CString& CString::TrimRight() {
  while (!s_.empty() && IsSpace(s_.back())) s_.pop_back();
  return *this;
}
CString& CString::TrimRight(wchar_t ch) {
  while (!s_.empty() && s_.back() == ch) s_.pop_back();
  return *this;
}
CString& CString::TrimRight(const wchar_t* chars) {
  if (!chars) return *this;
  auto pos = s_.find_last_not_of(chars);
  s_.erase(pos == std::wstring::npos ? 0 : pos + 1);
  return *this;
}

int CString::Replace(wchar_t from, wchar_t to) {
  int n = 0;
  for (wchar_t& c : s_) {
    if (c == from) {
      c = to;
      ++n;
    }
  }
  return n;
}

int CString::Replace(const wchar_t* from, const wchar_t* to) {
  if (!from || !*from) return 0;
  std::wstring_view f(from);
  std::wstring_view t(to ? to : L"");
  int n = 0;
  std::wstring out;
  std::size_t pos = 0;
  for (;;) {
    auto hit = s_.find(f, pos);
    if (hit == std::wstring::npos) break;
    out.append(s_, pos, hit - pos);
    out.append(t);
    pos = hit + f.size();
    ++n;
  }
  if (n) {
    out.append(s_, pos);
    s_ = std::move(out);
  }
  return n;
}

int CString::Remove(wchar_t ch) {
  auto old = s_.size();
  s_.erase(std::remove(s_.begin(), s_.end(), ch), s_.end());
  return static_cast<int>(old - s_.size());
}

int CString::Insert(int index, wchar_t ch) {
  s_.insert(Clamp(index, s_.size()), 1, ch);
  return GetLength();
}

int CString::Insert(int index, const wchar_t* text) {
  if (text) s_.insert(Clamp(index, s_.size()), text);
  return GetLength();
}

int CString::Delete(int index, int count) {
  std::size_t i = Clamp(index, s_.size());
  s_.erase(i, Clamp(count, s_.size() - i));
  return GetLength();
}

void CString::Truncate(int length) {
  s_.resize(Clamp(length, s_.size()));
}

wchar_t* CString::GetBuffer(int minLength) {
  if (minLength > 0 && static_cast<std::size_t>(minLength) > s_.size())
    s_.resize(static_cast<std::size_t>(minLength));
  return s_.data();
}

wchar_t* CString::GetBufferSetLength(int length) {
  s_.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  return s_.data();
}

void CString::ReleaseBuffer(int newLength) {
  if (newLength < 0) {
    auto zero = s_.find(L'\0');
    if (zero != std::wstring::npos) s_.resize(zero);
  } else {
    s_.resize(std::min(static_cast<std::size_t>(newLength), s_.size()));
  }
}

void CString::FormatV(const wchar_t* format, va_list args) {
  s_ = vglobal::fmt::FormatV(format, args);
}

void CString::AppendFormatV(const wchar_t* format, va_list args) {
  s_ += vglobal::fmt::FormatV(format, args);
}

BOOL CString::LoadString(UINT id) {
  auto text = vglobal::FindResourceString(id);
  if (!text) {
    s_.clear();
    return FALSE;
  }
  s_.assign(*text);
  return TRUE;
}

BSTR CString::AllocSysString() const {
  return SysAllocStringLen(s_.data(), static_cast<UINT>(s_.size()));
}

BSTR SysAllocString(const wchar_t* text) {
  if (!text) return nullptr;
  return SysAllocStringLen(text, static_cast<UINT>(std::wcslen(text)));
}

BSTR SysAllocStringLen(const wchar_t* text, UINT length) {
  if (length > (std::numeric_limits<std::uint32_t>::max() - 16) / sizeof(wchar_t)) return nullptr;
  auto* block = static_cast<unsigned char*>(
      ::operator new(sizeof(BstrHeader) + (length + 1) * sizeof(wchar_t), std::nothrow));
  if (!block) return nullptr;
  reinterpret_cast<BstrHeader*>(block)->bytes =
      static_cast<std::uint32_t>(length * sizeof(wchar_t));
  auto* str = reinterpret_cast<wchar_t*>(block + sizeof(BstrHeader));
  if (text)
    std::copy(text, text + length, str);
  else
    std::fill(str, str + length, L'\0');
  str[length] = L'\0';
  return str;
}

void SysFreeString(BSTR text) {
  if (text) ::operator delete(reinterpret_cast<unsigned char*>(text) - sizeof(BstrHeader));
}

UINT SysStringLen(BSTR text) {
  if (!text) return 0;
  auto* header =
      reinterpret_cast<BstrHeader*>(reinterpret_cast<unsigned char*>(text) - sizeof(BstrHeader));
  return header->bytes / sizeof(wchar_t);
}

BOOL AfxExtractSubString(CString& piece, const wchar_t* full, int index, wchar_t separator) {
  piece.Empty();
  if (!full || index < 0) return FALSE;
  std::wstring_view rest(full);
  for (; index > 0; --index) {
    const std::size_t at = rest.find(separator);
    if (at == std::wstring_view::npos) return FALSE;
    rest.remove_prefix(at + 1);
  }
  piece = CString(std::wstring(rest.substr(0, rest.find(separator))));
  return TRUE;
}
