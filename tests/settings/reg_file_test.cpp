// Registry files read and written as text, without a store.
#include <gtest/gtest.h>

#include "reg_file_parser.h"
#include "reg_file_writer.h"
#include "settings_test_support.h"
#include "vglobal/compat/unicode.h"

namespace {

using arvenis_settings::ExportBranch;
using arvenis_settings::ImportPlan;
using arvenis_settings::ParseRegFile;
using arvenis_settings::RegEncoding;
using arvenis_settings::Root;
using arvenis_settings::WriteRegFile;
using vglobal::SettingsChange;
using vglobal::SettingsValue;

const std::wstring kSuite = L"Software\\Ostrel\\Arvenis";

std::string Utf16Le(std::wstring_view text, bool bom = true) {
  std::string bytes = bom ? std::string("\xFF\xFE") : std::string();
  for (const char16_t unit : vglobal::WideToUtf16(text)) {
    bytes.push_back(static_cast<char>(unit & 0xFF));
    bytes.push_back(static_cast<char>(unit >> 8));
  }
  return bytes;
}

// A version 5.00 file in UTF-8 holding `body` after the header and an empty line.
std::string Reg(const std::string& body) {
  return "Windows Registry Editor Version 5.00\r\n\r\n" + body;
}

std::wstring FromUtf16Le(std::string_view bytes) {
  if (bytes.substr(0, 2) == "\xFF\xFE") bytes.remove_prefix(2);
  std::u16string units;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    units.push_back(static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                          static_cast<unsigned char>(bytes[i + 1]) << 8));
  }
  return vglobal::Utf16ToWide(units);
}

std::string WindowsExport() {
  const std::vector<char> bytes =
      settings_test::FileBytes(VGLOBAL_TEST_DATA_DIR "/windows_export.reg");
  return std::string(bytes.begin(), bytes.end());
}

// The value the plan writes last as `name` of the key at `path`, or null.
const SettingsValue* Written(const ImportPlan& plan, const std::wstring& path,
                             const std::wstring& name) {
  const SettingsValue* found = nullptr;
  for (const SettingsChange& c : plan.changes) {
    if (c.kind == SettingsChange::Kind::WriteValue && c.path == path && c.name == name) {
      found = &*c.value;
    }
  }
  return found;
}

TEST(RegFileRead, WindowsExportGivesEveryKeyAndValueAsTheEditorWroteThem) {
  const ImportPlan plan = ParseRegFile(WindowsExport(), Root::CurrentUser);
  ASSERT_TRUE(plan.ok()) << plan.error->Text();

  std::vector<std::wstring> keys;
  for (const SettingsChange& c : plan.changes) {
    if (c.kind == SettingsChange::Kind::CreateKey) keys.push_back(c.path);
  }
  EXPECT_EQ(keys.size(), 9u);
  EXPECT_EQ(keys.front(), kSuite);
  EXPECT_EQ(keys.back(), kSuite + L"\\Tools\\Item 0");

  const std::wstring search =
      kSuite + L"\\Processing Setup\\Defaults\\Qual\\Library Search Options";
  ASSERT_TRUE(Written(plan, search, L"SearchList"));
  EXPECT_EQ(*Written(plan, search, L"SearchList")->AsMultiString(),
            (std::vector<std::wstring>{L"mainlib", L"replib", L"Ostrel pesticides 2019"}));
  EXPECT_EQ(*Written(plan, search, L"UserLibrary")->AsString(),
            L"D:\\Arvenis\\Libraries\\Lab \"B\" \u00B5g/mL");
  EXPECT_EQ(*Written(plan, search, L"NumMaxHits")->AsInt(), 20);

  const std::wstring tools = kSuite + L"\\Tools";
  EXPECT_EQ(*Written(plan, tools, L"")->AsString(), L"Tools menu");
  EXPECT_EQ(*Written(plan, tools, L"Offset")->AsInt(), -1);
  // An expandable string keeps its text; the continuation lines join without their
  // indent.
  EXPECT_EQ(*Written(plan, tools + L"\\Item 0", L"Command")->AsString(),
            L"%ProgramFiles%\\Ostrel\\Arvenis\\bin\\spectrum-viewer.exe");
  EXPECT_EQ(*Written(plan, tools + L"\\Item 0", L"Arguments")->AsString(),
            L"--file \"%1\" --mode=\\\\server\\share");
  EXPECT_EQ(*Written(plan, tools + L"\\Item 0", L"Empty")->AsString(), L"");

  const std::wstring toolbar = kSuite + L"\\Toolbars\\Main";
  std::vector<std::uint8_t> state(120);
  for (std::size_t i = 0; i < state.size(); ++i) state[i] = static_cast<std::uint8_t>(i);
  EXPECT_EQ(*Written(plan, toolbar, L"State")->AsBinary(), state);
  EXPECT_TRUE(Written(plan, toolbar, L"Flags")->AsBinary()->empty());
}

