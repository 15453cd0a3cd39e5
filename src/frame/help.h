// The help launcher that every dialog of the library calls from its Help button.
//
// A help "file" here is a folder of HTML topics holding a map, "topics.map", from
// context id to topic file:
//     # comment
//     default  index.html
//     5236     audit_trail_add.html
// The topic opens through the desktop's URL opener. The viewer is bound on first
// use; when the system has none, that is remembered for the life of the process and
// help requests show nothing.
#pragma once

#include <optional>
#include <string>

#include "vglobal/compat/types.h"

// Maps a classic help command to a help-viewer request and shows it. helpFile null
// or empty means the suite's help (GetArvenisHTMLHelpFile). Nothing that cannot be
// shown is reported: the result says only whether a topic was handed to the viewer.
int ShowHtmlHelp(HWND owner, UINT command, DWORD_PTR data, const wchar_t* helpFile);

namespace vglobal::frame {

struct HelpRequest {
  UINT command;  // HH_HELP_CONTEXT or HH_DISPLAY_TOPIC
  DWORD_PTR data;
};

// The command mapping: HELP_CONTEXT with a context id asks for that topic and
// without one for the default topic; HELP_HELPONHELP and HELP_FINDER ask for the
// fixed topics 1 and 2 of the suite's help; anything else shows nothing.
std::optional<HelpRequest> MapHelpCommand(UINT command, DWORD_PTR data);

// The topic file (relative to the help folder) for a request, from the folder's map.
std::optional<std::wstring> FindHelpTopic(const std::wstring& helpFolder,
                                          const HelpRequest& request);

// Forgets the late-bound viewer so that the next call binds again (tests only).
void ResetHelpBinding();

}  // namespace vglobal::frame
