// The decoders of legacy 8-bit text and of UTF-16LE bytes.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "vglobal/compat/unicode.h"

namespace {

using namespace std::string_literals;

TEST(Windows1252, ReadsTheHighBytesAsTheCodePageAndLosesNone) {
  EXPECT_EQ(vglobal::Windows1252ToWide("\x80"), L"\u20AC");  // euro sign
  EXPECT_EQ(vglobal::Windows1252ToWide("\x9F"), L"\u0178");
  EXPECT_EQ(vglobal::Windows1252ToWide("\x93quoted\x94 \x96"), L"\u201Cquoted\u201D \u2013");
  EXPECT_EQ(vglobal::Windows1252ToWide("caf\xE9 \xA0\xFF"), L"caf\u00E9 \u00A0\u00FF");
  // The bytes the code page leaves undefined keep their number, as Latin-1 reads them.
  EXPECT_EQ(vglobal::Windows1252ToWide("\x81\x8D\x8F\x90\x9D"), L"\u0081\u008D\u008F\u0090\u009D");

  std::string all;
  for (int b = 0; b < 256; ++b) all.push_back(static_cast<char>(b));
  const std::wstring text = vglobal::Windows1252ToWide(all);
  ASSERT_EQ(text.size(), 256u);
  EXPECT_EQ(std::set<wchar_t>(text.begin(), text.end()).size(), 256u);  // no two bytes alike
  EXPECT_EQ(text.find(L'\uFFFD'), std::wstring::npos);
}

TEST(EightBitText, IsUtf8WhenWholeElseTheCodePage) {
  EXPECT_EQ(vglobal::EightBitToWide("caf\xC3\xA9 \xE2\x82\xAC"), L"caf\u00E9 \u20AC");
  // One stray byte makes the whole text 8-bit: the UTF-8 looking pair is two characters.
  EXPECT_EQ(vglobal::EightBitToWide("\xC3\xA9\x80"), L"\u00C3\u00A9\u20AC");
  EXPECT_EQ(vglobal::EightBitToWide("\xED\xA0\x80"), L"\u00ED\u00A0\u20AC");  // encoded surrogate
  EXPECT_EQ(vglobal::EightBitToWide(""), L"");
}

TEST(Utf16Le, PairsSurrogatesAndReplacesWhatIsBroken) {
  EXPECT_EQ(vglobal::Utf16LeToWide("a\0\xE9\0\xAC\x20"s), L"a\u00E9\u20AC");
  EXPECT_EQ(vglobal::Utf16LeToWide("\x3D\xD8\x00\xDE"s), L"\U0001F600");
  EXPECT_EQ(vglobal::Utf16LeToWide("\x3D\xD8"
                                   "a\0"s),
            L"\uFFFDa");                                          // lone high surrogate
  EXPECT_EQ(vglobal::Utf16LeToWide("a\0\x00\xDE"s), L"a\uFFFD");  // lone low surrogate
  EXPECT_EQ(vglobal::Utf16LeToWide("\x3D\xD8"s), L"\uFFFD");      // a pair cut short
  // An odd last byte is half a unit.
  EXPECT_EQ(vglobal::Utf16LeToWide("a\0b"s), L"a\uFFFD");
  EXPECT_EQ(vglobal::Utf16LeToWide("b"s), L"\uFFFD");
  // Zero units are text like any other; where the text ends is the caller's rule.
  EXPECT_EQ(vglobal::Utf16LeToWide("a\0\0\0b\0"s), L"a\0b"s);
}

}  // namespace
