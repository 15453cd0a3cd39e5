// Text typed on the command line: key paths, value names, string data.
#pragma once

#include <string>
#include <string_view>

namespace arvenis_settings {

// Returns `typed` when it is UTF-8 text; otherwise ends the command (bad input),
// naming the argument `what` and the first byte that is not part of a UTF-8
// character. The rule is that of an import file's text, so that `set` refuses what
// `import` refuses instead of storing U+FFFD in its place; surrogates encoded as
// UTF-8, which `query` and `export --utf8` print for an unpaired one, pass.
const std::string& Utf8Argument(const std::string& typed, std::string_view what);

}  // namespace arvenis_settings
