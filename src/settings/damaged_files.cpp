// The process-wide list of damaged store files.
#include "settings/damaged_files.h"

#include <sys/stat.h>

#include <atomic>
#include <mutex>
#include <vector>

namespace vglobal::settings {
namespace {

struct Damaged {
  std::mutex mutex;
  std::vector<std::pair<FileIdentity, std::string>> files;  // a handful at most
  std::atomic<std::uint64_t> epoch{0};
};

Damaged& TheDamaged() {
  static Damaged damaged;
  return damaged;
}

}  // namespace

std::optional<FileIdentity> IdentifyFile(const std::string& path) {
  struct stat st {};
  if (stat(path.c_str(), &st) != 0) return std::nullopt;
  return FileIdentity{st.st_dev, st.st_ino};
}

void MarkFileDamaged(const FileIdentity& file, const std::string& reason) {
  Damaged& d = TheDamaged();
  std::lock_guard lock(d.mutex);
  for (const auto& [known, why] : d.files) {
    if (known == file) return;
  }
  d.files.emplace_back(file, reason);
  d.epoch.fetch_add(1, std::memory_order_release);
}

std::optional<std::string> FileDamage(const FileIdentity& file) {
  Damaged& d = TheDamaged();
  std::lock_guard lock(d.mutex);
  for (const auto& [known, why] : d.files) {
    if (known == file) return why;
  }
  return std::nullopt;
}

std::uint64_t DamageEpoch() {
  return TheDamaged().epoch.load(std::memory_order_acquire);
}

}  // namespace vglobal::settings
