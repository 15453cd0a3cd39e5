// Text typed on the command line.
#include "typed_text.h"

#include "tool.h"
#include "vglobal/compat/unicode.h"

namespace arvenis_settings {

const std::string& Utf8Argument(const std::string& typed, std::string_view what) {
  const std::size_t bad = vglobal::FindInvalidUtf8(typed, true);
  if (bad != std::string_view::npos) {
    Fail(kBadInput, std::string(what) + " is not UTF-8 text (byte " + std::to_string(bad + 1) +
                        " is not part of a UTF-8 character): '" + Escaped(typed) + "'");
  }
  return typed;
}

}  // namespace arvenis_settings
