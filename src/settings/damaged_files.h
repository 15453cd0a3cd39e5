// Store files found damaged in this process.
//
// SQLite notices most damage only when a read or write reaches the damaged page, and a
// process may hold the same file open through more than one store object (a tool's
// probe and its working store, say). Once any of them sees the damage, all of them must
// stop writing and must not checkpoint into the file as they close: the file is marked
// here, by device and inode, and every store object of that file consults the mark.
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

// Records that the file is damaged; the first reason recorded is kept.
void MarkFileDamaged(const FileIdentity& file, const std::string& reason);
// The reason the file was marked damaged, if it was.
std::optional<std::string> FileDamage(const FileIdentity& file);
// Changes whenever a file is marked, so that a store can tell cheaply that it has
// nothing new to look up.
std::uint64_t DamageEpoch();

}  // namespace vglobal::settings
