// The replicates of a calibration level, as both level layouts keep them: below the
// level's key, "NumReplicates" (int) counts sub-keys "Replicate[0]", "Replicate[1]"...
// holding "Amount", "Height", "Area" (double), "ExcludeFromCalibration" (int) and
// "ResultFileName" (string). The default component's levels and the levels of a
// component under a named key share this layout; they differ in the level's own
// values, in their order and in whether reading creates missing keys.
#pragma once

class CLevel;
class CVRegKey;

namespace vglobal::methoddefaults {

// Writes "NumReplicates" and then each replicate into a sub-key it creates.
void WriteReplicates(CVRegKey& levelKey, const CLevel& level);

// Reads "NumReplicates" (through ReadListCount), resizes the level's replicates to it
// and reads each replicate. With create = 1 a missing replicate key is created empty
// (its values then count as missing). Returns 1 when the count and every value of
// every replicate were present; a missing count reads no replicate and returns 0.
int ReadReplicates(CVRegKey& levelKey, CLevel& level, int create);

}  // namespace vglobal::methoddefaults
