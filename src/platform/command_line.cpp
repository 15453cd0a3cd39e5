// Command lines: splitting into arguments and finding the program (rules in
// command_line.h).
#include "platform/command_line.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "vglobal/compat/unicode.h"

namespace vglobal::command_line {
namespace {

bool IsBlank(wchar_t c) {
  return c == L' ' || c == L'\t';
}

// The text a command line really holds: it ends at its first zero character.
std::wstring_view UpToZero(std::wstring_view text) {
  return text.substr(0, text.find(L'\0'));
}

bool IsExecutableFile(const std::string& path) {
  struct stat info {};
  if (stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return false;
  // The effective user is the one who will run it.
  return faccessat(AT_FDCWD, path.c_str(), X_OK, AT_EACCESS) == 0;
}

std::string SearchPath() {
  if (const char* path = std::getenv("PATH")) return path;
  // The same default the C library's own search uses.
  std::string fallback(confstr(_CS_PATH, nullptr, 0), '\0');
  if (!fallback.empty()) {
    confstr(_CS_PATH, fallback.data(), fallback.size());
    fallback.pop_back();  // the terminator confstr counted
  }
  return fallback;
}

// The program part as the runtime reads it: quotes group and are dropped, nothing is
// escaped, it ends at a space or tab outside quotes. `end` receives where it ended.
std::wstring ProgramToken(std::wstring_view line, std::size_t start, std::size_t& end) {
  std::wstring token;
  bool quoted = false;
  std::size_t i = start;
  for (; i < line.size(); ++i) {
    const wchar_t c = line[i];
    if (c == L'"') {
      quoted = !quoted;
    } else if (!quoted && IsBlank(c)) {
      break;
    } else {
      token.push_back(c);
    }
  }
  end = i;
  return token;
}

struct Candidate {
  std::wstring program;
  std::size_t end;  // where the arguments begin
};

// The spellings of the program to try, in order (see command_line.h).
std::vector<Candidate> Candidates(std::wstring_view line, std::size_t start) {
  std::vector<Candidate> candidates;
  if (line[start] != L'"') {
    bool sawQuote = false;
    for (std::size_t i = start + 1; i < line.size() && !sawQuote; ++i) {
      if (line[i] == L'"') {
        sawQuote = true;
      } else if (IsBlank(line[i]) && !IsBlank(line[i - 1])) {
        candidates.push_back({std::wstring(line.substr(start, i - start)), i});
      }
    }
    if (!sawQuote && !IsBlank(line.back()))
      candidates.push_back({std::wstring(line.substr(start)), line.size()});
  }
  // A program part that is quoted, or holds a quote, is read as the runtime reads it.
  std::size_t end = 0;
  std::wstring token = ProgramToken(line, start, end);
  if (candidates.empty() || candidates.front().program != token)
    candidates.push_back({std::move(token), end});
  return candidates;
}

}  // namespace

std::vector<std::wstring> SplitArguments(std::wstring_view text) {
  text = UpToZero(text);
  std::vector<std::wstring> arguments;
  std::size_t i = 0;
  const std::size_t n = text.size();
  while (true) {
    while (i < n && IsBlank(text[i])) ++i;
    if (i >= n) break;
    std::wstring argument;
    bool quoted = false;
    while (i < n && (quoted || !IsBlank(text[i]))) {
      const wchar_t c = text[i];
      if (c == L'\\') {
        std::size_t count = 0;
        while (i < n && text[i] == L'\\') ++count, ++i;
        if (i < n && text[i] == L'"') {
          // Backslashes escape only each other and a quote; an even run leaves the
          // quote to group, which the next round does.
          argument.append(count / 2, L'\\');
          if (count % 2 == 1) {
            argument.push_back(L'"');
            ++i;
          }
        } else {
          argument.append(count, L'\\');
        }
      } else if (c == L'"') {
        if (quoted && i + 1 < n && text[i + 1] == L'"') {
          argument.push_back(L'"');
          i += 2;
        } else {
          quoted = !quoted;
          ++i;
        }
      } else {
        argument.push_back(c);
        ++i;
      }
    }
    arguments.push_back(std::move(argument));
  }
  return arguments;
}

std::optional<std::string> FindExecutable(std::string_view name) {
  if (name.empty()) return std::nullopt;
  std::string path(name);
  if (name.find_first_of("/\\") != std::string_view::npos) {
    if (IsExecutableFile(path)) return path;
    return std::nullopt;
  }
  const std::string folders = SearchPath();
  std::size_t start = 0;
  while (start <= folders.size()) {
    std::size_t end = folders.find(':', start);
    if (end == std::string::npos) end = folders.size();
    // An empty entry of the search path means the working folder.
    std::string folder = end > start ? folders.substr(start, end - start) : std::string(1, '.');
    folder.push_back('/');
    folder += path;
    if (IsExecutableFile(folder)) return folder;
    start = end + 1;
  }
  return std::nullopt;
}

std::optional<Resolved> Resolve(std::wstring_view line) {
  line = UpToZero(line);
  std::size_t start = 0;
  while (start < line.size() && IsBlank(line[start])) ++start;
  if (start >= line.size()) return std::nullopt;
  for (Candidate& candidate : Candidates(line, start)) {
    std::optional<std::string> executable = FindExecutable(WideToUtf8(candidate.program));
    if (!executable) continue;
    return Resolved{std::move(candidate.program), std::move(*executable),
                    SplitArguments(line.substr(candidate.end))};
  }
  return std::nullopt;
}

}  // namespace vglobal::command_line
