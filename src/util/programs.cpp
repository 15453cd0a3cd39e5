// Starting the suite's programs, manuals and installed versions (contract in
// vglobal/util/programs.h). The splitting of command lines and the making of
// processes live in the platform (command_line, process_spawn); the channel to a
// running instance in instance_channel.
//
// Sections: the handles of started programs; starting a command line; InvokeApp;
// manuals; installed versions; the handle functions.
#include "vglobal/util/programs.h"

#include <cstdlib>
#include <cstring>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "platform/command_line.h"
#include "platform/process_spawn.h"
#include "vglobal/compat/filestatus.h"
#include "vglobal/compat/unicode.h"
#include "vglobal/platform.h"
#include "vglobal/settings.h"
#include "vglobal/util/error_message.h"
#include "vglobal/util/instance_channel.h"

namespace {

using vglobal::process_spawn::ChildProcess;

// The handles given out and not yet closed. Callers hold them as void*, so a stale
// or foreign pointer is told apart here instead of being used.
std::mutex& HandlesMutex() {
  static auto* mutex = new std::mutex;  // may be used while statics are torn down
  return *mutex;
}
std::unordered_set<ChildProcess*>& Handles() {
  static auto* handles = new std::unordered_set<ChildProcess*>;
  return *handles;
}

ChildProcess* Live(void* handle) {
  if (!handle) return nullptr;
  std::lock_guard lock(HandlesMutex());
  auto found = Handles().find(static_cast<ChildProcess*>(handle));
  return found == Handles().end() ? nullptr : *found;
}

void* ToHandle(std::unique_ptr<ChildProcess> process) {
  if (!process) return nullptr;
  std::lock_guard lock(HandlesMutex());
  ChildProcess* handle = process.release();
  Handles().insert(handle);
  return handle;
}

constexpr unsigned int kCannotInvokeId = 5201;
// The one program found through the system profile rather than the search path.
constexpr unsigned int kProfileProgramId = 10005;
constexpr const wchar_t* kSystemProfileKey = L"Software\\Ostrel\\System Profile\\";
// Where that program is installed on Linux when the profile does not say.
constexpr const wchar_t* kDefaultProfileFolder = L"/opt/nistms/";
// The profile's folder is read into a buffer of 260 characters with its terminator.
constexpr std::size_t kProfileFolderChars = 259;
constexpr const wchar_t* kInstalledVersionInfoKey = L"Software\\Ostrel\\Installed Version Info";
// The value was read into 2048 bytes of UTF-16 with the terminator.
constexpr std::size_t kInstalledValueUnits = 2048 / sizeof(char16_t) - 1;

// The program of a "section key file" rule: the profile's folder followed by the
// file name; nullopt when the rule does not have three words.
std::optional<std::wstring> ProfileProgram(const std::wstring& rule) {
  std::vector<std::wstring> words;
  std::size_t start = 0;
  while (start < rule.size()) {
    std::size_t end = rule.find(L' ', start);
    if (end == std::wstring::npos) end = rule.size();
    if (end > start) words.push_back(rule.substr(start, end - start));
    start = end + 1;
  }
  if (words.size() != 3) return std::nullopt;
  const std::wstring keyPath = kSystemProfileKey + words[0];
  CVRegKey key(HKEY_LOCAL_MACHINE, keyPath.c_str(), 0, 0);
  CString folder;
  if (!key.ReadStr(words[1].c_str(), folder)) folder = kDefaultProfileFolder;
  std::wstring program = folder.str().substr(0, kProfileFolderChars);
  return program + words[2];
}

// The program's file name: what its running instance is known by.
std::wstring FileNameOf(const std::wstring& command) {
  const std::size_t separator = command.find_last_of(L"/\\");
  return separator == std::wstring::npos ? command : command.substr(separator + 1);
}

// Starts `line`; false when its program cannot be found or started.
bool StartCommandLine(const std::wstring& line, int minimized, void** process) {
  std::optional<vglobal::command_line::Resolved> resolved = vglobal::command_line::Resolve(line);
  if (!resolved) return false;
  std::vector<std::string> argv;
  argv.reserve(resolved->arguments.size() + 1);
  argv.push_back(vglobal::WideToUtf8(resolved->program));
  for (const std::wstring& argument : resolved->arguments)
    argv.push_back(vglobal::WideToUtf8(argument));
  vglobal::process_spawn::Started started =
      vglobal::process_spawn::Spawn(resolved->executable, argv, minimized != 0);
  if (!started.process) return false;
  // Without a place for the handle it goes at once; the program is collected when it ends.
  if (process) *process = ToHandle(std::move(started.process));
  return true;
}

// The text of a failed start. Never empty: should the string table lack the message,
// the command line itself says what failed.
CString CannotInvokeText(const std::wstring& line) {
  CString text;
  if (!FormatErrorMessage(kCannotInvokeId, &text, line.c_str()) || text.IsEmpty()) text = line;
  return text;
}

void ShowCannotInvoke(const std::wstring& line) {
  vglobal::GetPlatform().MessageBox(nullptr, CannotInvokeText(line), nullptr, MB_OK);
}

}  // namespace

