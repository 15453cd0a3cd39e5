// Programs the library starts: how a program is asked to start minimised, and what
// waiting for a started program finds out. The functions that start programs and
// hold their handles are in vglobal/util/programs.h; these two names are shared by
// them and by the platform, which makes the processes.
#pragma once

namespace vglobal {

// The environment variable that carries the "start minimised" request, and its value.
inline constexpr const char* kStartMinimizedVariable = "ARVENIS_START_MINIMIZED";

// What WaitForProcess found out.
enum class ProcessWait {
  Exited,   // the program has ended; its exit code was stored
  Running,  // it still runs (only when not blocking)
  Unknown,  // not a live handle, or the process was collected by someone else (an
            // application's own SIGCHLD handling), so how it ended cannot be told
};

}  // namespace vglobal
