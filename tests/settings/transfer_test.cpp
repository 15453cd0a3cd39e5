// Export and import through real store files: every kind of value comes back bit for
// bit, in every file format; JSON errors name their place.
#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <random>

#include "json_transfer.h"
#include "reg_file_parser.h"
#include "reg_file_writer.h"
#include "settings_test_support.h"
#include "store_transfer.h"
#include "vglobal/compat/unicode.h"

namespace {

using arvenis_settings::ExportBranch;
using arvenis_settings::ImportPlan;
using arvenis_settings::ReadBranch;
using arvenis_settings::Root;
using vglobal::SettingsStore;
using vglobal::SettingsValue;

const std::wstring kTop = L"Software\\Ostrel\\Arvenis\\Round Trip";

std::shared_ptr<SettingsStore> NewStore(const std::string& file) {
  auto store = vglobal::OpenSqliteSettingsStore(file, vglobal::SettingsFileKind::User, true);
  EXPECT_EQ(store->Status().state, vglobal::SettingsStoreState::Writable);
  return store;
}

void Put(SettingsStore& store, const std::wstring& path, const std::wstring& name,
         SettingsValue value) {
  const auto key = store.CreateKey(vglobal::kSettingsRootKey, path);
  ASSERT_TRUE(key.ok());
  ASSERT_EQ(store.WriteValue(*key, name, value), vglobal::SettingsError::None);
}

// Every type, with the values that break careless encoders.
void FillWithEveryKindOfValue(SettingsStore& store) {
  std::wstring longText;
  const std::wstring_view cycle = L"a\u00E9\u4E2D\U0001F600\"\\ ,=[]";
  for (std::size_t i = 0; i < 200000; ++i) longText += cycle[i % cycle.size()];
  std::vector<std::uint8_t> bytes(100000);
  std::mt19937 random(6);
  for (std::uint8_t& b : bytes) b = static_cast<std::uint8_t>(random());

  const std::wstring strings = kTop + L"\\Strings";
  Put(store, strings, L"", SettingsValue::String(L"the default value"));
  Put(store, strings, L"empty", SettingsValue::String(L""));
  Put(store, strings, L"long", SettingsValue::String(longText));
  Put(store, strings, L"quotes \"and\" \\back\\slashes\\",
      SettingsValue::String(L"\"C:\\dir\\\" \\\\server\\share\\"));
  Put(store, strings, L"non-ASCII \u00FC", SettingsValue::String(L"\u00B5g/mL \u4E2D\U0001F600"));
  Put(store, strings, L"line breaks", SettingsValue::String(L"one\r\ntwo\nthree\r"));
  Put(store, strings, L"zero inside", SettingsValue::String(std::wstring(L"a\0b\0", 4)));
  Put(store, strings, L"tab\tand =", SettingsValue::String(L"\t"));

  const std::wstring numbers = kTop + L"\\Numbers";
  for (const std::int32_t i : {0, -1, std::numeric_limits<std::int32_t>::min(),
                               std::numeric_limits<std::int32_t>::max()}) {
    Put(store, numbers, L"int " + std::to_wstring(i), SettingsValue::Int(i));
  }
  using Limits = std::numeric_limits<double>;
  const double doubles[] = {0.1,
                            -0.0,
                            0.0,
                            1e308,
                            -Limits::max(),
                            Limits::denorm_min(),
                            std::nextafter(Limits::min(), 0.0),  // the largest subnormal
                            Limits::min(),
                            1.0 / 3.0,
                            Limits::infinity(),
                            -Limits::infinity(),
                            std::bit_cast<double>(0x7FF8000000000123ull),   // NaN with payload
                            std::bit_cast<double>(0xFFF0000000000001ull)};  // signalling
  for (std::size_t i = 0; i < std::size(doubles); ++i) {
    Put(store, numbers, L"double " + std::to_wstring(i), SettingsValue::Double(doubles[i]));
  }

  const std::wstring data = kTop + L"\\Data ]\\Nested \u00E9";
  Put(store, data, L"no bytes", SettingsValue::Binary({}));
  Put(store, data, L"100000 bytes", SettingsValue::Binary(bytes));
  using List = std::vector<std::wstring>;
  Put(store, data, L"no strings", SettingsValue::MultiString({}));
  Put(store, data, L"one empty", SettingsValue::MultiString(List{L""}));
  Put(store, data, L"two empty", SettingsValue::MultiString(List{L"", L""}));
  Put(store, data, L"empty inside", SettingsValue::MultiString(List{L"a", L"", L"c"}));
  Put(store, data, L"empty last", SettingsValue::MultiString(List{L"x \"q\" \\", L""}));
  ASSERT_TRUE(store.CreateKey(vglobal::kSettingsRootKey, kTop + L"\\Empty Key").ok());
  // Written last but spelled in another case: names keep their first spelling.
  Put(store, strings, L"EMPTY", SettingsValue::String(L"overwritten"));
}

void ExpectSameBranch(const ExportBranch& a, const ExportBranch& b) {
  ASSERT_EQ(a.size(), b.size());
  for (std::size_t k = 0; k < a.size(); ++k) {
    EXPECT_EQ(a[k].path, b[k].path);
    ASSERT_EQ(a[k].values.size(), b[k].values.size()) << vglobal::WideToUtf8(a[k].path);
    for (std::size_t v = 0; v < a[k].values.size(); ++v) {
      EXPECT_EQ(a[k].values[v].first, b[k].values[v].first);
      EXPECT_TRUE(a[k].values[v].second.SameAs(b[k].values[v].second))
          << vglobal::WideToUtf8(a[k].path) << " " << vglobal::WideToUtf8(a[k].values[v].first);
    }
  }
}

TEST(TransferRoundTrip, EveryValueComesBackBitForBitInEveryFormat) {
  settings_test::TempDir dir;
  auto source = NewStore(dir / "source.db");
  FillWithEveryKindOfValue(*source);
  // Exported as a user names it: the store's own spelling comes out.
  const auto branch = ReadBranch(*source, L"software\\OSTREL\\arvenis\\round trip");
  ASSERT_TRUE(branch.ok());
  EXPECT_EQ(branch->front().path, kTop);
  EXPECT_EQ(branch->size(), 6u);

  const std::vector<std::pair<std::string, std::function<ImportPlan()>>> formats{
      {"UTF-16 registry file",
       [&] {
         return arvenis_settings::ParseRegFile(
             WriteRegFile(*branch, Root::CurrentUser, arvenis_settings::RegEncoding::Utf16).bytes,
             Root::CurrentUser);
       }},
      {"UTF-8 registry file",
       [&] {
         return arvenis_settings::ParseRegFile(
             WriteRegFile(*branch, Root::CurrentUser, arvenis_settings::RegEncoding::Utf8).bytes,
             Root::CurrentUser);
       }},
      {"JSON",
       [&] {
         return arvenis_settings::ParseJson(WriteJson(*branch, Root::CurrentUser).text,
                                            Root::CurrentUser);
       }},
  };
  for (std::size_t i = 0; i < formats.size(); ++i) {
    SCOPED_TRACE(formats[i].first);
    const ImportPlan plan = formats[i].second();
    ASSERT_TRUE(plan.ok()) << plan.error->Text();
    auto target = NewStore(dir / ("target" + std::to_string(i) + ".db"));
    ASSERT_TRUE(target->Apply(plan.changes).ok());
    const auto back = ReadBranch(*target, kTop);
    ASSERT_TRUE(back.ok());
    ExpectSameBranch(*branch, *back);
    // A second import of the same file leaves the store as it was.
    ASSERT_TRUE(target->Apply(plan.changes).ok());
    ExpectSameBranch(*branch, ReadBranch(*target, kTop).value());
  }
}

TEST(TransferImport, MergesIntoTheStoreAndDeletesOnlyWhatTheFileDeletes) {
  settings_test::TempDir dir;
  auto store = NewStore(dir / "user.db");
  const std::wstring suite = L"Software\\Ostrel\\Arvenis";
  Put(*store, suite + L"\\Keep", L"v", SettingsValue::Int(1));
  Put(*store, suite + L"\\Old\\Deep", L"x", SettingsValue::Int(2));
  Put(*store, suite + L"\\Tools", L"a", SettingsValue::Int(3));
  Put(*store, suite + L"\\Tools", L"b", SettingsValue::Int(4));
  const ImportPlan plan = arvenis_settings::ParseRegFile(
      "Windows Registry Editor Version 5.00\n\n"
      "[HKEY_CURRENT_USER\\Software\\Ostrel\\Arvenis\\Tools]\n\"A\"=dword:00000009\n\"b\"=-\n\n"
      "[-HKEY_CURRENT_USER\\Software\\Ostrel\\Arvenis\\Old]\n\n"
      "[-HKEY_CURRENT_USER\\Software\\Ostrel\\Arvenis\\Never There]\n\n"
      "[HKEY_CURRENT_USER\\Software\\Ostrel\\Arvenis\\New]\n",
      Root::CurrentUser);
  ASSERT_TRUE(plan.ok()) << plan.error->Text();
  ASSERT_TRUE(store->Apply(plan.changes).ok());

  const auto after = ReadBranch(*store, suite);
  ASSERT_TRUE(after.ok());
  std::vector<std::wstring> paths;
  for (const auto& key : *after) paths.push_back(key.path.substr(suite.size()));
  EXPECT_EQ(paths, (std::vector<std::wstring>{L"", L"\\Keep", L"\\Tools", L"\\New"}));
  EXPECT_EQ(after->at(1).values.size(), 1u);
  ASSERT_EQ(after->at(2).values.size(), 1u);
  EXPECT_EQ(after->at(2).values[0].first, L"a");  // the stored spelling stays
  EXPECT_EQ(*after->at(2).values[0].second.AsInt(), 9);
}

// A document whose line L holds the text `marker` in column C.
struct JsonCase {
  std::string from, to;  // the change made to the sound document
  std::string marker;    // where the error must point: the first place this text starts
  std::string expected;  // part of the message
};

TEST(JsonImport, ErrorsNameTheLineAndColumnOfTheValueAndWhatWasExpected) {
  const std::string sound =
      "{\n"
      "  \"format\": \"arvenis-settings\",\n"
      "  \"version\": 1,\n"
      "  \"root\": \"HKEY_CURRENT_USER\",\n"
      "  \"keys\": [\n"
      "    {\"path\": \"Software\\\\Ostrel\\\\Arvenis\", \"values\": [\n"
      "      {\"name\": \"n\", \"type\": \"REG_DWORD\", \"data\": 4294967295},\n"
      "      {\"name\": \"d\", \"type\": \"REG_DOUBLE\", \"data\": \"0x7ff8000000000001\"},\n"
      "      {\"name\": \"b\", \"type\": \"REG_BINARY\", \"data\": \"00ff\"}\n"
      "    ]}\n"
      "  ]\n"
      "}\n";
  const ImportPlan plan = arvenis_settings::ParseJson(sound, Root::CurrentUser);
  ASSERT_TRUE(plan.ok()) << plan.error->Text();
  ASSERT_EQ(plan.changes.size(), 4u);
  EXPECT_EQ(*plan.changes[1].value->AsInt(), -1);
  EXPECT_EQ(std::bit_cast<std::uint64_t>(*plan.changes[2].value->AsDouble()),
            0x7ff8000000000001ull);

  const std::vector<JsonCase> cases{
      {"4294967295", "4294967296", "4294967296", "expected an integer"},
      {"4294967295", "1.5", "1.5", "expected an integer"},
      {"\"REG_DWORD\"", "\"REG_QWORD\"", "\"REG_QWORD\"", "expected \"REG_DWORD\""},
      {"\"00ff\"", "\"0ff\"", "\"0ff\"", "hexadecimal digit pairs"},
      {"\"0x7ff8000000000001\"", "\"NaN\"", "\"NaN\"", "expected a number, or \"0x\""},
      {"\"name\": \"n\", ", "", "{\"type\": \"REG_DWORD\"", "expected the member \"name\""},
      {"\"data\": 4294967295", "\"data\": 1, \"extra\": [1]", "[1]", "unexpected member \"extra\""},
      {"HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE", "\"HKEY_LOCAL_MACHINE\"", "with --machine"},
      {"\"version\": 1", "\"version\": 2", "2,", "newer version"},
      {"Software\\\\Ostrel\\\\Arvenis", "Software\\\\Other", "\"Software\\\\Other\"",
       "outside the suite's keys"},
      {"Software\\\\Ostrel\\\\Arvenis", "Software\\\\Ostrel\\\\\\\\A",
       "\"Software\\\\Ostrel\\\\\\\\A", "key names of 1 to 255 characters"},
      {"\"00ff\"}", "\"00ff\",}", "}\n    ]", "expected JSON: syntax error"},
  };
  for (const JsonCase& c : cases) {
    std::string text = sound;
    text.replace(text.find(c.from), c.from.size(), c.to);
    const ImportPlan bad = arvenis_settings::ParseJson(text, Root::CurrentUser);
    ASSERT_FALSE(bad.ok()) << c.to;
    EXPECT_TRUE(bad.changes.empty());
    const std::size_t at = text.find(c.marker);
    ASSERT_NE(at, std::string::npos) << c.marker;
    const std::size_t lineStart = text.rfind('\n', at) + 1;
    const std::size_t line = 1 + std::count(text.begin(), text.begin() + at, '\n');
    EXPECT_EQ(bad.error->where.line, line) << bad.error->Text();
    EXPECT_EQ(bad.error->where.column, at - lineStart + 1) << bad.error->Text();
    EXPECT_NE(bad.error->message.find(c.expected), std::string::npos) << bad.error->Text();
  }
}

TEST(JsonExport, WritesTheSchemaScriptsReadAndRefusesTextThatIsNotUnicode) {
  const ExportBranch branch{
      {L"Software\\Ostrel\\Arvenis\\K",
       {{L"i", SettingsValue::Int(-5)},
        {L"d", SettingsValue::Double(-0.0)},
        {L"inf", SettingsValue::Double(std::numeric_limits<double>::infinity())},
        {L"m", SettingsValue::MultiString({L"a", L""})}}}};
  EXPECT_EQ(WriteJson(branch, Root::LocalMachine).text,
            "{\n"
            "  \"format\": \"arvenis-settings\",\n"
            "  \"version\": 1,\n"
            "  \"root\": \"HKEY_LOCAL_MACHINE\",\n"
            "  \"keys\": [\n"
            "    {\n"
            "      \"path\": \"Software\\\\Ostrel\\\\Arvenis\\\\K\",\n"
            "      \"values\": [\n"
            "        {\n          \"name\": \"i\",\n          \"type\": \"REG_DWORD\",\n"
            "          \"data\": -5\n        },\n"
            "        {\n          \"name\": \"d\",\n          \"type\": \"REG_DOUBLE\",\n"
            "          \"data\": -0.0\n        },\n"
            "        {\n          \"name\": \"inf\",\n          \"type\": \"REG_DOUBLE\",\n"
            "          \"data\": \"0x7ff0000000000000\"\n        },\n"
            "        {\n          \"name\": \"m\",\n          \"type\": \"REG_MULTI_SZ\",\n"
            "          \"data\": [\n            \"a\",\n            \"\"\n          ]\n"
            "        }\n"
            "      ]\n"
            "    }\n"
            "  ]\n"
            "}\n");
  const auto unpaired = WriteJson(
      {{L"Software\\Ostrel", {{L"s", SettingsValue::String(std::wstring(1, wchar_t(0xD800)))}}}},
      Root::CurrentUser);
  EXPECT_FALSE(unpaired.ok());
  EXPECT_NE(unpaired.error.find("--utf8"), std::string::npos);
}

}  // namespace
