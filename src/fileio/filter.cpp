// The scan filter record and its text form (grammar in vglobal/fileio/filter.h).
//
// Map of this file:
//   1. The words of the text form, shared by the writer and the parser
//   2. CFilter: ranges and rendering
//   3. The parser: a cursor over the text, one function per part of the grammar
//
// Numbers are written with std::to_chars and read with std::from_chars, which never
// consult the process locale, so a filter written under a German locale reads back
// under any other.
#include "vglobal/fileio/filter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace {

// ---- 1. Words ----

struct ScanTypeWords {
  CFilter::ScanType type;
  std::wstring_view first;   // the analyser word
  std::wstring_view second;  // the MS order word
};

constexpr std::array<ScanTypeWords, 4> kScanTypes{{
    {CFilter::ScanTypeFull, L"Full", L"ms"},
    {CFilter::ScanTypeSIM, L"SIM", L"ms"},
    {CFilter::ScanTypeSRM, L"SRM", L"ms2"},
    {CFilter::ScanTypeZoom, L"Z", L"ms"},
}};

// A mass is at most this many characters; longer digit runs carry no meaning for a
// mass below CFilter::kMaxMass and are refused rather than copied.
constexpr std::size_t kMaxMassTextLength = 40;

constexpr int kMaxDecimals = 9;

// ---- 2. Rendering ----

void AppendMass(std::wstring& out, double mass, int decimals) {
  std::array<char, 64> buf{};
  auto [end, ec] =
      std::to_chars(buf.data(), buf.data() + buf.size(), mass, std::chars_format::fixed, decimals);
  if (ec != std::errc()) return;  // cannot happen for |mass| below kMaxMass with <= 9 decimals
  out.append(buf.data(), end);    // ASCII only: widening char by char is exact
}

}  // namespace

CFilterMassRange CFilter::GetMassRange(int index) const {
  if (index < 0 || index >= NumMassRanges()) return {};
  return m_ranges[static_cast<std::size_t>(index)];
}

bool CFilter::AddMassRange(double low, double high) {
  if (m_ranges.size() >= kMaxMassRanges) return false;
  m_ranges.push_back({low, high});
  return true;
}

bool CFilter::IsEmpty() const {
  return m_polarity == PolarityAny && m_scanMode == ScanModeAny && m_scanType == ScanTypeAny &&
         m_ranges.empty();
}

CString CFilter::GetFilterString(int first, int last, int decimals) const {
  std::wstring out;
  auto separate = [&out] {
    if (!out.empty()) out += L' ';
  };
  if (m_polarity == PolarityPositive) out += L'+';
  if (m_polarity == PolarityNegative) out += L'-';
  if (m_scanMode != ScanModeAny) {
    separate();
    out += m_scanMode == ScanModeCentroid ? L'c' : L'p';
  }
  for (const ScanTypeWords& words : kScanTypes) {
    if (words.type != m_scanType) continue;
    separate();
    out.append(words.first).append(L" ").append(words.second);
  }

  const int count = NumMassRanges();
  const int from = first < 0 ? 0 : first;
  const int to = (last < 0 || last >= count) ? count - 1 : last;
  if (from <= to) {
    const int places = std::clamp(decimals, 0, kMaxDecimals);
    separate();
    out += L'[';
    for (int i = from; i <= to; ++i) {
      const CFilterMassRange& range = m_ranges[static_cast<std::size_t>(i)];
      if (i > from) out += L',';
      AppendMass(out, range.Low, places);
      if (range.High != range.Low) {
        out += L'-';
        AppendMass(out, range.High, places);
      }
    }
    out += L']';
  }
  return CString(out.c_str());
}

// ---- 3. The parser ----

namespace {

struct ParseError {
  std::wstring what;
  std::size_t position;
};

bool IsSpace(wchar_t c) {
  return c == L' ' || c == L'\t';
}
bool IsDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

// A short, printable quotation of the text at `pos` for error messages: the character
// there (a space too) and what follows it up to the next space.
std::wstring Quote(std::wstring_view text, std::size_t pos) {
  std::wstring_view rest = text.substr(std::min(pos, text.size()));
  if (rest.empty()) return L"the end of the text";
  std::size_t n = 1;
  while (n < rest.size() && n < 16 && !IsSpace(rest[n])) ++n;
  std::wstring q = L"'";
  for (wchar_t c : rest.substr(0, n)) q += (c >= 0x20 && c != 0x7f) ? c : L'?';
  if (n < rest.size() && !IsSpace(rest[n])) q += L"...";
  return q + L"'";
}

class FilterParser {
 public:
  explicit FilterParser(std::wstring_view text) : text_(text) {}

