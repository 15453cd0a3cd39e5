// The value and error vocabulary of the settings module.
#include <cstring>

#include "vglobal/settings_store.h"

namespace vglobal {

const char* Describe(SettingsError error) {
  switch (error) {
    case SettingsError::None:
      return "no error";
    case SettingsError::NotFound:
      return "no such key or value";
    case SettingsError::BadName:
      return "invalid key or value name";
    case SettingsError::BadRoot:
      return "unknown settings root";
    case SettingsError::TooLarge:
      return "value too large";
    case SettingsError::Unavailable:
      return "settings store unavailable";
    case SettingsError::ReadOnly:
      return "settings store is read-only";
    case SettingsError::Busy:
      return "settings store busy";
    case SettingsError::Failed:
      return "settings store failure";
  }
  return "unknown error";
}

bool SettingsValue::SameAs(const SettingsValue& other) const {
  if (type() != other.type()) return false;
  if (const double* d = AsDouble()) {
    // Equality of doubles would call -0.0 and 0.0 the same and NaN never equal.
    return std::memcmp(d, other.AsDouble(), sizeof(double)) == 0;
  }
  return data_ == other.data_;
}

SettingsStore::~SettingsStore() = default;

SettingsApplyResult SettingsStore::Apply(const std::vector<SettingsChange>& changes) {
  return {SettingsError::Failed, changes.size()};
}

SettingsError SettingsStore::BeginTransaction() {
  return SettingsError::Failed;
}

SettingsError SettingsStore::EndTransaction(bool /*commit*/) {
  return SettingsError::Failed;
}

}  // namespace vglobal
