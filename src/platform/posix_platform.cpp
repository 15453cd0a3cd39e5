// The POSIX defaults of the platform seam: the desktop's opener (xdg-open, started
// without a shell), no status bar, the logon name and the tick count.
#include <pwd.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>
#include <vector>

#include "platform/command_line.h"
#include "platform/process_spawn.h"
#include "vglobal/platform.h"

namespace vglobal {
namespace {

constexpr const char* kOpener = "xdg-open";

}  // namespace

bool Platform::OpenWithDesktop(const std::wstring& target) {
  if (target.empty()) return false;
  std::optional<std::string> opener = command_line::FindExecutable(kOpener);
  if (!opener) return false;
  std::string argument = CString(target).ToUtf8();
  // The opener would take a leading "-" for one of its options.
  if (argument.front() == '-') argument = "./" + argument;
  // In a session of its own, so that the opened program outlives this one's terminal.
  // The opener may wait for the program it starts: its handle is let go at once and
  // it is collected in the background when it ends.
  return process_spawn::Spawn(*opener, {kOpener, argument}, false).process != nullptr;
}

bool Platform::SetStatusBarText(const wchar_t* /*text*/) {
  return false;
}

bool Platform::HelpViewerAvailable() {
  return command_line::FindExecutable(kOpener).has_value();
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
