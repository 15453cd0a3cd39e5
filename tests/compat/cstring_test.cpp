// CString behaviour that callers rely on, the Unicode conversions, collections and
// resource strings.
#include <gtest/gtest.h>

#include "vglobal/compat/collections.h"
#include "vglobal/compat/cstring.h"
#include "vglobal/compat/resources.h"
#include "vglobal/compat/unicode.h"
#include "vglobal/compat/variant.h"

namespace {

TEST(CStringExtraction, PositionsAndCountsAreClampedNotTrusted) {
  CString s(L"chromatogram");
  EXPECT_EQ(s.Mid(6), L"togram");
  EXPECT_EQ(s.Mid(6, 3), L"tog");
  EXPECT_EQ(s.Mid(-3, 4), L"chro");
  EXPECT_EQ(s.Mid(50), L"");
  EXPECT_EQ(s.Mid(10, 100), L"am");
  EXPECT_EQ(s.Left(-1), L"");
  EXPECT_EQ(s.Left(100), s);
  EXPECT_EQ(s.Right(4), L"gram");
  EXPECT_EQ(s.Right(100), s);
  EXPECT_THROW(s.GetAt(12), std::out_of_range);
  EXPECT_THROW(s.SetAt(-1, L'x'), std::out_of_range);
}

TEST(CStringSearch, FindsFromAStartAndReportsMinusOne) {
  CString s(L"a\\b\\c.raw");
  EXPECT_EQ(s.Find(L'\\'), 1);
  EXPECT_EQ(s.Find(L'\\', 2), 3);
  EXPECT_EQ(s.Find(L"raw"), 6);
  EXPECT_EQ(s.Find(L"raw", 7), -1);
  EXPECT_EQ(s.Find(L'a', 99), -1);
  EXPECT_EQ(s.Find(L'a', -1), -1);
  EXPECT_EQ(s.ReverseFind(L'\\'), 3);
  EXPECT_EQ(s.FindOneOf(L".\\"), 1);
  EXPECT_EQ(CString().ReverseFind(L'x'), -1);
}

TEST(CStringCompare, NoCaseFoldsAllOfUnicode) {
  EXPECT_EQ(CString(L"Stra\u00dfe").CompareNoCase(L"STRA\u00dfE"), 0);
  EXPECT_EQ(CString(L"\u00c4bc").CompareNoCase(L"\u00e4BC"), 0);
  EXPECT_EQ(CString(L"\u0394\u0435\u043b\u044c\u0442\u0430")
                .CompareNoCase(L"\u03b4\u0415\u041b\u042c\u0422\u0410"),
            0);
  EXPECT_LT(CString(L"abc").CompareNoCase(L"ABD"), 0);
  EXPECT_GT(CString(L"abc").Compare(L"ABC"), 0);
  CString up(L"\u00e9t\u00e9");
  EXPECT_EQ(up.MakeUpper(), L"\u00c9T\u00c9");
  EXPECT_EQ(up.MakeLower(), L"\u00e9t\u00e9");
}

TEST(CStringModify, ReplaceRemoveInsertDeleteTrim) {
  CString s(L"  a-b-c  ");
  s.Trim();
  EXPECT_EQ(s, L"a-b-c");
  EXPECT_EQ(s.Replace(L"-", L"--"), 2);
  EXPECT_EQ(s, L"a--b--c");
  EXPECT_EQ(s.Replace(L"", L"x"), 0);
  EXPECT_EQ(s.Remove(L'-'), 4);
  EXPECT_EQ(s.Insert(1, L"XY"), 5);
  EXPECT_EQ(s, L"aXYbc");
  EXPECT_EQ(s.Insert(99, L'!'), 6);
  EXPECT_EQ(s.Delete(1, 2), 4);
  EXPECT_EQ(s.Delete(3, 99), 3);
  EXPECT_EQ(s, L"abc");
  CString t(L"xx\\path\\\\");
  EXPECT_EQ(t.TrimRight(L'\\'), L"xx\\path");
  EXPECT_EQ(t.TrimLeft(L"x"), L"\\path");
}

TEST(CStringTokenize, WalksTokensAndEndsWithMinusOne) {
  CString s(L";a;;bc;");
  int pos = 0;
  EXPECT_EQ(s.Tokenize(L";", pos), L"a");
  EXPECT_EQ(s.Tokenize(L";", pos), L"bc");
  EXPECT_EQ(s.Tokenize(L";", pos), L"");
  EXPECT_EQ(pos, -1);
}

TEST(CStringBuffer, ReleaseBufferTakesLengthUpToTheFirstZero) {
  CString s;
  wchar_t* p = s.GetBuffer(10);
  wcscpy(p, L"abc");
  s.ReleaseBuffer();
  EXPECT_EQ(s.GetLength(), 3);
  s.GetBuffer(2);
  s.ReleaseBuffer(2);
  EXPECT_EQ(s, L"ab");
}

TEST(CStringNarrow, NarrowTextIsUtf8AndNullIsEmpty) {
  EXPECT_EQ(CString("\xe2\x82\xac"), L"\u20ac");
  EXPECT_EQ(CString(static_cast<const char*>(nullptr)), L"");
  EXPECT_EQ(CString(static_cast<const wchar_t*>(nullptr)), L"");
  EXPECT_EQ(CString(L"\U0001F600").ToUtf8(), "\xf0\x9f\x98\x80");
}

TEST(UnicodeConversion, RoundTripsEveryValidCharacterAndReplacesBadBytes) {
  std::wstring all = L"a\u00e9\u20ac\U0001F600\uFFFF";
  EXPECT_EQ(vglobal::Utf8ToWide(vglobal::WideToUtf8(all)), all);
  EXPECT_EQ(vglobal::Utf16ToWide(vglobal::WideToUtf16(all)), all);
  // Unpaired surrogates survive a trip through UTF-8 (stores keep what was written).
  std::wstring lone(1, static_cast<wchar_t>(0xD800));
  EXPECT_EQ(vglobal::Utf8ToWide(vglobal::WideToUtf8(lone)), lone);
  // Malformed input never stops the conversion.
  EXPECT_EQ(vglobal::Utf8ToWide("a\xff"
                                "b"),
            L"a\uFFFDb");
  EXPECT_EQ(vglobal::Utf8ToWide("\xe2\x82"), L"\uFFFD\uFFFD");
  EXPECT_EQ(vglobal::Utf8ToWide("\xc0\x80"), L"\uFFFD\uFFFD");  // overlong
  std::u16string badPair = u"x";
  badPair.push_back(static_cast<char16_t>(0xDC00));
  EXPECT_EQ(vglobal::Utf16ToWide(badPair), L"x\uFFFD");
}

TEST(Collections, ArraysCheckTheirIndices) {
  CStringArray a;
  a.Add(L"one");
  a.Add(CString(L"two"));
  EXPECT_EQ(a.GetSize(), 2);
  EXPECT_EQ(a[1], L"two");
  EXPECT_THROW(a.GetAt(2), std::out_of_range);
  a.SetAtGrow(4, L"five");
  EXPECT_EQ(a.GetSize(), 5);
  EXPECT_EQ(a[3], L"");
  a.RemoveAt(0, 2);
  EXPECT_EQ(a.GetSize(), 3);
  EXPECT_THROW(a.RemoveAt(2, 5), std::out_of_range);

  CMap<CString, const wchar_t*, int, int> m;
  m.SetAt(L"x", 1);
  int v = 0;
  EXPECT_TRUE(m.Lookup(L"x", v));
  EXPECT_EQ(v, 1);
  EXPECT_FALSE(m.Lookup(L"y", v));
}

TEST(Variant, CopyDuplicatesTheStringAndClearFreesIt) {
  VARIANT a, b;
  VariantInit(&a);
  VariantInit(&b);
  a.vt = VT_BSTR;
  a.bstrVal = SysAllocString(L"text");
  ASSERT_EQ(VariantCopy(&b, &a), S_OK);
  EXPECT_NE(a.bstrVal, b.bstrVal);
  EXPECT_EQ(SysStringLen(b.bstrVal), 4u);
  VariantClear(&a);
  EXPECT_EQ(a.vt, VT_EMPTY);
  EXPECT_STREQ(b.bstrVal, L"text");
  VariantClear(&b);
  BSTR s = CString(L"abc").AllocSysString();
  EXPECT_EQ(SysStringLen(s), 3u);
  SysFreeString(s);
}

const vglobal::StringEntry kAppStrings[] = {{5201, L"application's own text"},
                                            {60000, L"only here"}};
const vglobal::ResourceTables kApp{L"app", kAppStrings, 2, nullptr, 0};

TEST(ResourceStrings, ApplicationTableIsSearchedFirstThenTheLibrary) {
  vglobal::SetApplicationResources(&kApp);
  CString s;
  EXPECT_TRUE(s.LoadString(5201));
  EXPECT_EQ(s, L"application's own text");
  EXPECT_TRUE(s.LoadString(60000));
  vglobal::SetApplicationResources(nullptr);
  EXPECT_FALSE(s.LoadString(60000));
  EXPECT_EQ(s, L"");  // a failed load leaves the string empty
  CString f;
  f.Format(L"%d", 1);
  EXPECT_FALSE(f.LoadString(1));
  EXPECT_TRUE(f.IsEmpty());
}

}  // namespace

TEST(ExtractSubString, CutsAtTheSeparatorAndSaysWhenThePieceIsMissing) {
  CString piece = L"stale";
  EXPECT_TRUE(AfxExtractSubString(piece, L"Open a file\nOpen", 1));
  EXPECT_EQ(piece, CString(L"Open"));
  EXPECT_TRUE(AfxExtractSubString(piece, L"Open a file\nOpen", 0));
  EXPECT_EQ(piece, CString(L"Open a file"));
  EXPECT_TRUE(AfxExtractSubString(piece, L"Status only\n", 1));  // present, empty
  EXPECT_EQ(piece, CString());
  EXPECT_TRUE(AfxExtractSubString(piece, L"a|b|c", 2, L'|'));
  EXPECT_EQ(piece, CString(L"c"));
  for (int index : {2, -1}) {
    piece = L"stale";
    EXPECT_FALSE(AfxExtractSubString(piece, L"Open a file\nOpen", index));
    EXPECT_EQ(piece, CString());
  }
  EXPECT_FALSE(AfxExtractSubString(piece, nullptr, 0));
}
