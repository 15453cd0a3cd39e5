// What callers of CVRegKey rely on, run against both stores: the memory store and the
// SQLite store must behave the same.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "settings_test_support.h"
#include "vglobal/settings.h"

namespace {

using vglobal::SettingsFileKind;
using vglobal::SettingsStore;

struct MemoryStoreKind {
  static std::shared_ptr<SettingsStore> Make(const settings_test::TempDir&) {
    return vglobal::MakeMemorySettingsStore();
  }
};
struct SqliteStoreKind {
  static std::shared_ptr<SettingsStore> Make(const settings_test::TempDir& dir) {
    return vglobal::OpenSqliteSettingsStore(dir / "user.db", SettingsFileKind::User, true);
  }
};

template <typename Kind>
class RegKey : public ::testing::Test {
 protected:
  RegKey() : store_(Kind::Make(dir_)) { vglobal::SetSettingsStore(HKEY_CURRENT_USER, store_); }

  // The stores in force before are restored by the guard.
  vglobal::UseMemorySettingsStores guard_;
  settings_test::TempDir dir_;
  std::shared_ptr<SettingsStore> store_;
};

struct KindNames {
  template <typename T>
  static std::string GetName(int) {
    return std::is_same_v<T, MemoryStoreKind> ? "Memory" : "Sqlite";
  }
};
using StoreKinds = ::testing::Types<MemoryStoreKind, SqliteStoreKind>;
TYPED_TEST_SUITE(RegKey, StoreKinds, KindNames);

std::vector<std::wstring> Names(const CStringArray& names) {
  std::vector<std::wstring> out;
  for (const CString& n : names) out.push_back(n.str());
  return out;
}

TYPED_TEST(RegKey, ValueNamesKeepCreationOrderAndOverwriteKeepsPlace) {
  CVRegKey key(HKEY_CURRENT_USER, L"Order", 1, 1);
  ASSERT_TRUE(key.IsValid());
  key.WriteInt(L"Zeta", 1);
  key.WriteInt(L"alpha", 2);
  key.WriteInt(L"Mid", 3);
  // Another spelling and another type: same value, first spelling and place kept.
  ASSERT_TRUE(key.WriteStr(L"ALPHA", L"now text"));
  CStringArray names;
  ASSERT_TRUE(key.GetSubvalueNames(names));
  EXPECT_EQ(Names(names), (std::vector<std::wstring>{L"Zeta", L"alpha", L"Mid"}));

  CVRegKey reader(HKEY_CURRENT_USER, L"Order", 0, 0);
  CString text;
  EXPECT_TRUE(reader.ReadStr(L"alpha", text));
  EXPECT_EQ(text, CString(L"now text"));
  int number = 42;
  EXPECT_FALSE(reader.ReadInt(L"alpha", &number)) << "a value of another type reads as missing";
  EXPECT_EQ(number, 42);
  double real = 4.5;
  EXPECT_FALSE(reader.ReadDouble(L"Zeta", &real));
  EXPECT_EQ(real, 4.5);
}

TYPED_TEST(RegKey, NamesFoldAcrossUnicode) {
  {
    CVRegKey writer(HKEY_CURRENT_USER, L"Σίγμα\\Ключ", 1, 1);
    writer.WriteInt(L"ÄBC", 1);
    writer.WriteInt(L"Привет", 2);
    writer.WriteInt(L"ωμέγα", 3);
  }
  CVRegKey reader(HKEY_CURRENT_USER, L"ΣΊΓΜΑ\\ключ", 0, 0);
  ASSERT_TRUE(reader.IsValid());
  int a = 0, b = 0, c = 0;
  EXPECT_TRUE(reader.ReadInt(L"äbc", &a));
  EXPECT_TRUE(reader.ReadInt(L"ПРИВЕТ", &b));
  EXPECT_TRUE(reader.ReadInt(L"ΩΜΈΓΑ", &c));
  EXPECT_EQ(std::vector<int>({a, b, c}), std::vector<int>({1, 2, 3}));

  CVRegKey parent(HKEY_CURRENT_USER, L"σίγμα", 0, 0);
  CStringArray keys;
  ASSERT_TRUE(parent.GetSubkeyNames(keys));
  EXPECT_EQ(Names(keys), std::vector<std::wstring>{L"Ключ"}) << "keys keep their first spelling";
}

TYPED_TEST(RegKey, NameLimitsFailCleanly) {
  const std::wstring longestKey(vglobal::kMaxSettingsKeyName, L'k');
  EXPECT_TRUE(CVRegKey(HKEY_CURRENT_USER, longestKey.c_str(), 1, 1).IsValid());
  const std::wstring tooLongKey = longestKey + L"k";
  EXPECT_FALSE(CVRegKey(HKEY_CURRENT_USER, tooLongKey.c_str(), 1, 1).IsValid());
  EXPECT_FALSE(CVRegKey(HKEY_CURRENT_USER, L"a\\\\b", 1, 1).IsValid()) << "empty segment";
  EXPECT_FALSE(CVRegKey(HKEY_CURRENT_USER, L"a\\", 1, 1).IsValid()) << "trailing separator";

  CVRegKey key(HKEY_CURRENT_USER, L"Limits", 1, 1);
  const std::wstring longestValue(vglobal::kMaxSettingsValueName, L'v');
  EXPECT_TRUE(key.WriteInt(longestValue.c_str(), 1));
  EXPECT_FALSE(key.WriteInt((longestValue + L"v").c_str(), 1));
  EXPECT_TRUE(key.WriteInt(L"back\\slash", 2)) << "value names may hold a backslash";
  EXPECT_TRUE(key.WriteInt(nullptr, 3)) << "the default value";
  int v = 0;
  EXPECT_TRUE(key.ReadInt(L"", &v));
  EXPECT_EQ(v, 3);
  CStringArray names;
  key.GetSubvalueNames(names);
  EXPECT_EQ(names.GetSize(), 3);
}

TYPED_TEST(RegKey, ReaderOfMissingKeyFailsEverythingAndCreatesNothing) {
  CVRegKey reader(HKEY_CURRENT_USER, L"Never\\Written", 0, 0);
  EXPECT_FALSE(reader.IsValid());
  int i = 7;
  double d = 7.5;
  CString s(L"untouched");
  unsigned char bytes[4] = {1, 2, 3, 4};
  unsigned long size = sizeof bytes;
  CStringArray list;
  list.Add(L"kept");
  EXPECT_FALSE(reader.ReadInt(L"v", &i));
  EXPECT_FALSE(reader.ReadDouble(L"v", &d));
  EXPECT_FALSE(reader.ReadStr(L"v", s));
  EXPECT_FALSE(reader.ReadBin(L"v", bytes, &size));
  EXPECT_FALSE(reader.ReadMultiStr(L"v", list));
  EXPECT_FALSE(reader.GetSubvalueNames(list));
  EXPECT_FALSE(reader.WriteInt(L"v", 1)) << "no implicit create";
  EXPECT_FALSE(reader.DeleteAll());
  EXPECT_EQ(i, 7);
  EXPECT_EQ(d, 7.5);
  EXPECT_EQ(s, CString(L"untouched"));
  EXPECT_EQ(bytes[0], 1);
  EXPECT_EQ(size, sizeof bytes);
  ASSERT_EQ(list.GetSize(), 1);
  EXPECT_FALSE(CVRegKey(HKEY_CURRENT_USER, L"Never", 0, 0).IsValid()) << "no parent made either";
}

TYPED_TEST(RegKey, DeleteAllThenShorterListLeavesOnlyNewElements) {
  auto writeList = [](int count) {
    CVRegKey list(HKEY_CURRENT_USER, L"Processing Setup\\Levels", 1, 1);
    list.DeleteAll();
    for (int i = 0; i < count; ++i) {
      CString name;
      name.Format(L"Level[%d]", i);
      CVRegKey element(list, name, 1, 1);
      element.WriteInt(L"Index", i);
      CVRegKey nested(element, L"Filter\\Masses", 1, 1);
      nested.WriteDouble(L"Low", i * 0.5);
    }
    list.WriteInt(L"Count", count);
  };
  writeList(5);
  writeList(2);
  CVRegKey list(HKEY_CURRENT_USER, L"Processing Setup\\Levels", 0, 0);
  CStringArray keys, values;
  ASSERT_TRUE(list.GetSubkeyNames(keys));
  ASSERT_TRUE(list.GetSubvalueNames(values));
  EXPECT_EQ(Names(keys), (std::vector<std::wstring>{L"Level[0]", L"Level[1]"}));
  EXPECT_EQ(Names(values), std::vector<std::wstring>{L"Count"});
  EXPECT_FALSE(CVRegKey(HKEY_CURRENT_USER, L"Processing Setup\\Levels\\Level[4]", 0, 0).IsValid());
  double low = 0;
  CVRegKey masses(HKEY_CURRENT_USER, L"Processing Setup\\Levels\\Level[1]\\Filter\\Masses", 0, 0);
  EXPECT_TRUE(masses.ReadDouble(L"Low", &low));
  EXPECT_EQ(low, 0.5);
}

TYPED_TEST(RegKey, DeleteRemovesWholeBranchOnly) {
  CVRegKey(HKEY_CURRENT_USER, L"Tree\\A\\B\\C", 1, 1).WriteInt(L"deep", 1);
  CVRegKey(HKEY_CURRENT_USER, L"Tree\\A\\B2", 1, 1).WriteInt(L"side", 1);
  CVRegKey(HKEY_CURRENT_USER, L"Tree\\Other", 1, 1).WriteInt(L"kept", 1);
  CVRegKey tree(HKEY_CURRENT_USER, L"Tree", 0, 0);
  EXPECT_TRUE(tree.Delete(L"a"));
  EXPECT_FALSE(tree.Delete(L"A")) << "already gone";
  EXPECT_FALSE(CVRegKey(HKEY_CURRENT_USER, L"Tree\\A\\B\\C", 0, 0).IsValid());
  EXPECT_FALSE(CVRegKey(HKEY_CURRENT_USER, L"Tree\\A", 0, 0).IsValid());
  int kept = 0;
  EXPECT_TRUE(CVRegKey(HKEY_CURRENT_USER, L"Tree\\Other", 0, 0).ReadInt(L"kept", &kept));
}

TYPED_TEST(RegKey, StaleKeyNeverReachesARecreatedKey) {
  CVRegKey stale(HKEY_CURRENT_USER, L"Stale\\Key", 1, 1);
  ASSERT_TRUE(stale.WriteInt(L"old", 1));
  ASSERT_TRUE(CVRegKey(HKEY_CURRENT_USER, L"Stale", 0, 0).Delete(L"Key"));
  CVRegKey fresh(HKEY_CURRENT_USER, L"Stale\\Key", 1, 1);
  ASSERT_TRUE(fresh.WriteInt(L"new", 2));
  int v = 0;
  EXPECT_FALSE(stale.ReadInt(L"new", &v));
  EXPECT_FALSE(stale.ReadInt(L"old", &v));
  EXPECT_FALSE(stale.WriteInt(L"lost", 3));
  CStringArray names;
  fresh.GetSubvalueNames(names);
  EXPECT_EQ(Names(names), std::vector<std::wstring>{L"new"});
}

TYPED_TEST(RegKey, ClosedKeyReopensByPathOnWrite) {
  CVRegKey tools(HKEY_CURRENT_USER, L"Tools", 1, 0);
  EXPECT_TRUE(tools.WriteInt(L"Count", 1)) << "second flag 0 still writes";
  tools.Close();
  EXPECT_FALSE(tools.IsValid());
  EXPECT_TRUE(tools.WriteInt(L"Count", 2));
  EXPECT_TRUE(tools.IsValid());
  int count = 0;
  EXPECT_TRUE(CVRegKey(HKEY_CURRENT_USER, L"Tools", 0, 0).ReadInt(L"Count", &count));
  EXPECT_EQ(count, 2);
}

TYPED_TEST(RegKey, ReadAccessRefusesWrites) {
  CVRegKey key(HKEY_CURRENT_USER, L"Access", 1, 1);
  key.WriteInt(L"v", 1);
  ASSERT_TRUE(key.Open(KEY_READ));
  EXPECT_FALSE(key.WriteInt(L"v", 2));
  EXPECT_FALSE(key.DeleteAll());
  int v = 0;
  EXPECT_TRUE(key.ReadInt(L"v", &v));
  EXPECT_EQ(v, 1);
  ASSERT_TRUE(key.Open(KEY_READ | KEY_WRITE));
  EXPECT_TRUE(key.WriteInt(L"v", 2));
}

TYPED_TEST(RegKey, BinaryValuesReportSizeAndRefuseSmallBuffers) {
  CVRegKey key(HKEY_CURRENT_USER, L"Binary", 1, 1);
  std::uint32_t count = 0xA1B2C3D4;
  ASSERT_TRUE(key.WriteBin(L"Count", reinterpret_cast<unsigned char*>(&count), sizeof count));
  std::uint32_t back = 0;
  unsigned long size = 64;
  unsigned char buffer[64] = {};
  ASSERT_TRUE(key.ReadBin(L"Count", buffer, &size));
  EXPECT_EQ(size, 4u);
  std::memcpy(&back, buffer, 4);
  EXPECT_EQ(back, count);

  unsigned char small[3] = {9, 9, 9};
  unsigned long smallSize = sizeof small;
  EXPECT_FALSE(key.ReadBin(L"Count", small, &smallSize));
  EXPECT_EQ(smallSize, 3u);
  EXPECT_EQ(small[0] + small[1] + small[2], 27) << "nothing written into a short buffer";
  unsigned long needed = 0;
  EXPECT_TRUE(key.ReadBin(L"Count", nullptr, &needed));
  EXPECT_EQ(needed, 4u);

  std::vector<unsigned char> big(1 << 20);
  std::mt19937 random(7);
  for (auto& b : big) b = static_cast<unsigned char>(random());
  ASSERT_TRUE(key.WriteBin(L"Big", big.data(), static_cast<unsigned long>(big.size())));
  std::vector<unsigned char> read(big.size());
  unsigned long readSize = static_cast<unsigned long>(read.size());
  ASSERT_TRUE(CVRegKey(HKEY_CURRENT_USER, L"Binary", 0, 0).ReadBin(L"Big", read.data(), &readSize));
  EXPECT_EQ(read, big);

  EXPECT_TRUE(key.WriteBin(L"Empty", nullptr, 0));
  unsigned long emptySize = 8;
  EXPECT_TRUE(key.ReadBin(L"Empty", buffer, &emptySize));
  EXPECT_EQ(emptySize, 0u);
  EXPECT_FALSE(key.WriteBin(L"Bad", nullptr, 4));
}

TYPED_TEST(RegKey, DoublesRoundTripBitForBit) {
  const double values[] = {
      0.1,
      -0.0,
      std::bit_cast<double>(std::uint64_t{0x7FF8000000000123}),  // quiet NaN with payload
      std::bit_cast<double>(std::uint64_t{0xFFF0000000000042}),  // signalling, negative
      std::numeric_limits<double>::denorm_min(),
      -std::numeric_limits<double>::infinity(),
      std::numeric_limits<double>::max(),
  };
  {
    CVRegKey writer(HKEY_CURRENT_USER, L"Doubles", 1, 1);
    for (std::size_t i = 0; i < std::size(values); ++i) {
      writer.WriteDouble(std::to_wstring(i).c_str(), values[i]);
    }
  }
  CVRegKey reader(HKEY_CURRENT_USER, L"Doubles", 0, 0);
  for (std::size_t i = 0; i < std::size(values); ++i) {
    double back = 1.0;
    ASSERT_TRUE(reader.ReadDouble(std::to_wstring(i).c_str(), &back));
    EXPECT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(values[i]))
        << "value " << i;
  }
}

