// Resource texts filled by the message-formatter rules: escapes, inserts with and
// without printf conversions, and formats or arguments that must fail cleanly.
#include "vglobal/util/error_message.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "vglobal/compat/resources.h"

namespace {

// The filled text, or "<failed>" after checking that the output was left alone.
template <typename... Args>
std::wstring Fill(std::wstring_view format, const Args&... args) {
  const vglobal::fmt::Arg captured[] = {CString::Capture(args)..., {}};
  std::wstring out = L"untouched";
  if (vglobal::FormatMessageText(format, captured, sizeof...(Args), out)) return out;
  EXPECT_EQ(out, L"untouched");
  return L"<failed>";
}

TEST(MessageText, EscapesStandForTheirCharacters) {
  EXPECT_EQ(Fill(L"a%%b%nc%rd%te%.f%!g% h"), L"a%b\r\nc\rd\te.f!g h");
  // '%' before a character without a meaning of its own gives that character.
  EXPECT_EQ(Fill(L"%q%Z%-%\n"), L"qZ-\n");
  // %0 ends the text: nothing after it counts, not even a missing argument.
  EXPECT_EQ(Fill(L"kept%0dropped %1 %"), L"kept");
  EXPECT_EQ(Fill(L"%05"), L"");
}

TEST(MessageText, InsertsAreTextsUnlessAConversionSaysOtherwise) {
  EXPECT_EQ(Fill(L"Cannot invoke application %1.", CString(L"a b")),
            L"Cannot invoke application a b.");
  EXPECT_EQ(Fill(L"%2-%1-%2", L"a", "narrow"), L"narrow-a-narrow");
  // Two digits name the tenth argument; a third makes a number beyond the inserts.
  EXPECT_EQ(Fill(L"%100|%1", L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8", L"9", L"ten"),
            L"<failed>");
  EXPECT_EQ(Fill(L"%10|%1", L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8", L"9", L"ten"),
            L"ten|1");
  EXPECT_EQ(Fill(L"%1!d! files, [%2!5.2f!]", 42, 3.14159), L"42 files, [ 3.14]");
  EXPECT_EQ(Fill(L"%1!S!|%2!-4s!|", "narrow", L"ab"), L"narrow|ab  |");
  EXPECT_EQ(Fill(L"%1!08X! %2!I64d! %3!c!", 0xBEEFu, -9000000000LL, L'\u03a9'),
            L"0000BEEF -9000000000 \u03a9");
  EXPECT_EQ(Fill(L"%1!.3e!%!", 1234.5), L"1.234e+03!");
}

TEST(MessageText, MissingUnsuitableOrMalformedFails) {
  EXPECT_EQ(Fill(L"%1"), L"<failed>");
  EXPECT_EQ(Fill(L"%1 then %2!d!", L"a", L"b"), L"<failed>");
  for (const wchar_t* format :
       {L"%1", L"%2", L"%99", L"%1!f!", L"%1!p!", L"%", L"text %", L"%1!d", L"%1!", L"%1!!",
        L"%1!*d!", L"%1!.*f!", L"%1!n!", L"%1!d and more!", L"%1!dd!", L"%1!q!", L"%1!%d!"}) {
    EXPECT_EQ(Fill(format, 5), L"<failed>") << CString(format).ToUtf8();
  }
  EXPECT_EQ(Fill(L"%1!d!", L"text"), L"<failed>");
  EXPECT_EQ(Fill(L"%1!d!", 2.5), L"<failed>");
}

// Random formats made of the characters that matter to the formatter: each either
// fails leaving the output alone or gives a text; none reads past its arguments.
TEST(MessageText, RandomFormatsNeverMisbehave) {
  const std::wstring alphabet = L"%%%!!!0123456789dsSfxcpn.*-# lhI6a";
  std::mt19937 random(20240611);
  std::uniform_int_distribution<std::size_t> length(0, 24), pick(0, alphabet.size() - 1);
  int succeeded = 0;
  for (int round = 0; round < 20000; ++round) {
    std::wstring format(length(random), L' ');
    for (wchar_t& c : format) c = alphabet[pick(random)];
    if (Fill(format, CString(L"t"), 12, 2.5, "n") != L"<failed>") ++succeeded;
  }
  // Both outcomes occur, so the run exercised rendering as well as rejection.
  EXPECT_GT(succeeded, 100);
  EXPECT_LT(succeeded, 20000);
}

// Strings of a test application, searched before the library's own.
const vglobal::StringEntry kTestStrings[] = {
    {64001, L"%1!d! of %2!d! files copied to %3."},
    {64002, L""},
    {64003, L"Broken %"},
};
const vglobal::ResourceTables kTestTables{L"error_message_test", kTestStrings,
                                          std::size(kTestStrings)};

class ErrorMessageFromStrings : public ::testing::Test {
 protected:
  void SetUp() override { vglobal::SetApplicationResources(&kTestTables); }
  void TearDown() override { vglobal::SetApplicationResources(nullptr); }
};

TEST_F(ErrorMessageFromStrings, FillsAStringOfTheResourceChain) {
  CString text;
  ASSERT_EQ(FormatErrorMessage(5201, &text, CString(L"/opt/arvenis/bin/tune")), 1);
  EXPECT_EQ(text, L"Cannot invoke application /opt/arvenis/bin/tune.");
  ASSERT_EQ(FormatErrorMessage(64001, &text, 3, 5, L"/srv/out"), 1);
  EXPECT_EQ(text, L"3 of 5 files copied to /srv/out.");
  ASSERT_EQ(FormatErrorMessage(64002, &text), 1);
  EXPECT_EQ(text, L"");
}

TEST_F(ErrorMessageFromStrings, FailureLeavesTheResultUnchanged) {
  CString text = L"previous";
  EXPECT_EQ(FormatErrorMessage(64999, &text, L"x"), 0);  // no such string
  EXPECT_EQ(FormatErrorMessage(5201, &text), 0);         // missing argument
  EXPECT_EQ(FormatErrorMessage(64001, &text, 3, L"five", L"x"), 0);
  EXPECT_EQ(FormatErrorMessage(64003, &text), 0);
  EXPECT_EQ(text, L"previous");
  EXPECT_EQ(FormatErrorMessage(5201, nullptr, L"x"), 0);
}

}  // namespace