TEST(RegFileWrite, HexDataWrapsExactlyWhereTheEditorWrapsIt) {
  const ImportPlan plan = ParseRegFile(WindowsExport(), Root::CurrentUser);
  ASSERT_TRUE(plan.ok());
  const std::wstring search =
      kSuite + L"\\Processing Setup\\Defaults\\Qual\\Library Search Options";
  const std::wstring toolbar = kSuite + L"\\Toolbars\\Main";
  const ExportBranch branch{
      {search, {{L"SearchList", *Written(plan, search, L"SearchList")}}},
      {toolbar, {{L"State", *Written(plan, toolbar, L"State")}}},
  };
  const std::wstring written =
      FromUtf16Le(WriteRegFile(branch, Root::CurrentUser, RegEncoding::Utf16).bytes);
  const std::wstring editor = FromUtf16Le(WindowsExport());
  for (const std::wstring_view start : {L"\"SearchList\"=hex(7):", L"\"State\"=hex:"}) {
    // The lines the editor wrote for the value: up to the line end that does not follow
    // a backslash.
    const std::size_t from = editor.find(start);
    ASSERT_NE(from, std::wstring::npos);
    std::size_t end = from;
    do {
      end = editor.find(L"\r\n", end + 1);
    } while (editor[end - 1] == L'\\');
    const std::wstring lines = editor.substr(from, end + 2 - from);
    EXPECT_NE(written.find(lines), std::wstring::npos) << vglobal::WideToUtf8(lines);
  }
}

TEST(RegFileWrite, StartsLikeTheEditorsFilesAndEscapesOnlyWhatItMust) {
  const ExportBranch branch{
      {kSuite, {}},
      {kSuite + L"\\A]b",
       {{L"", SettingsValue::String(L"q\"b\\")},
        {L"n=\"1\"", SettingsValue::Int(10)},
        {L"tab", SettingsValue::String(L"a\tb \u00E9")},
        {L"d", SettingsValue::Double(0.1)}}},
  };
  EXPECT_EQ(WriteRegFile(branch, Root::LocalMachine, RegEncoding::Utf8).bytes,
            "Windows Registry Editor Version 5.00\n\n"
            "[HKEY_LOCAL_MACHINE\\Software\\Ostrel\\Arvenis]\n\n"
            "[HKEY_LOCAL_MACHINE\\Software\\Ostrel\\Arvenis\\A]b]\n"
            "@=\"q\\\"b\\\\\"\n"
            "\"n=\\\"1\\\"\"=dword:0000000a\n"
            "\"tab\"=\"a\tb \xC3\xA9\"\n"
            "\"d\"=hex(100000):9a,99,99,99,99,99,b9,3f\n\n");
  const std::string utf16 = WriteRegFile(branch, Root::LocalMachine, RegEncoding::Utf16).bytes;
  EXPECT_EQ(utf16.substr(0, 4), std::string("\xFF\xFEW\0", 4));
  EXPECT_NE(utf16.find(Utf16Le(L"5.00\r\n\r\n[", false)), std::string::npos);
}

TEST(RegFileWrite, TextNoLineCanHoldGoesAsHexAndNamesThatBreakLinesAreRefused) {
  const std::wstring text(L"two\r\nlines and a zero \0 inside", 29);
  const ExportBranch branch{{kSuite, {{L"t", SettingsValue::String(text)}}}};
  const auto out = WriteRegFile(branch, Root::CurrentUser, RegEncoding::Utf8);
  ASSERT_TRUE(out.ok());
  EXPECT_NE(out.bytes.find("\"t\"=hex(1):74,00,77,00,6f,00,0d,00,0a,00"), std::string::npos);
  const ImportPlan back = ParseRegFile(out.bytes, Root::CurrentUser);
  ASSERT_TRUE(back.ok()) << back.error->Text();
  EXPECT_EQ(*Written(back, kSuite, L"t")->AsString(), text);

  const auto badValue = WriteRegFile({{kSuite, {{L"a\nb", SettingsValue::Int(1)}}}},
                                     Root::CurrentUser, RegEncoding::Utf16);
  EXPECT_FALSE(badValue.ok());
  EXPECT_TRUE(badValue.bytes.empty());
  EXPECT_NE(badValue.error.find("--json"), std::string::npos);
  EXPECT_FALSE(
      WriteRegFile({{kSuite + L"\\x\ry", {}}}, Root::CurrentUser, RegEncoding::Utf16).ok());
}

