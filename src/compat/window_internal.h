// What the window units share: the registry of live windows and the per-window
// state behind messages, timers and the menu.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "vglobal/compat/window.h"

namespace vglobal {

// Adds a window to the registry of live windows and returns its serial number.
std::uint64_t RegisterWindow(CWnd* window);
void UnregisterWindow(std::uint64_t serial);

struct WindowMessages {
  using Handler = std::function<LRESULT(WPARAM, LPARAM)>;
  // Each handler in a block of its own, which stays where it is when a running
  // handler adds entries: delivery calls it in place, without a copy.
  std::vector<std::pair<UINT, std::unique_ptr<const Handler>>> entries;
  std::map<UINT_PTR, TIMERPROC> timers;  // running timers and their procedures
  HMENU menu = nullptr;                  // owned (SetMenu)
};

}  // namespace vglobal