TYPED_TEST(RegKey, StringsAndListsKeepEveryCharacterAndEmptyEntries) {
  CVRegKey key(HKEY_CURRENT_USER, L"Text", 1, 1);
  const wchar_t* text = L"Ünïcødé \U0001D11E and more";
  ASSERT_TRUE(key.WriteStr(L"Text", text));
  ASSERT_TRUE(key.WriteStr(L"Empty", L""));
  CStringArray list;
  for (const wchar_t* s : {L"", L"first", L"", L"\U0001D11E€", L""}) list.Add(s);
  ASSERT_TRUE(key.WriteMultiStr(L"List", list));
  CStringArray none;
  ASSERT_TRUE(key.WriteMultiStr(L"None", none));

  CVRegKey reader(HKEY_CURRENT_USER, L"Text", 0, 0);
  CString s, empty(L"x");
  EXPECT_TRUE(reader.ReadStr(L"Text", s));
  EXPECT_EQ(s, CString(text));
  EXPECT_TRUE(reader.ReadStr(L"Empty", empty));
  EXPECT_TRUE(empty.IsEmpty());
  CStringArray back;
  back.Add(L"replaced");
  ASSERT_TRUE(reader.ReadMultiStr(L"List", back));
  EXPECT_EQ(Names(back), Names(list));
  ASSERT_TRUE(reader.ReadMultiStr(L"None", back));
  EXPECT_EQ(back.GetSize(), 0);
}

