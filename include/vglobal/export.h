// Symbol visibility of the library. Everything is hidden unless marked: only the
// documented API and the vglobal namespace's public helpers are exported.
#pragma once

#define VGLOBAL_EXPORT __attribute__((visibility("default")))
