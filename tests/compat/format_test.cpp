// Formatting by the Windows wide-printf rules, which differ from glibc's.
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdarg>
#include <string>

#include "vglobal/compat/cstring.h"

namespace {

CString Fmt(const wchar_t* f, auto... args) {
  CString s;
  s.Format(f, args...);
  return s;
}

CString FmtV(const wchar_t* f, ...) {
  va_list ap;
  va_start(ap, f);
  CString s;
  s.FormatV(f, ap);
  va_end(ap);
  return s;
}

TEST(WideFormat, PercentSIsWideAndCapitalSIsNarrow) {
  EXPECT_EQ(Fmt(L"[%s]", L"wide"), L"[wide]");
  EXPECT_EQ(Fmt(L"[%S]", "narrow"), L"[narrow]");
  EXPECT_EQ(Fmt(L"[%hs|%ls|%ws]", "a", L"b", L"c"), L"[a|b|c]");
  EXPECT_EQ(FmtV(L"[%s|%S|%hs|%ls]", L"w", "n", "h", L"l"), L"[w|n|h|l]");
  EXPECT_EQ(FmtV(L"%c%C%lc%hc", L'\u00e9', 'x', L'\u03a9', 'y'), L"\u00e9x\u03a9y");
  // Narrow arguments are UTF-8.
  EXPECT_EQ(Fmt(L"%S", "\xc3\xa9t\xc3\xa9"), L"\u00e9t\u00e9");
}

TEST(WideFormat, WidthPrecisionAndFlagsOnText) {
  EXPECT_EQ(Fmt(L"[%5s]", L"ab"), L"[   ab]");
  EXPECT_EQ(Fmt(L"[%-5s]", L"ab"), L"[ab   ]");
  EXPECT_EQ(Fmt(L"[%.2s]", L"abcdef"), L"[ab]");
  EXPECT_EQ(Fmt(L"[%*s]", -4, L"x"), L"[x   ]");
  EXPECT_EQ(Fmt(L"[%.*s]", 3, L"abcdef"), L"[abc]");
  EXPECT_EQ(Fmt(L"[%s]", static_cast<const wchar_t*>(nullptr)), L"[(null)]");
}

// Puts the process's numeric locale back however the test ends.
struct SavedNumericLocale {
  std::string name = std::setlocale(LC_NUMERIC, nullptr);
  ~SavedNumericLocale() { std::setlocale(LC_NUMERIC, name.c_str()); }
};

TEST(WideFormat, NumbersUseTheClassicLocaleWhateverTheProcessLocale) {
  const SavedNumericLocale saved;
  // A host program may run in a decimal-comma locale (scripts/bootstrap generates
  // this one); without it the test would prove nothing, so it fails.
  ASSERT_NE(std::setlocale(LC_NUMERIC, "de_DE.UTF-8"), nullptr)
      << "the de_DE.UTF-8 locale is missing: run scripts/bootstrap";
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  // Compared as UTF-8, so that a failure shows the text.
  EXPECT_EQ(Fmt(L"%.2f", 3.14159).ToUtf8(), "3.14");
  EXPECT_EQ(FmtV(L"%g|%e", 0.5, 1.5).ToUtf8(), "0.5|1.500000e+00");
  EXPECT_EQ(Fmt(L"%10.3f|%-8.1f|", -2.5, 1e3).ToUtf8(), "    -2.500|1000.0  |");
}

TEST(WideFormat, IntegerSizesFollowTheLegacyPrefixes) {
  EXPECT_EQ(Fmt(L"%d %i %u", -5, 7, 4000000000u), L"-5 7 4000000000");
  EXPECT_EQ(Fmt(L"%I64d %lld", 9000000000LL, -9000000000LL), L"9000000000 -9000000000");
  EXPECT_EQ(Fmt(L"%hd", 70000), L"4464");  // short truncation
  EXPECT_EQ(Fmt(L"%x %X %#x %o", 255, 255, 255, 8), L"ff FF 0xff 10");
  EXPECT_EQ(Fmt(L"%05d|%-4d|%+d", 42, 7, 3), L"00042|7   |+3");
  EXPECT_EQ(FmtV(L"%I64u %lu %d", 18000000000000000000ULL, 5ul, -1), L"18000000000000000000 5 -1");
  EXPECT_EQ(Fmt(L"%-1.1d", 12), L"12");
}

TEST(WideFormat, FloatsAndSpecialValues) {
  EXPECT_EQ(Fmt(L"%e", 12345.678), L"1.234568e+04");
  EXPECT_EQ(Fmt(L"%10.3f|", 2.5), L"     2.500|");
  EXPECT_EQ(Fmt(L"%g", 1e-10), L"1e-10");
  EXPECT_EQ(Fmt(L"%f", HUGE_VAL), L"inf");
  // A very wide number does not overflow any fixed buffer.
  EXPECT_EQ(Fmt(L"%f", 1e308).GetLength(), 309 + 7);
}

TEST(WideFormat, PointersPrintAsSixteenUpperCaseHexDigits) {
  EXPECT_EQ(Fmt(L"%p", reinterpret_cast<void*>(0xABCDEF)), L"0000000000ABCDEF");
}

TEST(WideFormat, MalformedOrDangerousDirectivesNeverReadPastTheArguments) {
  EXPECT_EQ(Fmt(L"100%"), L"100%");
  EXPECT_EQ(Fmt(L"a%-5"), L"a%-5");
  EXPECT_EQ(Fmt(L"%y|%d", 3), L"%y|3");
  EXPECT_EQ(Fmt(L"%%d"), L"%d");
  // Missing arguments print nothing.
  EXPECT_EQ(Fmt(L"[%d][%s]"), L"[][]");
  // %n consumes its argument and writes nothing.
  int target = 17;
  EXPECT_EQ(Fmt(L"a%nb%d", &target, 5), L"ab5");
  EXPECT_EQ(target, 17);
  // A captured number given to %s prints nothing rather than being read as a pointer.
  EXPECT_EQ(Fmt(L"[%s]", 42), L"[]");
  // Enormous widths are clamped instead of trusted.
  EXPECT_LE(Fmt(L"%999999999d", 1).GetLength(), 100000);
}

TEST(WideFormat, CStringArgumentsAndAppend) {
  CString name(L"pump");
  CString s;
  s.Format(L"%s-%d", name, 2);
  s.AppendFormat(L"/%s", CString(L"A"));
  EXPECT_EQ(s, L"pump-2/A");
  // Formatting into itself sees the old text.
  s.Format(L"<%s>", s);
  EXPECT_EQ(s, L"<pump-2/A>");
}

TEST(WideFormat, GrowsPastAnyFixedBuffer) {
  std::wstring big(5000, L'x');
  EXPECT_EQ(Fmt(L"%s!", big.c_str()).GetLength(), 5001);
}

}  // namespace
