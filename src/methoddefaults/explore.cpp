// Interactive chromatogram peak detection, kept under a key the caller names (the
// library's own dialogs use "Explore\Default Peak Detection"): one peak-detection
// record and three baseline values of the method-wide options.
//
// The reading table is not the mirror of the writing table. Chromatogram views of the
// suite have always read this key this way and existing stores were written for them,
// so the differences stay, each marked where it sits in the table.
#include "vglobal/methoddefaults/peak_detection.h"

#include "methoddefaults/section.h"

namespace {

using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::WriteValues;

// The section moves values of two records.
struct ExploreRecords {
  CPeakDetection* detection;
  COptions* options;  // null when writing without options
};

using S = vglobal::methoddefaults::Section<ExploreRecords>;
using R = ExploreRecords;

bool HasOptions(const R& r) {
  return r.options != nullptr;
}

const S::Write kExploreWrite[] = {
    S::Int(L"MassRequired", [](const R& r) { return r.detection->MassRequired(); }),
    S::Double(L"PercentMassesFound", [](const R& r) { return r.detection->PercentMassesFound(); }),
    S::Double(L"MinPeakSeparation", [](const R& r) { return r.detection->MinPeakSeparation(); }),
    S::Double(L"PercentLargestPeak", [](const R& r) { return r.detection->PercentLargestPeak(); }),
    S::Int(L"ValleyDetection", [](const R& r) { return r.detection->ValleyDetection(); }),
    S::Double(L"BkgUpdateRate", [](const R& r) { return r.detection->BkgUpdateRate(); }),
    S::Int(L"BkgWidth", [](const R& r) { return r.detection->BkgWidth(); }),
    S::Int(L"WindowSize", [](const R& r) { return r.detection->WindowSize(); }),
    S::Int(L"FilterWidth", [](const R& r) { return r.detection->FilterWidth(); }),
    S::Double(L"SNThreshold", [](const R& r) { return r.detection->SNThreshold(); }),
    S::Int(L"ConstrainPeak", [](const R& r) { return r.detection->ConstrainPeak(); }),
    S::Double(L"PeakHeightPercentage",
              [](const R& r) { return r.detection->PeakHeightPercentage(); }),
    S::Double(L"TailingFactor", [](const R& r) { return r.detection->TailingFactor(); }),
    S::Double(L"ValleyThreshold", [](const R& r) { return r.detection->ValleyThreshold(); }),
    S::Double(L"ValleyDepth", [](const R& r) { return r.detection->ValleyDepth(); }),
    S::Double(L"PeakSNRCutoff", [](const R& r) { return r.detection->PeakSNRCutoff(); }),
    S::Double(L"PeakWidth", [](const R& r) { return r.detection->PeakWidth(); }),
    S::Double(L"DisplayWindowWidth", [](const R& r) { return r.detection->DisplayWindowWidth(); }),
    S::Double(L"BaseSNR", [](const R& r) { return r.detection->BaseSNR(); }),
    // The options' baseline values, left out when the caller has no options record
    // (the Kiva dialog saves its defaults that way).
    S::Double(
        L"BaseNoiseLimit", [](const R& r) { return r.options->BaseNoiseLimit(); }, HasOptions),
    // An int field stored as a double in this key (an int in the Options key).
    S::Double(
        L"MinScansInBaseline",
        [](const R& r) { return static_cast<double>(r.options->MinScansInBaseline()); },
        HasOptions),
    S::Double(
        L"BaseNoiseRejectionFactor",
        [](const R& r) { return r.options->BaseNoiseRejectionFactor(); }, HasOptions),
    S::Int(L"BaselineWindow", [](const R& r) { return r.detection->BaselineWindow(); }),
    S::Int(L"PeakNoiseFactor", [](const R& r) { return r.detection->PeakNoiseFactor(); }),
    S::Int(L"MultipletResolution", [](const R& r) { return r.detection->MultipletResolution(); }),
    S::Int(L"KivaMinPeakWidth", [](const R& r) { return r.detection->KivaMinPeakWidth(); }),
    S::Int(L"AreaScanWindow", [](const R& r) { return r.detection->AreaScanWindow(); }),
    S::Int(L"AreaNoiseFactor", [](const R& r) { return r.detection->AreaNoiseFactor(); }),
    S::Int(L"AreaTailExtension", [](const R& r) { return r.detection->AreaTailExtension(); }),
    S::Int(L"KivaNoiseType", [](const R& r) { return r.detection->KivaNoiseType(); }),
    S::Int(L"KivaConstrainPeak", [](const R& r) { return r.detection->KivaConstrainPeak(); }),
    S::Double(L"KivaPeakHeightPercentage",
              [](const R& r) { return r.detection->KivaPeakHeightPercentage(); }),
    S::Double(L"KivaTailingFactor", [](const R& r) { return r.detection->KivaTailingFactor(); }),
};

const S::Read kExploreRead[] = {
    S::ReadInt(L"MassRequired", [](R& r, int v) { r.detection->MassRequired(v); }),
    S::ReadDouble(L"PercentMassesFound",
                  [](R& r, double v) { r.detection->PercentMassesFound(v); }),
    // Looked up as an int although written as a double: a double stored here reads as
    // missing, which marks the key incomplete.
    S::ReadInt(L"MinPeakSeparation",
               [](R& r, int v) { r.detection->MinPeakSeparation(static_cast<double>(v)); }),
    S::ReadDouble(L"PercentLargestPeak",
                  [](R& r, double v) { r.detection->PercentLargestPeak(v); }),
    S::ReadInt(L"ValleyDetection", [](R& r, int v) { r.detection->ValleyDetection(v); }),
    S::ReadDouble(L"BkgUpdateRate", [](R& r, double v) { r.detection->BkgUpdateRate(v); }),
    S::ReadInt(L"BkgWidth", [](R& r, int v) { r.detection->BkgWidth(v); }),
    S::ReadInt(L"WindowSize", [](R& r, int v) { r.detection->WindowSize(v); }),
    S::ReadInt(L"FilterWidth", [](R& r, int v) { r.detection->FilterWidth(v); }),
    S::ReadDouble(L"SNThreshold", [](R& r, double v) { r.detection->SNThreshold(v); }),
    S::ReadInt(L"ConstrainPeak", [](R& r, int v) { r.detection->ConstrainPeak(v); }),
    S::ReadDouble(L"PeakHeightPercentage",
                  [](R& r, double v) { r.detection->PeakHeightPercentage(v); }),
    S::ReadDouble(L"TailingFactor", [](R& r, double v) { r.detection->TailingFactor(v); }),
    // Where "ValleyThreshold" is written, "SNThreshold" is read a second time: the
    // record's ValleyThreshold is never taken from this key.
    S::ReadDouble(L"SNThreshold", [](R& r, double v) { r.detection->SNThreshold(v); }),
    S::ReadDouble(L"ValleyDepth", [](R& r, double v) { r.detection->ValleyDepth(v); }),
    S::ReadDouble(L"PeakSNRCutoff", [](R& r, double v) { r.detection->PeakSNRCutoff(v); }),
    S::ReadDouble(L"PeakWidth", [](R& r, double v) { r.detection->PeakWidth(v); }),
    S::ReadDouble(L"DisplayWindowWidth",
                  [](R& r, double v) { r.detection->DisplayWindowWidth(v); }),
    S::ReadDouble(L"BaseSNR", [](R& r, double v) { r.detection->BaseSNR(v); }),
    S::ReadDouble(L"BaseNoiseLimit", [](R& r, double v) { r.options->BaseNoiseLimit(v); }),
    // Stored as a double here; truncated toward zero into the int field.
    S::ReadDoubleAsInt(L"MinScansInBaseline",
                       [](R& r, int v) { r.options->MinScansInBaseline(v); }),
    S::ReadDouble(L"BaseNoiseRejectionFactor",
                  [](R& r, double v) { r.options->BaseNoiseRejectionFactor(v); }),
    S::ReadInt(L"BaselineWindow", [](R& r, int v) { r.detection->BaselineWindow(v); }),
    S::ReadInt(L"PeakNoiseFactor", [](R& r, int v) { r.detection->PeakNoiseFactor(v); }),
    S::ReadInt(L"MultipletResolution", [](R& r, int v) { r.detection->MultipletResolution(v); }),
    S::ReadInt(L"KivaMinPeakWidth", [](R& r, int v) { r.detection->KivaMinPeakWidth(v); }),
    S::ReadInt(L"AreaScanWindow", [](R& r, int v) { r.detection->AreaScanWindow(v); }),
    S::ReadInt(L"AreaNoiseFactor", [](R& r, int v) { r.detection->AreaNoiseFactor(v); }),
    S::ReadInt(L"AreaTailExtension", [](R& r, int v) { r.detection->AreaTailExtension(v); }),
    S::ReadInt(L"KivaNoiseType", [](R& r, int v) { r.detection->KivaNoiseType(v); }),
    S::ReadInt(L"KivaConstrainPeak", [](R& r, int v) { r.detection->KivaConstrainPeak(v); }),
    S::ReadDouble(L"KivaPeakHeightPercentage",
                  [](R& r, double v) { r.detection->KivaPeakHeightPercentage(v); }),
    S::ReadDouble(L"KivaTailingFactor", [](R& r, double v) { r.detection->KivaTailingFactor(v); }),
};

}  // namespace

