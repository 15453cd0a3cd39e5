// Global memory blocks of the legacy API (GlobalAlloc and friends), the containers
// in which drag-and-drop data travels.
//
// Contract:
// - A handle is a number from a table, never an address: a handle that was freed,
//   never given, or made up is refused (null, 0 or FALSE), never followed. Handles
//   are not reused within a process.
// - GlobalLock's pointer stays valid until the block is freed; a locked block is
//   not freed (GlobalFree fails), so the pointer cannot dangle while it is held.
// - Thread-safe; a block's bytes are the caller's to guard.
#pragma once

#include <cstddef>

#include "vglobal/compat/types.h"
#include "vglobal/export.h"

using HGLOBAL = void*;
using LPVOID = void*;
using SIZE_T = std::size_t;

// Allocation flags (Windows values). Every block is zero-filled and every block
// can be locked, so GMEM_FIXED and GMEM_MOVEABLE behave alike.
constexpr UINT GMEM_FIXED = 0x0000;
constexpr UINT GMEM_MOVEABLE = 0x0002;
constexpr UINT GMEM_ZEROINIT = 0x0040;
constexpr UINT GMEM_SHARE = 0x2000;
constexpr UINT GMEM_DDESHARE = GMEM_SHARE;
constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;
constexpr UINT GPTR = GMEM_FIXED | GMEM_ZEROINIT;

// A new block of `bytes` zero bytes; null when memory is short. A block of 0 bytes
// exists but locks to null.
VGLOBAL_EXPORT HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes);
// The block's bytes, and one more lock on it; null for a refused handle.
VGLOBAL_EXPORT LPVOID GlobalLock(HGLOBAL block);
// One lock less. Non-zero while the block is still locked; FALSE when it no longer
// is or when the handle is refused.
VGLOBAL_EXPORT BOOL GlobalUnlock(HGLOBAL block);
// The block's size in bytes; 0 for a refused handle.
VGLOBAL_EXPORT SIZE_T GlobalSize(HGLOBAL block);
// Frees the block. Null on success; the handle itself when it is refused or locked.
VGLOBAL_EXPORT HGLOBAL GlobalFree(HGLOBAL block);

namespace vglobal {
// Whether `block` is a live block of the table (of any size).
VGLOBAL_EXPORT bool IsGlobalBlock(HGLOBAL block);
}  // namespace vglobal
