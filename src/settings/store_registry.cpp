// Which store each root uses in this process: a replacement set in-process, else the
// default SQLite file, opened on first use.
#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <mutex>
#include <optional>

#include "vglobal/settings_store.h"

namespace vglobal {
namespace {

enum Root : std::size_t { kUser = 0, kMachine = 1, kRoots = 2 };

std::optional<Root> RootOf(HKEY root) {
  if (root == HKEY_CURRENT_USER) return kUser;
  if (root == HKEY_LOCAL_MACHINE) return kMachine;
  return std::nullopt;
}

const char* NonEmptyEnv(const char* name) {
  const char* value = std::getenv(name);
  return value && *value ? value : nullptr;
}

std::string DefaultUserPath() {
  // XDG: a relative XDG_CONFIG_HOME is invalid and must be ignored.
  if (const char* config = NonEmptyEnv("XDG_CONFIG_HOME"); config && *config == '/') {
    return std::string(config) + "/arvenis/user.db";
  }
  const char* home = NonEmptyEnv("HOME");
  if (!home) {
    const passwd* user = getpwuid(geteuid());
    home = user && user->pw_dir && *user->pw_dir ? user->pw_dir : nullptr;
  }
  // Without any home folder the store cannot be placed; the empty path makes the store
  // report itself unusable rather than write somewhere unexpected.
  return home ? std::string(home) + "/.config/arvenis/user.db" : std::string();
}

struct Stores {
  std::mutex mutex;
  bool located = false;
  std::array<std::string, kRoots> paths;
  std::array<std::shared_ptr<SettingsStore>, kRoots> replaced;
  std::array<std::shared_ptr<SettingsStore>, kRoots> defaults;

  // The environment is read once, when a store is first needed.
  void LocateLocked() {
    if (located) return;
    located = true;
    if (const char* dir = NonEmptyEnv("ARVENIS_SETTINGS_DIR")) {
      paths[kUser] = std::string(dir) + "/user.db";
      paths[kMachine] = std::string(dir) + "/machine.db";
    } else {
      paths[kUser] = DefaultUserPath();
      paths[kMachine] = "/etc/arvenis/machine.db";
    }
  }
};

Stores& TheStores() {
  static Stores stores;
  return stores;
}

}  // namespace

std::shared_ptr<SettingsStore> GetSettingsStore(HKEY root) {
  const auto r = RootOf(root);
  if (!r) return nullptr;
  Stores& s = TheStores();
  std::lock_guard lock(s.mutex);
  if (s.replaced[*r]) return s.replaced[*r];
  if (!s.defaults[*r]) {
    s.LocateLocked();
    // The user's store is made on first use; the machine store only by the
    // administrator's tool (arvenis-settings init --machine).
    s.defaults[*r] =
        *r == kUser ? OpenSqliteSettingsStore(s.paths[kUser], SettingsFileKind::User, true)
                    : OpenSqliteSettingsStore(s.paths[kMachine], SettingsFileKind::Machine, false);
  }
  return s.defaults[*r];
}

bool SetSettingsStore(HKEY root, std::shared_ptr<SettingsStore> store) {
  const auto r = RootOf(root);
  if (!r) return false;
  Stores& s = TheStores();
  std::lock_guard lock(s.mutex);
  s.replaced[*r] = std::move(store);
  return true;
}

std::string SettingsStorePath(HKEY root) {
  const auto r = RootOf(root);
  if (!r) return {};
  Stores& s = TheStores();
  std::lock_guard lock(s.mutex);
  s.LocateLocked();
  return s.paths[*r];
}

UseMemorySettingsStores::UseMemorySettingsStores()
    : user_(MakeMemorySettingsStore()), machine_(MakeMemorySettingsStore()) {
  Stores& s = TheStores();
  std::lock_guard lock(s.mutex);
  savedUser_ = std::exchange(s.replaced[kUser], user_);
  savedMachine_ = std::exchange(s.replaced[kMachine], machine_);
}

UseMemorySettingsStores::~UseMemorySettingsStores() {
  Stores& s = TheStores();
  std::lock_guard lock(s.mutex);
  s.replaced[kUser] = std::move(savedUser_);
  s.replaced[kMachine] = std::move(savedMachine_);
}

}  // namespace vglobal
