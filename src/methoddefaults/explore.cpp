// Interactive chromatogram peak detection, kept under a key the caller names (the
// library's own dialogs use "Explore\Default Peak Detection"): one peak-detection
// record and three baseline values of the method-wide options.
//
// A few values are read otherwise than they are written. Chromatogram views of the
// suite have always read this key this way and existing stores were written for them,
// so the differences stay, each marked where it sits in its table.
#include "vglobal/methoddefaults/peak_detection.h"

#include <array>

#include "methoddefaults/kiva_entries.h"
#include "methoddefaults/section.h"

namespace {

using vglobal::methoddefaults::KivaEntriesWithoutRMS;
using vglobal::methoddefaults::ReadValues;
using vglobal::methoddefaults::WriteValues;

using D = vglobal::methoddefaults::Section<CPeakDetection>;
using DF = CPeakDetection::Fields;
using O = vglobal::methoddefaults::Section<COptions>;
using OF = COptions::Fields;

// The key holds the detection's values, then the options' baseline values, then the
// detection's Kiva values without KivaRMS: three tables, read and written in that
// order.
constexpr auto kDetection = std::to_array<D::Entry>({
    D::Value<&DF::MassRequired>(),
    D::Value<&DF::PercentMassesFound>(),
    // Written as a double, looked up as an int: a double stored here reads as missing,
    // which marks the key incomplete.
    D::Double(L"MinPeakSeparation", [](const CPeakDetection& d) { return d.MinPeakSeparation(); }),
    D::ReadInt(L"MinPeakSeparation",
               [](CPeakDetection& d, int v) { d.MinPeakSeparation(static_cast<double>(v)); }),
    D::Value<&DF::PercentLargestPeak>(),
    D::Value<&DF::ValleyDetection>(),
    D::Value<&DF::BkgUpdateRate>(),
    D::Value<&DF::BkgWidth>(),
    D::Value<&DF::WindowSize>(),
    D::Value<&DF::FilterWidth>(),
    D::Value<&DF::SNThreshold>(),
    D::Value<&DF::ConstrainPeak>(),
    D::Value<&DF::PeakHeightPercentage>(),
    D::Value<&DF::TailingFactor>(),
    // "ValleyThreshold" is written, but "SNThreshold" is read a second time in its
    // place: the record's ValleyThreshold is never taken from this key.
    D::Double(L"ValleyThreshold", [](const CPeakDetection& d) { return d.ValleyThreshold(); }),
    D::ReadDouble(L"SNThreshold", [](CPeakDetection& d, double v) { d.SNThreshold(v); }),
    D::Value<&DF::ValleyDepth>(),
    D::Value<&DF::PeakSNRCutoff>(),
    D::Value<&DF::PeakWidth>(),
    D::Value<&DF::DisplayWindowWidth>(),
    D::Value<&DF::BaseSNR>(),
});

// Left out when the caller has no options record (the Kiva dialog saves its defaults
// that way).
constexpr auto kOptions = std::to_array<O::Entry>({
    O::Value<&OF::BaseNoiseLimit>(),
    // An int field stored as a double here (an int in the Options key), read back
    // truncated toward zero.
    O::Double(L"MinScansInBaseline",
              [](const COptions& o) { return static_cast<double>(o.MinScansInBaseline()); }),
    O::ReadDoubleAsInt(L"MinScansInBaseline", [](COptions& o, int v) { o.MinScansInBaseline(v); }),
    O::Value<&OF::BaseNoiseRejectionFactor>(),
});

constexpr auto kKiva = KivaEntriesWithoutRMS<CPeakDetection, DF>();

}  // namespace

int ReadDefaultPeakDetection(CPeakDetection* detection, COptions* options, CString& keyPath) {
  if (!detection) return 0;
  // Without an options record the three options values land in a scratch record and
  // are dropped; the read then cannot be complete.
  COptions unused;
  CVRegKey key(HKEY_CURRENT_USER, keyPath.GetString(), 0, 0);
  const int detectionRead = ReadValues<CPeakDetection>(key, *detection, kDetection);
  const int optionsRead = ReadValues<COptions>(key, options ? *options : unused, kOptions);
  const int kivaRead = ReadValues<CPeakDetection>(key, *detection, kKiva);
  return options && detectionRead && optionsRead && kivaRead ? 1 : 0;
}

void WriteIdentificationInfo(CPeakDetection* detection, COptions* options, CVRegKey& key) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!detection) return;
  WriteValues<CPeakDetection>(key, *detection, kDetection);
  if (options) WriteValues<COptions>(key, *options, kOptions);
  WriteValues<CPeakDetection>(key, *detection, kKiva);
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
