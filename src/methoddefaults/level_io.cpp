// The replicate layout shared by the two level layouts (see level_io.h).
#include "methoddefaults/level_io.h"

#include <array>

#include "methoddefaults/section.h"
#include "vglobal/fileio/level.h"

namespace vglobal::methoddefaults {
namespace {

using S = Section<CReplicate>;

constexpr const wchar_t* kReplicateKey = L"Replicate[%d]";

constexpr std::array kReplicateWrite{
    S::Double(L"Amount", [](const CReplicate& r) { return r.Amount(); }),
    S::Double(L"Height", [](const CReplicate& r) { return r.Height(); }),
    S::Double(L"Area", [](const CReplicate& r) { return r.Area(); }),
    S::Int(L"ExcludeFromCalibration",
           [](const CReplicate& r) { return r.ExcludeFromCalibration(); }),
    S::String(L"ResultFileName", [](const CReplicate& r) { return r.ResultFileName(); }),
};

constexpr std::array kReplicateRead{
    S::ReadDouble(L"Amount", [](CReplicate& r, double v) { r.Amount(v); }),
    S::ReadDouble(L"Height", [](CReplicate& r, double v) { r.Height(v); }),
    S::ReadDouble(L"Area", [](CReplicate& r, double v) { r.Area(v); }),
    S::ReadInt(L"ExcludeFromCalibration",
               [](CReplicate& r, int v) { r.ExcludeFromCalibration(v); }),
    S::ReadString(L"ResultFileName", [](CReplicate& r, const CString& v) { r.ResultFileName(v); }),
};

}  // namespace

void WriteReplicates(CVRegKey& levelKey, const CLevel& level) {
  levelKey.WriteInt(L"NumReplicates", level.NumReplicates());
  for (int i = 0; i < level.NumReplicates(); ++i) {
    CVRegKey replicateKey(levelKey, ElementKeyName(kReplicateKey, i), 1, 1);
    WriteValues<CReplicate>(replicateKey, level[i], kReplicateWrite);
  }
}

int ReadReplicates(CVRegKey& levelKey, CLevel& level, int create) {
  const std::optional<int> count = ReadListCount(levelKey, L"NumReplicates");
  if (!count) return 0;
  level.NumReplicates(*count);
  int complete = 1;
  for (int i = 0; i < *count; ++i) {
    CVRegKey replicateKey(levelKey, ElementKeyName(kReplicateKey, i), create, create);
    if (!ReadValues<CReplicate>(replicateKey, level[i], kReplicateRead)) complete = 0;
  }
  return complete;
}

}  // namespace vglobal::methoddefaults
