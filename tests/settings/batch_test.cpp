// A batch of changes, or a transaction, is made whole or not at all, in the memory
// store and the file store alike.
#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

#include "settings_test_support.h"
#include "vglobal/settings_store.h"

namespace {

using vglobal::SettingsChange;
using vglobal::SettingsError;
using vglobal::SettingsStore;
using vglobal::SettingsValue;
using Kind = SettingsChange::Kind;

SettingsChange Change(Kind kind, std::wstring path, std::wstring name = {},
                      std::optional<SettingsValue> value = std::nullopt) {
  return SettingsChange{kind, std::move(path), std::move(name), std::move(value)};
}

SettingsChange Write(std::wstring path, std::wstring name, std::int32_t value) {
  return Change(Kind::WriteValue, std::move(path), std::move(name), SettingsValue::Int(value));
}

class Batch : public ::testing::TestWithParam<bool> {
 protected:
  void SetUp() override {
    store_ = GetParam() ? vglobal::OpenSqliteSettingsStore(dir_ / "user.db",
                                                           vglobal::SettingsFileKind::User, true)
                        : vglobal::MakeMemorySettingsStore();
  }

  // The int value `name` of the key at `path`, or the error that kept it.
  vglobal::SettingsResult<std::int32_t> Int(const std::wstring& path, const std::wstring& name) {
    const auto key = store_->FindKey(vglobal::kSettingsRootKey, path);
    if (!key) return key.error();
    const auto value = store_->ReadValue(*key, name);
    if (!value) return value.error();
    return *value->AsInt();
  }

