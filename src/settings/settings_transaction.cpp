// SettingsTransaction: a store's transaction held by a scope.
#include "vglobal/settings_store.h"

namespace vglobal {

SettingsTransaction::SettingsTransaction(HKEY root) : SettingsTransaction(GetSettingsStore(root)) {}

SettingsTransaction::SettingsTransaction(std::shared_ptr<SettingsStore> store)
    : store_(std::move(store)) {
  active_ = store_ && store_->BeginTransaction() == SettingsError::None;
}

SettingsTransaction::~SettingsTransaction() {
  if (active_) store_->EndTransaction(false);
}

SettingsError SettingsTransaction::Commit() {
  if (!active_) return SettingsError::None;
  active_ = false;
  return store_->EndTransaction(true);
}

}  // namespace vglobal