int ReadDefaultPeakDetection(CPeakDetection* detection, COptions* options, CString& keyPath) {
  if (!detection) return 0;
  // Without an options record the three options values land in a scratch record and
  // are dropped; the read then cannot be complete.
  COptions unused;
  ExploreRecords records{detection, options ? options : &unused};
  const int complete = ReadValues<ExploreRecords>(keyPath.GetString(), records, kExploreRead);
  return options ? complete : 0;
}

void WriteIdentificationInfo(CPeakDetection* detection, COptions* options, CVRegKey& key) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!detection) return;
  const ExploreRecords records{detection, options};
  WriteValues<ExploreRecords>(key, records, kExploreWrite);
}

void CreateRegistryEntries(CPeakDetection* detection, COptions* options, CString keyPath) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!detection) return;
  CVRegKey key(HKEY_CURRENT_USER, keyPath.GetString(), 1, 1);
  WriteIdentificationInfo(detection, options, key);
}

void SetDefaultRegistryEntries(CPeakDetection* detection, COptions* options, CString keyPath) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!detection) return;
  CVRegKey key(HKEY_CURRENT_USER, keyPath.GetString(), 0, 0);
  // Found values are loaded before the rewrite, so rewriting from the records keeps
  // them and fills in only what was missing.
  if (!key.IsValid() || !ReadDefaultPeakDetection(detection, options, keyPath))
    CreateRegistryEntries(detection, options, keyPath);
}