struct BadFile {
  std::string body;  // after the header line and an empty line: line 3 is the first
  std::size_t line, column;
  std::string expected;  // part of the message
};

TEST(RegFileRead, EveryErrorNamesItsLineAndColumnAndWhatWasExpected) {
  const std::string key = "[HKEY_CURRENT_USER\\Software\\Ostrel\\Arvenis]\r\n";
  const std::vector<BadFile> files{
      {"\"a\"=dword:1\r\n", 3, 1, "expected a [key] line before the first value"},
      {"junk\r\n", 3, 1, "expected a key in brackets"},
      {"[HKEY_CURRENT_USER\\Software\\Ostrel\r\n", 3, 35, "expected ']'"},
      {"[HKEY_CURRENT_USER\\Software\\Ostrel] x\r\n", 3, 37, "end of the line after ']'"},
      {"[HKEY_CLASSES_ROOT\\Software\\Ostrel]\r\n", 3, 2, "not one of the suite's roots"},
      {"[Software\\Ostrel]\r\n", 3, 2, "expected a root key"},
      {"[HKEY_CURRENT_USER\\Software\\Other]\r\n", 3, 2, "outside the suite's keys"},
      {"[-HKEY_CURRENT_USER\\Software]\r\n", 3, 3, "outside the suite's keys"},
      {"[HKEY_LOCAL_MACHINE\\Software\\Ostrel]\r\n", 3, 2, "import the file with --machine"},
      {"[HKCU\\Software\\\\Ostrel]\r\n", 3, 16, "expected a key name"},
      {"[HKCU\\Software\\Ostrel\\" + std::string(256, 'k') + "]\r\n", 3, 23, "longer than 255"},
      {key + "\"a\"=\"C:\\dir\"\r\n", 4, 8, "expected \\\\ or \\\" after a backslash"},
      {key + "\"a\"=\"abc\r\n", 4, 9, "to end the text that begins in column 5"},
      {key + "\"a\" dword:1\r\n", 4, 5, "expected '='"},
      {key + "\"a\"=word:1\r\n", 4, 5, "expected the value"},
      {key + "\"a\"=dword:123456789\r\n", 4, 11, "1 to 8 hexadecimal digits"},
      {key + "\"a\"=dword:1 2\r\n", 4, 13, "end of the line after the value"},
      {key + "\"a\"=hex:01,\\\r\n", 4, 12, "continue on the next line"},
      {key + "\"a\"=hex:01,\\\r\n  0g\r\n", 5, 4, "expected ',' or the end of the line"},
      {key + "\"a\"=hex:01,\r\n", 4, 12, "after ','"},
      {key + "\"a\"=hex(b):00,00,00,00,00,00,00,00\r\n", 4, 8, "64-bit integer"},
      {key + "\"a\"=hex(0):\r\n", 4, 8, "type hex(0)"},
      {key + "\"a\"=hex(4):01,02,03\r\n", 4, 8, "expected 4 bytes for a dword, not 3"},
      {key + "\"a\"=hex(100000):01\r\n", 4, 8, "expected 8 bytes"},
      {key + "\"a\"=hex(1):41\r\n", 4, 8, "even number of bytes"},
      {key + "\"a\"=hex(:00\r\n", 4, 9, "for the value type"},
      {"[-HKCU\\Software\\Ostrel\\X]\r\n\"a\"=dword:1\r\n", 4, 1, "takes no values"},
      {key + "\"" + std::string(16384, 'v') + "\"=dword:1\r\n", 4, 1, "longer than 16383"},
  };
  for (const BadFile& f : files) {
    const ImportPlan plan = ParseRegFile(Reg(f.body), Root::CurrentUser);
    ASSERT_FALSE(plan.ok()) << f.body;
    EXPECT_TRUE(plan.changes.empty()) << f.body;
    EXPECT_EQ(plan.error->where.line, f.line) << f.body << plan.error->Text();
    EXPECT_EQ(plan.error->where.column, f.column) << f.body << plan.error->Text();
    EXPECT_NE(plan.error->message.find(f.expected), std::string::npos)
        << f.body << plan.error->Text();
  }
  // The same errors, line and column, in the editor's own encoding.
  const std::wstring body = L"[HKCU\\Software\\Ostrel]\r\n\"\u00B5\u00B5\"=\"C:\\dir\"\r\n";
  const ImportPlan utf16 = ParseRegFile(
      Utf16Le(L"Windows Registry Editor Version 5.00\r\n\r\n" + body), Root::CurrentUser);
  ASSERT_FALSE(utf16.ok());
  EXPECT_EQ(utf16.error->Text().substr(0, 18), "line 4, column 9: ");
}

