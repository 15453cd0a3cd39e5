// Store files open in this process, and which of them were found damaged.
//
// SQLite notices most damage only when a read or write reaches the damaged page, and a
// process may hold the same file open through more than one store object. Once any of
// them sees the damage, all of them must stop writing and must not checkpoint into the
// file as they close: the file is marked here, by device and inode, and every store
// object of that file consults the mark. A mark lasts while any store object has the
// file open; the next store object to open it after that looks at the file afresh (its
// inode may by then belong to another file).
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>

namespace vglobal::settings {

struct FileIdentity {
  dev_t device = 0;
  ino_t inode = 0;
  bool operator==(const FileIdentity&) const = default;
};

// The identity of the file at `path` (links followed), if it exists.
std::optional<FileIdentity> IdentifyFile(const std::string& path);

// A store object has the file open, and has closed it again.
void NoteFileOpen(const FileIdentity& file);
void NoteFileClosed(const FileIdentity& file);

// True while a store object of this process has the file open.
bool FileIsOpen(const FileIdentity& file);

// Records that the file is damaged, if any store object has it open; the first reason
// recorded is kept.
void MarkFileDamaged(const FileIdentity& file, const std::string& reason);
// The reason the file was marked damaged, if it was.
std::optional<std::string> FileDamage(const FileIdentity& file);
// Changes whenever a file is marked, so that a store can tell cheaply that it has
// nothing new to look up.
std::uint64_t DamageEpoch();

}  // namespace vglobal::settings
