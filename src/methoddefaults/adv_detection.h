// The two readers of the Quan Advanced Detection Options key. The key holds values of
// two records, written together by WriteAdvDetectOptionsInfo: three detection values
// of the default component and the method-wide background width. Each record's
// reader takes back its own part and nothing else.
#pragma once

class CComponentIO;
class COptions;

namespace vglobal::methoddefaults {

// Reads "ValleyThreshold", "ValleyDepth" and "PeakSNRCutoff" into the component.
// Returns 1 when all three were present, else 0 (the values found are applied).
int ReadAdvDetectComponent(CComponentIO& component);

// Reads "BkgWidth" into the options. Returns 1 when it was present, else 0.
int ReadAdvDetectOptions(COptions& options);

}  // namespace vglobal::methoddefaults
