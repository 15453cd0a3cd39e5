// Help launcher: command mapping, late binding of the viewer, topic lookup.
#include "frame/help.h"

#include <cctype>
#include <fstream>
#include <sstream>

#include "vglobal/compat/cstring.h"
#include "vglobal/compat/unicode.h"
#include "vglobal/platform.h"
#include "vglobal/settings.h"

namespace vglobal::frame {
namespace {

using HelpEntry = bool (*)(HWND owner, const std::wstring& helpFolder, const HelpRequest& request);

// The two process-wide values of the late binding, kept without a lock: help is
// asked for on the user-interface thread only.
HelpEntry boundEntry = nullptr;
bool bindingFailed = false;

std::string PercentEncodePath(const std::string& path) {
  static const char kHex[] = "0123456789ABCDEF";
  std::string out;
  for (unsigned char c : path) {
    if (std::isalnum(c) || c == '/' || c == '-' || c == '_' || c == '.' || c == '~') {
      out.push_back(static_cast<char>(c));
    } else {
      out.push_back('%');
      out.push_back(kHex[c >> 4]);
      out.push_back(kHex[c & 15]);
    }
  }
  return out;
}

bool OpenTopic(HWND, const std::wstring& helpFolder, const HelpRequest& request) {
  auto topic = FindHelpTopic(helpFolder, request);
  if (!topic) return false;
  std::string folder = WideToUtf8(helpFolder);
  while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  std::string file = WideToUtf8(*topic);
  std::string anchor;
  if (auto hash = file.find('#'); hash != std::string::npos) {
    anchor = file.substr(hash);
    file.resize(hash);
  }
  std::string url = "file://" + PercentEncodePath(folder + "/" + file) + anchor;
  return GetPlatform().OpenWithDesktop(Utf8ToWide(url));
}

HelpEntry Bind() {
  if (boundEntry || bindingFailed) return boundEntry;
  if (GetPlatform().HelpViewerAvailable()) {
    boundEntry = &OpenTopic;
  } else {
    bindingFailed = true;
  }
  return boundEntry;
}

}  // namespace

std::optional<HelpRequest> MapHelpCommand(UINT command, DWORD_PTR data) {
  switch (command) {
    case HELP_CONTEXT:
      if (data != 0) return HelpRequest{HH_HELP_CONTEXT, data};
      return HelpRequest{HH_DISPLAY_TOPIC, 0};
    // Help on help and the finder are fixed topics 1 and 2 of the suite's help,
    // not navigation commands of the viewer.
    case HELP_HELPONHELP:
      return HelpRequest{HH_HELP_CONTEXT, 1};
    case HELP_FINDER:
      return HelpRequest{HH_HELP_CONTEXT, 2};
    default:
      return std::nullopt;
  }
}

std::optional<std::wstring> FindHelpTopic(const std::wstring& helpFolder,
                                          const HelpRequest& request) {
  std::ifstream map(WideToUtf8(helpFolder) + "/topics.map");
  if (!map) return std::nullopt;
  std::string wanted =
      request.command == HH_DISPLAY_TOPIC ? "default" : std::to_string(request.data);
  std::string line;
  while (std::getline(map, line)) {
    std::istringstream fields(line);
    std::string key, topic;
    if (!(fields >> key >> topic) || key[0] == '#') continue;
    // A topic must stay inside the help folder.
    if (topic[0] == '/' || topic.find("..") != std::string::npos) continue;
    if (key == wanted) return Utf8ToWide(topic);
  }
  return std::nullopt;
}

void ResetHelpBinding() {
  boundEntry = nullptr;
  bindingFailed = false;
}

}  // namespace vglobal::frame

int ShowHtmlHelp(HWND owner, UINT command, DWORD_PTR data, const wchar_t* helpFile) {
  CString file;
  if (helpFile && *helpFile) {
    file = helpFile;
  } else {
    GetArvenisHTMLHelpFile(file);
  }
  auto request = vglobal::frame::MapHelpCommand(command, data);
  if (!request) return 0;
  auto entry = vglobal::frame::Bind();
  if (!entry) return 0;
  return entry(owner, file.str(), *request) ? 1 : 0;
}