  std::optional<ParseError> Parse(CFilter& filter) {
    SkipSpaces();
    bool seenPolarity = false, seenMode = false, seenType = false;
    while (pos_ < text_.size()) {
      const std::size_t start = pos_;
      const std::wstring_view word = Word();
      if (word == L"+" || word == L"-") {
        if (seenPolarity || seenMode || seenType)
          return Fail(
              L"polarity " + Quote(text_, start) + L" repeated or after the scan mode or type",
              start);
        filter.SetPolarity(word == L"+" ? CFilter::PolarityPositive : CFilter::PolarityNegative);
        seenPolarity = true;
      } else if (word == L"c" || word == L"p") {
        if (seenMode || seenType)
          return Fail(L"scan mode " + Quote(text_, start) + L" repeated or after the scan type",
                      start);
        filter.SetScanMode(word == L"c" ? CFilter::ScanModeCentroid : CFilter::ScanModeProfile);
        seenMode = true;
      } else if (const ScanTypeWords* type = FindScanType(word)) {
        if (seenType) return Fail(L"scan type " + Quote(text_, start) + L" repeated", start);
        SkipSpaces();
        const std::size_t secondStart = pos_;
        if (Word() != type->second)
          return Fail(L"expected '" + std::wstring(type->second) + L"' after '" +
                          std::wstring(type->first) + L"'",
                      secondStart);
        filter.SetScanType(type->type);
        seenType = true;
      } else if (!word.empty() && word.front() == L'[') {
        pos_ = start;
        if (auto error = Ranges(filter)) return error;
        SkipSpaces();
        if (pos_ < text_.size())
          return Fail(L"unexpected " + Quote(text_, pos_) + L" after the mass ranges", pos_);
        return std::nullopt;
      } else {
        return Fail(L"unknown filter part " + Quote(text_, start) +
                        L" (expected '+', '-', 'c', 'p', a scan type or '[')",
                    start);
      }
      SkipSpaces();
    }
    return std::nullopt;
  }

 private:
  static const ScanTypeWords* FindScanType(std::wstring_view word) {
    for (const ScanTypeWords& words : kScanTypes)
      if (words.first == word) return &words;
    return nullptr;
  }

  static std::optional<ParseError> Fail(std::wstring what, std::size_t position) {
    return ParseError{std::move(what), position};
  }

  void SkipSpaces() {
    while (pos_ < text_.size() && IsSpace(text_[pos_])) ++pos_;
  }

  // The run of non-space characters at the cursor; the cursor moves past it.
  std::wstring_view Word() {
    const std::size_t start = pos_;
    while (pos_ < text_.size() && !IsSpace(text_[pos_])) ++pos_;
    return text_.substr(start, pos_ - start);
  }

  // "[" range { "," range } "]" at the cursor.
  std::optional<ParseError> Ranges(CFilter& filter) {
    ++pos_;  // '['
    if (pos_ < text_.size() && text_[pos_] == L']')
      return Fail(L"empty mass-range list '[]'", pos_ - 1);
    for (;;) {
      const std::size_t rangeStart = pos_;
      double low = 0, high = 0;
      if (auto error = Mass(low)) return error;
      high = low;
      if (pos_ < text_.size() && text_[pos_] == L'-') {
        ++pos_;
        if (auto error = Mass(high)) return error;
        if (low > high)
          return Fail(
              L"mass range " + Quote(text_, rangeStart) + L" has its low mass above its high mass",
              rangeStart);
      }
      if (!filter.AddMassRange(low, high))
        return Fail(L"more than " + std::to_wstring(CFilter::kMaxMassRanges) + L" mass ranges",
                    rangeStart);
      if (pos_ >= text_.size()) return Fail(L"mass ranges not closed with ']'", pos_);
      const wchar_t c = text_[pos_++];
      if (c == L']') return std::nullopt;
      if (c != L',')
        return Fail(L"expected ',', '-' or ']' in the mass ranges, found " + Quote(text_, pos_ - 1),
                    pos_ - 1);
    }
  }

  // digits [ "." digits ] at the cursor, read in the classic locale.
  std::optional<ParseError> Mass(double& mass) {
    const std::size_t start = pos_;
    std::string digits;  // the same characters, narrowed for from_chars
    auto take = [&] {
      while (pos_ < text_.size() && IsDigit(text_[pos_])) {
        if (digits.size() >= kMaxMassTextLength) return false;
        digits += static_cast<char>(text_[pos_++]);
      }
      return true;
    };
    const std::size_t intStart = pos_;
    if (!take()) return Fail(L"mass too long", start);
    if (pos_ == intStart) return Fail(L"expected a mass, found " + Quote(text_, pos_), pos_);
    if (pos_ < text_.size() && text_[pos_] == L'.') {
      digits += '.';
      ++pos_;
      const std::size_t fractionStart = pos_;
      if (!take()) return Fail(L"mass too long", start);
      if (pos_ == fractionStart) return Fail(L"expected digits after the decimal point", pos_);
    }
    const auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), mass);
    if (ec != std::errc() || end != digits.data() + digits.size() || !std::isfinite(mass) ||
        mass > CFilter::kMaxMass)
      return Fail(L"mass " + Quote(text_, start) + L" out of range", start);
    return std::nullopt;
  }

  std::wstring_view text_;
  std::size_t pos_ = 0;
};

}  // namespace

int CVC_FilterStruct::ParseFilterStructString(const wchar_t* text, int /*options*/) {
  m_filter = CFilter();
  m_error = L"";
  m_errorPosition = -1;

  const std::size_t maxLength = static_cast<std::size_t>(CFilter::kMaxFilterTextLength);
  std::size_t length = 0;  // counted only up to one past the limit
  while (text && length <= maxLength && text[length] != L'\0') ++length;
  if (length > maxLength) {
    m_error.Format(L"scan filter: text longer than %d characters", CFilter::kMaxFilterTextLength);
    m_errorPosition = CFilter::kMaxFilterTextLength;
    return 0;
  }

  CFilter parsed;
  if (auto error = FilterParser(std::wstring_view(text ? text : L"", length)).Parse(parsed)) {
    m_error.Format(L"scan filter: %s at character %d", error->what.c_str(),
                   static_cast<int>(error->position));
    m_errorPosition = static_cast<int>(error->position);
    return 0;
  }
  m_filter = parsed;
  return 1;
}