int InvokeApp(unsigned int programId, int minimized, void** process, const wchar_t* arguments) {
  if (process) *process = nullptr;
  CString program;
  if (!program.LoadString(programId) || program.IsEmpty()) return 0;
  std::wstring command = program.str();
  if (programId == kProfileProgramId) {
    std::optional<std::wstring> found = ProfileProgram(command);
    if (!found) {
      ShowCannotInvoke(command);
      return 0;
    }
    command = *found;
  }

  if (vglobal::SendToRunningInstance(FileNameOf(command), arguments) ==
      vglobal::InstanceDelivery::Delivered)
    return 1;

  // The space follows the command even without arguments. Arguments that do not
  // start with a quote are quoted as one; the legacy check for a closing quote
  // looked past the text and never found one, so a text ending in a quote is
  // quoted all the same.
  std::wstring line = command + L' ';
  if (arguments && *arguments) {
    if (arguments[0] == L'"') {
      line += arguments;
    } else {
      line += L'"';
      line += arguments;
      line += L'"';
    }
  }
  if (!StartCommandLine(line, minimized, process)) {
    ShowCannotInvoke(line);
    return 0;
  }
  return 1;
}

CString InvokeApp(CString commandLine, int minimized, void** process, const wchar_t* arguments) {
  if (process) *process = nullptr;
  std::wstring line = commandLine.str() + L' ';
  if (arguments) line += arguments;
  if (!StartCommandLine(line, minimized, process)) return CannotInvokeText(line);
  return CString();
}

void OpenPDFManual(CString folder, unsigned int nameId) {
  CString name;
  name.LoadString(nameId);
  const CString file = folder + name + L".pdf";
  CFileStatus status;
  vglobal::Platform& platform = vglobal::GetPlatform();
  // A manual that is there but finds no opener is as unreachable to the user as a
  // missing one, and is reported the same way.
  if (CFile::GetStatus(file, status) && platform.OpenWithDesktop(file.str())) return;
  platform.SetStatusBarText(CString(L"Not able to open ") + file);
}

int GetApplicationInfoFromInstalledVerionsInfo(CString application, CString item, CString& value) {
  value.Empty();
  if (application.IsEmpty() || item.IsEmpty()) return 0;
  CVRegKey versions(HKEY_LOCAL_MACHINE, kInstalledVersionInfoKey, 0, 0);
  if (!versions.Open(KEY_READ)) return 0;
  CString path;
  path.Format(L"%s\\%s", kInstalledVersionInfoKey, application.GetString());
  CVRegKey key(HKEY_LOCAL_MACHINE, path, 0, 0);
  if (!key.Open(KEY_READ)) return 0;
  CString read;
  if (!key.ReadStr(item, read)) return 0;
  if (vglobal::WideToUtf16(read.view()).size() > kInstalledValueUnits) return 0;
  value = read;
  return 1;
}

int GetApplicationInfoFromInstalledVerionsInfo(unsigned int applicationId, unsigned int itemId,
                                               CString& value) {
  CString application;
  CString item;
  application.LoadString(applicationId);
  item.LoadString(itemId);
  return GetApplicationInfoFromInstalledVerionsInfo(application, item, value);
}

namespace vglobal {

bool StartedMinimized() {
  const char* value = std::getenv(kStartMinimizedVariable);
  return value && std::strcmp(value, "1") == 0;
}

int ProcessId(void* process) {
  ChildProcess* child = Live(process);
  return child ? static_cast<int>(child->pid()) : 0;
}

ProcessWait WaitForProcess(void* process, bool block, int* exitCode) {
  ChildProcess* child = Live(process);
  return child ? child->Wait(block, exitCode) : ProcessWait::Unknown;
}

void CloseProcess(void* process) {
  if (!process) return;
  ChildProcess* child = nullptr;
  {
    std::lock_guard lock(HandlesMutex());
    auto found = Handles().find(static_cast<ChildProcess*>(process));
    if (found == Handles().end()) return;
    child = *found;
    Handles().erase(found);
  }
  delete child;
}

}  // namespace vglobal