TYPED_TEST(RegKey, PathsResolveBelowTheSuiteUnlessTheyStartAtSoftware) {
  CVRegKey(HKEY_CURRENT_USER, L"Explore", 1, 1).WriteInt(L"v", 1);
  CVRegKey(HKEY_CURRENT_USER, L"software\\Ostrel\\Installed Version Info", 1, 1).WriteInt(L"v", 2);
  int v = 0;
  EXPECT_TRUE(
      CVRegKey(HKEY_CURRENT_USER, L"Software\\Ostrel\\Arvenis\\Explore", 0, 0).ReadInt(L"v", &v));
  EXPECT_EQ(v, 1);
  EXPECT_TRUE(
      this->store_->FindKey(vglobal::kSettingsRootKey, L"Software\\Ostrel\\Installed Version Info")
          .ok());

  CVRegKey unbound(0);
  EXPECT_FALSE(unbound.IsValid());
  EXPECT_FALSE(unbound.WriteInt(L"v", 1));
  ASSERT_TRUE(unbound.Init(HKEY_CURRENT_USER, nullptr, 0));
  CStringArray top;
  ASSERT_TRUE(unbound.GetSubkeyNames(top));
  EXPECT_EQ(Names(top), std::vector<std::wstring>{L"Software"}) << "a null path is the root";

  CVRegKey otherRoot(HKEY_USERS, L"Explore", 1, 1);
  EXPECT_FALSE(otherRoot.IsValid());
  EXPECT_FALSE(otherRoot.WriteInt(L"v", 1));
}

}  // namespace