TEST(RegFileRead, HeaderAndEncodingsTheEditorAndOlderToolsWrite) {
  const std::wstring text =
      L"Windows Registry Editor Version 5.00\r\n\r\n"
      L"[HKEY_CURRENT_USER\\Software\\Ostrel]\r\n\"\u00E9t\u00E9\"=\"\u20AC \U0001F600\"\r\n";
  const std::string utf8 = vglobal::WideToUtf8(text);
  for (const std::string& bytes :
       {Utf16Le(text), Utf16Le(text, false), utf8, "\xEF\xBB\xBF" + utf8}) {
    const ImportPlan plan = ParseRegFile(bytes, Root::CurrentUser);
    ASSERT_TRUE(plan.ok()) << plan.error->Text();
    ASSERT_TRUE(Written(plan, L"Software\\Ostrel", L"\u00E9t\u00E9"));
    EXPECT_EQ(*Written(plan, L"Software\\Ostrel", L"\u00E9t\u00E9")->AsString(),
              L"\u20AC \U0001F600");
  }

  // REGEDIT4: code page 1252 text, and 8-bit string data in hex(2) and hex(7).
  const ImportPlan old = ParseRegFile(
      "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Ostrel\\Arvenis]\r\n"
      "\"Units\"=\"\xB5g \x80\"\r\n\"Path\"=hex(2):25,41,25,00\r\n"
      "\"List\"=hex(7):61,00,00,b5,00,00\r\n",
      Root::LocalMachine);
  ASSERT_TRUE(old.ok()) << old.error->Text();
  EXPECT_EQ(*Written(old, kSuite, L"Units")->AsString(), L"\u00B5g \u20AC");
  EXPECT_EQ(*Written(old, kSuite, L"Path")->AsString(), L"%A%");
  EXPECT_EQ(*Written(old, kSuite, L"List")->AsMultiString(),
            (std::vector<std::wstring>{L"a", L"", L"\u00B5"}));

  const auto error = [](const std::string& bytes) {
    const ImportPlan plan = ParseRegFile(bytes, Root::CurrentUser);
    return plan.ok() ? std::string("no error") : plan.error->Text();
  };
  EXPECT_EQ(error(""), error("Windows Registry Editor Version 4.00\r\n"));
  EXPECT_NE(error("{\"format\": 1}").find("use --json"), std::string::npos);
  EXPECT_NE(error("\xFE\xFF\0W").find("big-endian"), std::string::npos);
  EXPECT_NE(error(Utf16Le(L"Windows Registry Editor Version 5.00\r\n") + "x")
                .find("line 2, column 1: the file ends in the middle of a UTF-16 character"),
            std::string::npos);
  EXPECT_NE(error(Reg("[HKCU\\Software\\Ostrel]\r\n\"a\"=\"\xC3\"\r\n"))
                .find("line 4, column 6: expected UTF-8 text"),
            std::string::npos);
}

TEST(RegFileRead, RootsAbbreviationsDeletionsAndComments) {
  const ImportPlan plan = ParseRegFile(
      "Windows Registry Editor Version 5.00\n"
      "; a comment, then a blank line with spaces\n"
      "   \n"
      "[hklm\\SOFTWARE\\ostrel\\Arvenis\\Old]\n"
      "  \"kept\" = dword:0000002A\n"
      "\"gone\"=-\n"
      "@=-\n"
      "[-HKEY_LOCAL_MACHINE\\Software\\Ostrel\\Arvenis\\Older]\n",
      Root::LocalMachine);
  ASSERT_TRUE(plan.ok()) << plan.error->Text();
  ASSERT_EQ(plan.changes.size(), 5u);
  using Kind = SettingsChange::Kind;
  EXPECT_EQ(plan.changes[0].kind, Kind::CreateKey);
  EXPECT_EQ(plan.changes[0].path, L"SOFTWARE\\ostrel\\Arvenis\\Old");
  EXPECT_EQ(*plan.changes[1].value->AsInt(), 42);
  EXPECT_EQ(plan.changes[2].kind, Kind::DeleteValue);
  EXPECT_EQ(plan.changes[2].name, L"gone");
  EXPECT_EQ(plan.changes[3].kind, Kind::DeleteValue);
  EXPECT_EQ(plan.changes[3].name, L"");
  EXPECT_EQ(plan.changes[4].kind, Kind::DeleteKey);
  EXPECT_EQ(plan.changes[4].path, L"Software\\Ostrel\\Arvenis\\Older");
  // The machine's keys do not go to the user's store.
  const ImportPlan user = ParseRegFile(Reg("[HKCU\\Software\\Ostrel]\r\n"), Root::LocalMachine);
  ASSERT_FALSE(user.ok());
  EXPECT_NE(user.error->message.find("without --machine"), std::string::npos);
}

}  // namespace
