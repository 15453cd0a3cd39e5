// Starting a program: the one place where the library makes a process.
//
// - posix_spawn with an argument vector, never a shell.
// - The program gets a session of its own (it outlives this program's terminal and
//   is not hit by signals meant for this program's process group), the default
//   disposition of every signal and an empty signal mask, only descriptors 0 to 2,
//   and this program's working folder and environment.
// - "Minimised" travels as ARVENIS_START_MINIMIZED=1 in the program's environment;
//   otherwise that variable is removed, so that a program started minimised does not
//   pass the request on to the programs it starts.
// - A program that cannot be run (missing, not executable, not a valid executable)
//   is reported here, synchronously, with its errno: the C library's posix_spawn
//   reports the failed exec to the caller.
#pragma once

#include <sys/types.h>

#include <memory>
#include <string>
#include <vector>

#include "vglobal/processes.h"

namespace vglobal::process_spawn {

// A started program, until it has been collected. Destroying it collects a program
// that has ended; one that still runs is collected in the background when it ends,
// so that no ended program lingers as a zombie. Only this program's own process is
// waited for (waitpid on its id); an application's own SIGCHLD handling is left
// alone, and one that collects the process first makes its end Unknown here.
class ChildProcess {
 public:
  explicit ChildProcess(pid_t pid) : pid_(pid) {}
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t pid() const { return pid_; }
  ProcessWait Wait(bool block, int* exitCode);

 private:
  pid_t pid_;
  bool collected_ = false;
  bool lost_ = false;  // collected by someone else: the end is unknown
  int exitCode_ = 0;
};

struct Started {
  std::unique_ptr<ChildProcess> process;  // null on failure
  int error = 0;                          // errno of the failure
};

// Starts `executable` (a path) with `argv` (argv[0] first).
Started Spawn(const std::string& executable, const std::vector<std::string>& argv, bool minimized);

}  // namespace vglobal::process_spawn
