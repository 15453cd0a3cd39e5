// The replicate layout shared by the two level layouts (see level_io.h).
#include "methoddefaults/level_io.h"

#include <array>

#include "methoddefaults/section.h"
#include "vglobal/fileio/level.h"

namespace vglobal::methoddefaults {
namespace {

using S = Section<CReplicate>;

constexpr const wchar_t* kReplicateKey = L"Replicate[%d]";

using F = CReplicate::Fields;

constexpr auto kReplicate = std::to_array<S::Entry>({
    S::Value<&F::Amount>(),
    S::Value<&F::Height>(),
    S::Value<&F::Area>(),
    S::Value<&F::ExcludeFromCalibration>(),
    S::Value<&F::ResultFileName>(),
});

}  // namespace

void WriteReplicates(CVRegKey& levelKey, const CLevel& level) {
  levelKey.WriteInt(L"NumReplicates", level.NumReplicates());
  for (int i = 0; i < level.NumReplicates(); ++i) {
    CVRegKey replicateKey(levelKey, ElementKeyName(kReplicateKey, i), 1, 1);
    WriteValues<CReplicate>(replicateKey, level[i], kReplicate);
  }
}

int ReadReplicates(CVRegKey& levelKey, CLevel& level, int create) {
  const std::optional<int> count = ReadListCount(levelKey, L"NumReplicates");
  if (!count) return 0;
  level.NumReplicates(*count);
  int complete = 1;
  for (int i = 0; i < *count; ++i) {
    CVRegKey replicateKey(levelKey, ElementKeyName(kReplicateKey, i), create, create);
    if (!ReadValues<CReplicate>(replicateKey, level[i], kReplicate)) complete = 0;
  }
  return complete;
}

}  // namespace vglobal::methoddefaults
