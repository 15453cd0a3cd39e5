// The process-wide list of open store files and their damage.
#include "settings/damaged_files.h"

#include <sys/stat.h>

#include <atomic>
#include <mutex>
#include <vector>

namespace vglobal::settings {
namespace {

struct OpenFile {
  FileIdentity file;
  int opened = 0;      // store objects that have it open
  std::string damage;  // empty while none was found
};

struct Damaged {
  std::mutex mutex;
  std::vector<OpenFile> files;  // a handful at most
  std::atomic<std::uint64_t> epoch{0};

  OpenFile* Find(const FileIdentity& file) {
    for (OpenFile& f : files) {
      if (f.file == file) return &f;
    }
    return nullptr;
  }
};

Damaged& TheDamaged() {
  // Never destroyed: stores held by other static objects close their files while the
  // program exits, after this list would otherwise be gone.
  static Damaged* damaged = new Damaged;
  return *damaged;
}

}  // namespace

std::optional<FileIdentity> IdentifyFile(const std::string& path) {
  struct stat st {};
  if (stat(path.c_str(), &st) != 0) return std::nullopt;
  return FileIdentity{st.st_dev, st.st_ino};
}

void NoteFileOpen(const FileIdentity& file) {
  Damaged& d = TheDamaged();
  std::lock_guard lock(d.mutex);
  if (OpenFile* f = d.Find(file)) {
    ++f->opened;
  } else {
    d.files.push_back(OpenFile{file, 1, {}});
  }
}

void NoteFileClosed(const FileIdentity& file) {
  Damaged& d = TheDamaged();
  std::lock_guard lock(d.mutex);
  OpenFile* f = d.Find(file);
  if (f && --f->opened <= 0) d.files.erase(d.files.begin() + (f - d.files.data()));
}

void MarkFileDamaged(const FileIdentity& file, const std::string& reason) {
  Damaged& d = TheDamaged();
  std::lock_guard lock(d.mutex);
  OpenFile* f = d.Find(file);
  if (!f || !f->damage.empty()) return;
  f->damage = reason.empty() ? "corrupt" : reason;
  d.epoch.fetch_add(1, std::memory_order_release);
}

bool FileIsOpen(const FileIdentity& file) {
  Damaged& d = TheDamaged();
  std::lock_guard lock(d.mutex);
  return d.Find(file) != nullptr;
}

std::optional<std::string> FileDamage(const FileIdentity& file) {
  Damaged& d = TheDamaged();
  std::lock_guard lock(d.mutex);
  const OpenFile* f = d.Find(file);
  if (!f || f->damage.empty()) return std::nullopt;
  return f->damage;
}

std::uint64_t DamageEpoch() {
  return TheDamaged().epoch.load(std::memory_order_acquire);
}

}  // namespace vglobal::settings
