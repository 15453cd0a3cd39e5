// Per-section completeness of the whole-record readers, for tools that show which
// parts of a user's defaults are stored in full.
#pragma once

#include <vector>

namespace vglobal {

struct SectionResult {
  const wchar_t* section;  // the key(s) below "Processing Setup\Defaults"
  int complete;            // 1 when every value looked for was present
};

// 1 when every section was complete (and there was at least one), else 0.
inline int AllComplete(const std::vector<SectionResult>& results) {
  if (results.empty()) return 0;
  for (const SectionResult& r : results)
    if (!r.complete) return 0;
  return 1;
}

}  // namespace vglobal