  settings_test::TempDir dir_;
  std::shared_ptr<SettingsStore> store_;
};

TEST_P(Batch, AFailingChangeLeavesTheStoreAsItWasAndLaterBatchesStillWork) {
  ASSERT_TRUE(store_->Apply({Write(L"A", L"x", 1), Write(L"B\\C", L"y", 2)}).ok());
  const auto deep = store_->FindKey(vglobal::kSettingsRootKey, L"B\\C");
  ASSERT_TRUE(deep.ok());

  const std::vector<SettingsChange> changes{
      Write(L"A", L"z", 3),
      Change(Kind::DeleteKey, L"B"),
      Change(Kind::CreateKey, L"D\\E"),
      Change(Kind::DeleteValue, L"A", L"x"),
      Change(Kind::WriteValue, L"A", L"big",
             SettingsValue::Binary(std::vector<std::uint8_t>(vglobal::kMaxSettingsValueBytes + 1))),
  };
  const vglobal::SettingsApplyResult failed = store_->Apply(changes);
  EXPECT_EQ(failed.error, SettingsError::TooLarge);
  EXPECT_EQ(failed.failed, 4u);
  EXPECT_EQ(Int(L"A", L"x").value(), 1);
  EXPECT_EQ(Int(L"A", L"z").error(), SettingsError::NotFound);
  EXPECT_EQ(Int(L"B\\C", L"y").value(), 2);
  EXPECT_EQ(store_->FindKey(vglobal::kSettingsRootKey, L"D").error(), SettingsError::NotFound);
  EXPECT_TRUE(store_->ReadValue(*deep, L"y").ok()) << "a key id taken before stays valid";

  std::vector<SettingsChange> sound(changes.begin(), changes.end() - 1);
  ASSERT_TRUE(store_->Apply(sound).ok());
  EXPECT_EQ(Int(L"A", L"z").value(), 3);
  EXPECT_EQ(Int(L"A", L"x").error(), SettingsError::NotFound);
  EXPECT_TRUE(store_->FindKey(vglobal::kSettingsRootKey, L"D\\E").ok());
  EXPECT_EQ(store_->FindKey(vglobal::kSettingsRootKey, L"B").error(), SettingsError::NotFound);
  EXPECT_EQ(store_->ReadValue(*deep, L"y").error(), SettingsError::NotFound);
}

TEST_P(Batch, DeletingWhatIsMissingIsDoneButBadNamesAndTheRootAreRefused) {
  EXPECT_TRUE(store_
                  ->Apply({Change(Kind::DeleteKey, L"No\\Such"),
                           Change(Kind::DeleteValue, L"No\\Such", L"v"),
                           Change(Kind::CreateKey, L"K"), Change(Kind::DeleteValue, L"K", L"v")})
                  .ok());
  const auto emptyName = store_->Apply({Write(L"L", L"v", 1), Change(Kind::CreateKey, L"a\\\\b")});
  EXPECT_EQ(emptyName.error, SettingsError::BadName);
  EXPECT_EQ(emptyName.failed, 1u);
  EXPECT_EQ(store_->FindKey(vglobal::kSettingsRootKey, L"L").error(), SettingsError::NotFound);
  EXPECT_EQ(store_->Apply({Change(Kind::DeleteKey, L"")}).error, SettingsError::BadName);
  EXPECT_EQ(store_
                ->Apply({Change(Kind::WriteValue, L"K", std::wstring(16384, L'n'),
                                SettingsValue::Int(1))})
                .error,
            SettingsError::BadName);
  EXPECT_TRUE(store_->FindKey(vglobal::kSettingsRootKey, L"K").ok());
}

// Transactions are the batches of writers that make their changes one by one.
TEST_P(Batch, TransactionsNestAndOneFailedChangeUndoesAllOfThem) {
  ASSERT_TRUE(store_->Apply({Write(L"A", L"x", 1)}).ok());
  auto set = [&](const std::wstring& name, std::int32_t value) {
    const auto key = store_->CreateKey(vglobal::kSettingsRootKey, L"A");
    return key ? store_->WriteValue(*key, name, SettingsValue::Int(value)) : key.error();
  };
  {
    vglobal::SettingsTransaction outer(store_);
    set(L"x", 2);
    {
      vglobal::SettingsTransaction inner(store_);
      set(L"y", 3);
      inner.Commit();
    }
    EXPECT_EQ(Int(L"A", L"y").value(), 3) << "seen inside";
    // A missing value is an answer, not a failure.
    EXPECT_EQ(store_->DeleteValue(vglobal::kSettingsRootKey, L"none"), SettingsError::NotFound);
    EXPECT_EQ(outer.Commit(), SettingsError::None);
  }
  EXPECT_EQ(Int(L"A", L"y").value(), 3);
  {
    vglobal::SettingsTransaction outer(store_);
    set(L"x", 4);
    EXPECT_EQ(set(std::wstring(vglobal::kMaxSettingsValueName + 1, L'n'), 1),
              SettingsError::BadName);
    set(L"z", 5);  // goes on, as writers that ignore results do
    EXPECT_EQ(outer.Commit(), SettingsError::BadName) << "the first failure";
  }
  {
    vglobal::SettingsTransaction outer(store_);
    set(L"x", 6);
    { vglobal::SettingsTransaction inner(store_); }  // gives up: so does the whole
    EXPECT_NE(outer.Commit(), SettingsError::None);
  }
  {
    vglobal::SettingsTransaction left(store_);  // ended without Commit
    set(L"x", 7);
  }
  EXPECT_EQ(Int(L"A", L"x").value(), 2);
  EXPECT_EQ(Int(L"A", L"z").error(), SettingsError::NotFound);
  EXPECT_EQ(store_->EndTransaction(true), SettingsError::Failed) << "none is open";
}

TEST_P(Batch, OtherThreadsWaitForTheTransactionAndStayOutOfIt) {
  ASSERT_TRUE(store_->Apply({Write(L"K", L"theirs", 0)}).ok());
  ASSERT_EQ(store_->BeginTransaction(), SettingsError::None);
  ASSERT_TRUE(store_->Apply({Write(L"K", L"mine", 1)}).ok());
  auto other = std::async(std::launch::async, [&] {
    // Had it not waited, it would see the uncommitted value.
    const bool sawMine = Int(L"K", L"mine").ok();
    return !sawMine && store_->Apply({Write(L"K", L"theirs", 2)}).ok();
  });
  EXPECT_EQ(other.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
  ASSERT_EQ(store_->EndTransaction(false), SettingsError::None);  // abandoned
  EXPECT_TRUE(other.get());
  EXPECT_EQ(Int(L"K", L"mine").error(), SettingsError::NotFound);
  EXPECT_EQ(Int(L"K", L"theirs").value(), 2);
}

INSTANTIATE_TEST_SUITE_P(Stores, Batch, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "Sqlite" : "Memory"; });

TEST(SqliteBatch, AnotherProgramSeesABatchWholeOrNotAtAll) {
  settings_test::TempDir dir;
  auto writer =
      vglobal::OpenSqliteSettingsStore(dir / "user.db", vglobal::SettingsFileKind::User, true);
  auto reader =
      vglobal::OpenSqliteSettingsStore(dir / "user.db", vglobal::SettingsFileKind::User, false);
  constexpr int kValues = 3000;
  std::vector<SettingsChange> changes;
  for (int i = 0; i < kValues; ++i) changes.push_back(Write(L"Batch", std::to_wstring(i), i));

  std::atomic<bool> applied = false;
  std::thread thread([&] {
    EXPECT_TRUE(writer->Apply(changes).ok());
    applied = true;
  });
  // The reader looks until it has seen the batch, every time either none of it or all.
  std::size_t seen = 0;
  for (bool done = false; !done;) {
    done = applied;  // read before looking: after the commit the last look sees it
    const auto key = reader->FindKey(vglobal::kSettingsRootKey, L"Batch");
    if (!key) {
      EXPECT_EQ(key.error(), SettingsError::NotFound);
      continue;
    }
    const auto names = reader->ValueNames(*key);
    ASSERT_TRUE(names.ok());
    seen = names->size();
    ASSERT_EQ(seen, std::size_t{kValues}) << "part of a batch was visible";
    break;
  }
  thread.join();
  EXPECT_EQ(seen, std::size_t{kValues});
}

TEST(SqliteBatch, AStoreThatCannotBeWrittenRefusesTheBatchWhole) {
  settings_test::TempDir dir;
  auto absent =
      vglobal::OpenSqliteSettingsStore(dir / "none.db", vglobal::SettingsFileKind::Machine, false);
  const auto result = absent->Apply({Change(Kind::CreateKey, L"K"), Change(Kind::CreateKey, L"L")});
  EXPECT_EQ(result.error, SettingsError::Unavailable);
  EXPECT_EQ(result.failed, 2u);
  EXPECT_FALSE(std::filesystem::exists(dir / "none.db"));
}

}  // namespace
