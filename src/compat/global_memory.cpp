// Global memory blocks behind numbered handles. Legacy code passes these handles
// around freely (into data sources, out of data objects); a table makes a stale or
// invented handle a refusal instead of a wild pointer.
#include "vglobal/compat/global_memory.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <new>
#include <unordered_map>
#include <vector>

namespace {

struct Block {
  std::unique_ptr<unsigned char[]> bytes;  // stays put while the block lives
  std::size_t size = 0;
  unsigned locks = 0;
};

struct Table {
  std::mutex mutex;
  std::unordered_map<std::uintptr_t, Block> blocks;
  std::uintptr_t next = 0x10000;  // low numbers look like constants or errors
};

Table& TheTable() {
  static Table* table = new Table;  // blocks may be freed by static destructors
  return *table;
}

std::uintptr_t Key(HGLOBAL block) {
  return reinterpret_cast<std::uintptr_t>(block);
}

}  // namespace

HGLOBAL GlobalAlloc(UINT /*flags*/, SIZE_T bytes) {
  Block block;
  if (bytes > 0) {
    block.bytes.reset(new (std::nothrow) unsigned char[bytes]());
    if (!block.bytes) return nullptr;
  }
  block.size = bytes;
  Table& t = TheTable();
  std::lock_guard lock(t.mutex);
  const std::uintptr_t handle = t.next++;
  t.blocks.emplace(handle, std::move(block));
  return reinterpret_cast<HGLOBAL>(handle);
}

LPVOID GlobalLock(HGLOBAL block) {
  Table& t = TheTable();
  std::lock_guard lock(t.mutex);
  auto it = t.blocks.find(Key(block));
  if (it == t.blocks.end() || it->second.size == 0) return nullptr;
  ++it->second.locks;
  return it->second.bytes.get();
}

BOOL GlobalUnlock(HGLOBAL block) {
  Table& t = TheTable();
  std::lock_guard lock(t.mutex);
  auto it = t.blocks.find(Key(block));
  if (it == t.blocks.end() || it->second.locks == 0) return FALSE;
  return --it->second.locks > 0 ? TRUE : FALSE;
}

SIZE_T GlobalSize(HGLOBAL block) {
  Table& t = TheTable();
  std::lock_guard lock(t.mutex);
  auto it = t.blocks.find(Key(block));
  return it == t.blocks.end() ? 0 : it->second.size;
}

HGLOBAL GlobalFree(HGLOBAL block) {
  Table& t = TheTable();
  std::lock_guard lock(t.mutex);
  auto it = t.blocks.find(Key(block));
  if (it == t.blocks.end() || it->second.locks > 0) return block;
  t.blocks.erase(it);
  return nullptr;
}

bool vglobal::IsGlobalBlock(HGLOBAL block) {
  Table& t = TheTable();
  std::lock_guard lock(t.mutex);
  return t.blocks.count(Key(block)) != 0;
}
