// The POSIX defaults of the platform seam: the desktop's opener (xdg-open, started
// without a shell), the logon name and the tick count.
#include <pwd.h>
#include <spawn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "vglobal/platform.h"

extern char** environ;

namespace vglobal {
namespace {

constexpr const char* kOpener = "xdg-open";

// Whether `name` is an executable file in one of the PATH folders.
bool OnPath(const char* name) {
  const char* path = std::getenv("PATH");
  std::string folders = path && *path ? path : "/usr/local/bin:/usr/bin:/bin";
  std::size_t start = 0;
  while (start <= folders.size()) {
    std::size_t end = folders.find(':', start);
    if (end == std::string::npos) end = folders.size();
    std::string folder = folders.substr(start, end - start);
    std::string candidate = (folder.empty() ? std::string(".") : folder) + "/" + name;
    if (access(candidate.c_str(), X_OK) == 0) return true;
    start = end + 1;
  }
  return false;
}

}  // namespace

bool Platform::OpenWithDesktop(const std::wstring& target) {
  if (target.empty()) return false;
  std::string argument = CString(target).ToUtf8();
  // The opener would take a leading "-" for one of its options.
  if (argument.front() == '-') argument = "./" + argument;
  char* argv[] = {const_cast<char*>(kOpener), argument.data(), nullptr};

  posix_spawnattr_t attributes;
  if (posix_spawnattr_init(&attributes) != 0) return false;
  // A session of its own: the opened program outlives this one's terminal.
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  pid_t child = 0;
  int error = posix_spawnp(&child, kOpener, nullptr, &attributes, argv, environ);
  posix_spawnattr_destroy(&attributes);
  if (error != 0) return false;
  // The opener may wait for the program it starts; reap it without making the
  // user-interface thread wait.
  std::thread([child] {
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
  }).detach();
  return true;
}

bool Platform::HelpViewerAvailable() {
  return OnPath(kOpener);
}

CString Platform::LogonName() {
  long suggested = sysconf(_SC_GETPW_R_SIZE_MAX);
  std::vector<char> buffer(suggested > 0 ? static_cast<std::size_t>(suggested) : 1024);
  passwd entry{};
  passwd* found = nullptr;
  int error;
  while ((error = getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found)) == ERANGE &&
         buffer.size() < (1u << 20))
    buffer.resize(buffer.size() * 2);
  if (error != 0 || !found || !found->pw_name) return CString();
  return CString(found->pw_name);
}

DWORD Platform::TickCount() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  const unsigned long long ms = static_cast<unsigned long long>(now.tv_sec) * 1000ull +
                                static_cast<unsigned long long>(now.tv_nsec) / 1000000ull;
  return static_cast<DWORD>(ms);
}

}  // namespace vglobal
