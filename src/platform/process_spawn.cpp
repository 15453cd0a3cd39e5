// Starting programs and collecting them when they end (contract in process_spawn.h).
#include "platform/process_spawn.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cerrno>
#include <string_view>
#include <system_error>
#include <thread>

extern char** environ;

namespace vglobal::process_spawn {
namespace {

pid_t WaitPid(pid_t pid, int* status, int options) {
  pid_t result;
  do {
    result = waitpid(pid, status, options);
  } while (result < 0 && errno == EINTR);
  return result;
}

// This program's environment with the minimised request set or removed.
std::vector<std::string> ChildEnvironment(bool minimized) {
  const std::string prefix = std::string(kStartMinimizedVariable) + "=";
  std::vector<std::string> variables;
  for (char** entry = environ; entry && *entry; ++entry) {
    if (std::string_view(*entry).starts_with(prefix)) continue;
    variables.emplace_back(*entry);
  }
  if (minimized) variables.push_back(prefix + "1");
  return variables;
}

std::vector<char*> Pointers(std::vector<std::string>& strings) {
  std::vector<char*> pointers;
  pointers.reserve(strings.size() + 1);
  for (std::string& s : strings) pointers.push_back(s.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

ChildProcess::~ChildProcess() {
  if (collected_) return;
  int status = 0;
  if (WaitPid(pid_, &status, WNOHANG) != 0) return;  // collected now, or by someone else
  // Still running: collect it when it ends, without holding up the caller.
  try {
    std::thread([pid = pid_] {
      int ignored = 0;
      WaitPid(pid, &ignored, 0);
    }).detach();
  } catch (const std::system_error&) {
    // No thread to be had: the ended program stays a zombie until this one exits,
    // which is the lesser harm than blocking the user interface until it ends.
  }
}

ProcessWait ChildProcess::Wait(bool block, int* exitCode) {
  if (!collected_) {
    int status = 0;
    const pid_t result = WaitPid(pid_, &status, block ? 0 : WNOHANG);
    if (result == 0) return ProcessWait::Running;
    collected_ = true;
    if (result < 0) {
      lost_ = true;
    } else if (WIFEXITED(status)) {
      exitCode_ = WEXITSTATUS(status);
    } else {
      exitCode_ = 128 + WTERMSIG(status);
    }
  }
  if (lost_) return ProcessWait::Unknown;
  if (exitCode) *exitCode = exitCode_;
  return ProcessWait::Exited;
}

Started Spawn(const std::string& executable, const std::vector<std::string>& argv, bool minimized) {
  std::vector<std::string> arguments = argv;
  std::vector<char*> argumentPointers = Pointers(arguments);
  std::vector<std::string> environment = ChildEnvironment(minimized);
  std::vector<char*> environmentPointers = Pointers(environment);

  posix_spawn_file_actions_t actions;
  if (int error = posix_spawn_file_actions_init(&actions); error != 0) return {nullptr, error};
  posix_spawnattr_t attributes;
  if (int error = posix_spawnattr_init(&attributes); error != 0) {
    posix_spawn_file_actions_destroy(&actions);
    return {nullptr, error};
  }
  // Descriptors this program opened without close-on-exec (its own, or a library's)
  // must not leak into the started program.
  int error = posix_spawn_file_actions_addclosefrom_np(&actions, 3);
  sigset_t noSignals;
  sigset_t allSignals;
  sigemptyset(&noSignals);
  sigfillset(&allSignals);
  if (error == 0)
    error = posix_spawnattr_setflags(
        &attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  if (error == 0) error = posix_spawnattr_setsigmask(&attributes, &noSignals);
  if (error == 0) error = posix_spawnattr_setsigdefault(&attributes, &allSignals);
  pid_t pid = 0;
  if (error == 0)
    error = posix_spawn(&pid, executable.c_str(), &actions, &attributes, argumentPointers.data(),
                        environmentPointers.data());
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) return {nullptr, error};
  return {std::make_unique<ChildProcess>(pid), 0};
}

}  // namespace vglobal::process_spawn
