// The memory store's undo log: a failed batch or an abandoned transaction leaves the
// store exactly as it was, ids included; transactions nest, a failure dooms them, and
// other threads wait while one is open.
#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <future>
#include <thread>

#include "vglobal/settings_store.h"

namespace {

using vglobal::kSettingsRootKey;
using vglobal::SettingsError;
using vglobal::SettingsKeyId;
using vglobal::SettingsStore;
using vglobal::SettingsValue;

std::wstring Text(const SettingsValue& v) {
  switch (v.type()) {
    case vglobal::SettingsValueType::Int:
      return L"i" + std::to_wstring(*v.AsInt());
    case vglobal::SettingsValueType::Double: {
      std::uint64_t bits = 0;
      std::memcpy(&bits, v.AsDouble(), sizeof bits);
      return L"d" + std::to_wstring(bits);
    }
    case vglobal::SettingsValueType::String:
      return L"s" + *v.AsString();
    case vglobal::SettingsValueType::Binary:
      return L"b" + std::wstring(v.AsBinary()->begin(), v.AsBinary()->end());
    case vglobal::SettingsValueType::MultiString: {
      std::wstring text = L"m";
      for (const std::wstring& s : *v.AsMultiString()) text += s + L'|';
      return text;
    }
  }
  return L"?";
}

// The whole tree as the store lists it: keys and values in listing order with their
// spellings, key ids, value types and contents.
std::wstring Dump(SettingsStore& store, SettingsKeyId key = kSettingsRootKey, int depth = 0) {
  std::wstring out;
  const std::wstring indent(depth * 2, L' ');
  const std::vector<std::wstring> values = store.ValueNames(key).value();
  const std::vector<std::wstring> subkeys = store.SubkeyNames(key).value();
  for (const std::wstring& name : values) {
    out += indent + L"'" + name + L"' = " + Text(store.ReadValue(key, name).value()) + L"\n";
  }
  for (const std::wstring& name : subkeys) {
    const SettingsKeyId child = store.FindKey(key, name).value();
    out += indent + L"[" + name + L"] #" + std::to_wstring(child) + L"\n";
    out += Dump(store, child, depth + 1);
  }
  return out;
}

class MemoryStore : public ::testing::Test {
 protected:
  void SetUp() override {
    a_ = Create(L"Alpha");
    bc_ = Create(L"Beta\\Gamma");
    Create(L"Beta\\Delta\\Deep");
    e_ = Create(L"Epsilon");
    Create(L"Epsilon\\Zeta");
    Write(a_, L"One", SettingsValue::Int(1));
    Write(a_, L"Two", SettingsValue::String(L"two"));
    Write(a_, L"Three", SettingsValue::Binary({3, 3}));
    Write(a_, L"", SettingsValue::MultiString({L"x", L"y"}));
    Write(bc_, L"Pi", SettingsValue::Double(3.14));
    Write(e_, L"Kept", SettingsValue::Int(5));
    before_ = Dump(*store_);
  }

  SettingsKeyId Create(const std::wstring& path) {
    return store_->CreateKey(kSettingsRootKey, path).value();
  }
  void Write(SettingsKeyId key, const std::wstring& name, const SettingsValue& value) {
    ASSERT_EQ(store_->WriteValue(key, name, value), SettingsError::None);
  }
  // The store is as SetUp left it, with the same ids, and sound.
  void ExpectUntouched() {
    EXPECT_EQ(Dump(*store_), before_);
    EXPECT_TRUE(store_->Check().ok());
    EXPECT_EQ(store_->ReadValue(bc_, L"pi").value().AsDouble()[0], 3.14)
        << "an id taken before stays valid";
  }

  std::shared_ptr<SettingsStore> store_ = vglobal::MakeMemorySettingsStore();
  SettingsKeyId a_ = 0, bc_ = 0, e_ = 0;
  std::wstring before_;
};

TEST_F(MemoryStore, ValuesKeepTheirPlaceAndFirstSpellingThroughOverwritesAndDeletes) {
  Write(a_, L"TWO", SettingsValue::Int(2));  // another type, another spelling
  EXPECT_EQ(store_->DeleteValue(a_, L"one"), SettingsError::None);
  Write(a_, L"Four", SettingsValue::Int(4));
  EXPECT_EQ(store_->ValueNames(a_).value(),
            (std::vector<std::wstring>{L"Two", L"Three", L"", L"Four"}));
  EXPECT_EQ(*store_->ReadValue(a_, L"two").value().AsInt(), 2);
  EXPECT_EQ(store_->ReadValue(a_, L"One").error(), SettingsError::NotFound);
  EXPECT_EQ(store_->DeleteKey(store_->FindKey(kSettingsRootKey, L"BETA").value()),
            SettingsError::None);
  EXPECT_EQ(store_->ReadValue(bc_, L"Pi").error(), SettingsError::NotFound);
  EXPECT_EQ(store_->SubkeyNames(kSettingsRootKey).value(),
            (std::vector<std::wstring>{L"Alpha", L"Epsilon"}));
  EXPECT_GT(Create(L"Beta"), e_ + 1) << "past every id handed out: ids are never reused";
  EXPECT_TRUE(store_->Check().ok());
}

TEST_F(MemoryStore, AnAbandonedTransactionLeavesTheStoreExactlyAsItWas) {
  std::vector<SettingsKeyId> handedOut;
  {
    vglobal::SettingsTransaction transaction(store_);
    ASSERT_TRUE(transaction.active());
    Write(a_, L"ONE", SettingsValue::String(L"changed type"));
    EXPECT_EQ(store_->DeleteValue(a_, L"two"), SettingsError::None);  // from the middle
    Write(a_, L"Two", SettingsValue::Int(2));                         // back at the end
    EXPECT_EQ(store_->DeleteValue(a_, L""), SettingsError::None);
    const SettingsKeyId beta = store_->FindKey(kSettingsRootKey, L"Beta").value();
    EXPECT_EQ(store_->DeleteKey(beta), SettingsError::None);
    handedOut.push_back(Create(L"Beta\\Gamma"));  // the same names, new keys
    Write(handedOut.back(), L"Pi", SettingsValue::Int(3));
    EXPECT_EQ(store_->DeleteContents(e_), SettingsError::None);
    Write(e_, L"Kept", SettingsValue::Int(6));
    handedOut.push_back(Create(L"Epsilon\\Zeta"));
    EXPECT_EQ(store_->DeleteKey(a_), SettingsError::None);
    handedOut.push_back(Create(L"Alpha\\Deeper"));
    EXPECT_NE(Dump(*store_), before_);
    EXPECT_TRUE(store_->Check().ok());
  }  // not committed
  ExpectUntouched();
  for (SettingsKeyId id : handedOut) {
    EXPECT_EQ(store_->ValueNames(id).error(), SettingsError::NotFound) << id;
  }
  EXPECT_GT(Create(L"New"), handedOut.back()) << "ids of an undone transaction stay used";
}

}  // namespace
