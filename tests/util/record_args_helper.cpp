// Stand-in for a program of the suite: records how it was started into the file named
// by RECORD_ARGS_FILE (name=value entries, each ended by a zero byte: "arg" per
// argument, "cwd", "pid", "sid", "minimized" when asked, "fd" per descriptor above 2,
// "sigpipe", "usr1"), renamed into place whole, then exits with RECORD_ARGS_EXIT.
#include <dirent.h>
#include <signal.h>
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
  std::string record;
  auto put = [&record](const char* name, const std::string& value) {
    record.append(name).append("=").append(value).push_back('\0');
  };
  if (DIR* fds = opendir("/proc/self/fd")) {  // before this program opens its own
    while (dirent* entry = readdir(fds))
      if (entry->d_name[0] != '.' && std::atoi(entry->d_name) > 2 &&
          std::atoi(entry->d_name) != dirfd(fds))
        put("fd", entry->d_name);
    closedir(fds);
  }
  for (int i = 0; i < argc; ++i) put("arg", argv[i]);
  char cwd[PATH_MAX];
  put("cwd", getcwd(cwd, sizeof(cwd)) ? cwd : "?");
  put("pid", std::to_string(getpid()));
  put("sid", std::to_string(getsid(0)));
  if (const char* minimized = std::getenv("ARVENIS_START_MINIMIZED")) put("minimized", minimized);
  struct sigaction pipe {};
  sigaction(SIGPIPE, nullptr, &pipe);
  put("sigpipe", pipe.sa_handler == SIG_IGN ? "ignored" : "default");
  sigset_t blocked;
  sigprocmask(SIG_BLOCK, nullptr, &blocked);
  put("usr1", sigismember(&blocked, SIGUSR1) ? "blocked" : "open");

  const char* target = std::getenv("RECORD_ARGS_FILE");
  if (!target) return 2;
  const std::string side = std::string(target) + ".part";
  FILE* out = std::fopen(side.c_str(), "wb");
  if (!out) return 3;
  const bool written = std::fwrite(record.data(), 1, record.size(), out) == record.size();
  if (std::fclose(out) != 0 || !written || std::rename(side.c_str(), target) != 0) return 4;
  const char* code = std::getenv("RECORD_ARGS_EXIT");
  return code ? std::atoi(code) : 0;
}
