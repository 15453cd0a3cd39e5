// Fills every documented field of a processing-method record with a value of its own,
// so that a stored layout shows which field each value came from: two swapped fields
// show as swapped values.
#pragma once

#include "vglobal/vglobal.h"

namespace vglobal::testing {

// Hands out distinct values: whole numbers 1, 2, 3 ..., reals 1000.25, 1001.25 ...,
// and texts named after their field.
class Seed {
 public:
  int Whole() { return ++whole_; }
  double Real() { return 1000.25 + real_++; }
  CString Text(const wchar_t* field) {
    return CString(field) + L"-" + CString(std::to_wstring(++text_));
  }

 private:
  int whole_ = 0;
  int real_ = 0;
  int text_ = 0;
};

inline void Populate(vglobal::ComponentIdentification& r, Seed& s) {
  r.ComponentName(s.Text(L"ComponentName"));
  r.DetectorType(static_cast<VirtualDeviceType>(s.Whole()));
  r.DetectorDelay(s.Real());
  r.Trace1Type(s.Whole());
  r.Trace2Type(s.Whole());
  r.TraceOperator(s.Whole());
  r.Keys(s.Text(L"Keys"));
  r.RTSearchWindow(s.Real());
  r.DisplayWindowWidth(s.Real());
  r.AdjustExpectedRT(s.Whole());
  r.UseAsRTReference(s.Whole());
  r.RTReference(s.Text(L"RTReference"));
  r.SNThreshold(s.Real());
  r.PeakDetectionIndex(s.Whole());
  r.SmoothingPoints(s.Whole());
  r.ValleyDetection(s.Whole());
  r.ExpectedPeakWidth(s.Real());
  r.ConstrainPeak(s.Whole());
  r.PeakHeightPercentage(s.Real());
  r.TailingFactor(s.Real());
  r.ValleyThreshold(s.Real());
  r.ValleyDepth(s.Real());
  r.PeakSNRCutoff(s.Real());
  r.BaseSNR(s.Real());
  r.KivaNoiseType(s.Whole());
  r.KivaMinPeakWidth(s.Whole());
  r.PeakNoiseFactor(s.Whole());
  r.BaselineWindow(s.Whole());
  r.MultipletResolution(s.Whole());
  r.AreaTailExtension(s.Whole());
  r.AreaNoiseFactor(s.Whole());
  r.AreaScanWindow(s.Whole());
  r.KivaConstrainPeak(s.Whole());
  r.KivaPeakHeightPercentage(s.Real());
  r.KivaTailingFactor(s.Real());
  r.KivaRMS(s.Whole());
  r.ForwardThreshold(s.Whole());
  r.ReverseThreshold(s.Whole());
  r.MatchThreshold(s.Whole());
  r.IonRatioConfirmation(s.Whole());
  r.Standard(s.Whole());
  r.IonRatioMethod(s.Whole());
  r.IonRatioWndType(s.Whole());
  r.QualifierIonCoelution(s.Real());
}

inline void Populate(vglobal::ComponentCalibration& r, Seed& s) {
  r.Type(s.Whole());
  r.ISTDBaseAmount(s.Real());
  r.ISTDUnits(s.Text(L"ISTDUnits"));
  r.CurveIndex(s.Whole());
  r.OriginIndex(s.Whole());
  r.WeightingIndex(s.Whole());
  r.ResponseIndex(s.Whole());
  r.CalibrationUnits(s.Text(L"CalibrationUnits"));
  r.ReportUnits(s.Text(L"ReportUnits"));
  r.PercentISTDInTarget(s.Real());
  r.PercentTargetInISTD(s.Real());
  r.SpikeAmount(s.Real());
  r.SpikeUpperRecovery(s.Real());
  r.SpikeLowerRecovery(s.Real());
  r.UserEnteredRT(s.Real());
  r.FitThreshold(s.Real());
}

inline void Populate(vglobal::ComponentFlags& r, Seed& s) {
  r.AreaFlagThreshold(s.Real());
  r.HeightFlagThreshold(s.Real());
  r.AreaFlagPercentThreshold(s.Real());
  r.HeightFlagPercentThreshold(s.Real());
  r.R_Squared(s.Real());
  r.LimitDetection(s.Real());
  r.LimitQuantitation(s.Real());
  r.LinearityLimit(s.Real());
  r.CarryOverLimit(s.Real());
  r.ResolutionChecksEnabled(s.Whole());
  r.SymmetryChecksEnabled(s.Whole());
  r.PeakClassificationChecksEnabled(s.Whole());
  r.ResThreshold(s.Real());
  r.SymmetryTake(s.Real());
  r.SymmetryThreshold(s.Real());
  r.MinPeakWidth(s.Real());
  r.MaxPeakWidth(s.Real());
  r.DetectWidth(s.Real());
  r.TailingMeasured(s.Real());
  r.TailingFailureThreshold(s.Real());
  r.ColumnMeasure(s.Real());
  r.ColumnFailureThreshold(s.Real());
  r.BaselineClipping(s.Real());
  r.DetectSignalToNoise(s.Real());
}

inline void Populate(CReplicate& r, Seed& s) {
  r.Amount(s.Real());
  r.Height(s.Real());
  r.Area(s.Real());
  r.ExcludeFromCalibration(s.Whole());
  r.ResultFileName(s.Text(L"ResultFileName"));
}

inline void Populate(CLevel& r, Seed& s) {
  r.LevelName(s.Text(L"LevelName"));
  r.BaseAmount(s.Real());
  r.TestPercent(s.Real());
}

// A populated level with `replicates` populated replicates.
inline CLevel PopulatedLevel(Seed& s, int replicates) {
  CLevel level;
  Populate(level, s);
  for (int i = 0; i < replicates; ++i) {
    CReplicate replicate;
    Populate(replicate, s);
    level.AddReplicate(replicate);
  }
  return level;
}

inline void Populate(CMIPair& r, Seed& s) {
  r.Mass(s.Real());
  r.Intensity(s.Real());
}

inline void Populate(CMassRange& r, Seed& s) {
  r.LowMass(s.Real());
  r.HighMass(s.Real());
}

inline void Populate(CPeakDetection& r, Seed& s) {
  r.MassRequired(s.Whole());
  r.PercentMassesFound(s.Real());
  r.MinPeakSeparation(s.Real());
  r.PercentLargestPeak(s.Real());
  r.SmoothingPoints(s.Whole());
  r.ValleyDetection(s.Whole());
  r.BkgUpdateRate(s.Real());
  r.BkgWidth(s.Whole());
  r.WindowSize(s.Whole());
  r.FilterWidth(s.Whole());
  r.SNThreshold(s.Real());
  r.ConstrainPeak(s.Whole());
  r.PeakHeightPercentage(s.Real());
  r.TailingFactor(s.Real());
  r.ValleyThreshold(s.Real());
  r.ValleyDepth(s.Real());
  r.PeakSNRCutoff(s.Real());
  r.PeakWidth(s.Real());
  r.DisplayWindowWidth(s.Real());
  r.BaseSNR(s.Real());
  r.TraceDelay(s.Real());
  r.Trace1Type(s.Whole());
  r.Trace2Type(s.Whole());
  r.TraceOperator(s.Whole());
  r.DetectorType(s.Whole());
  r.LimitPeakEnabled(s.Whole());
  r.LimitPeakMethod(s.Whole());
  r.PeaksNumber(s.Real());
  r.RelPeakEnabled(s.Whole());
  r.Algorithm(static_cast<ePeakDetectionAlgorithm>(s.Whole()));
  r.KivaNoiseType(s.Whole());
  r.KivaMinPeakWidth(s.Whole());
  r.PeakNoiseFactor(s.Whole());
  r.BaselineWindow(s.Whole());
  r.MultipletResolution(s.Whole());
  r.AreaTailExtension(s.Whole());
  r.AreaNoiseFactor(s.Whole());
  r.AreaScanWindow(s.Whole());
  r.KivaConstrainPeak(s.Whole());
  r.KivaPeakHeightPercentage(s.Real());
  r.KivaTailingFactor(s.Real());
  r.KivaRMS(s.Whole());
}

inline void Populate(COptions& r, Seed& s) {
  r.VoidTime(s.Whole());
  r.VoidTimeValue(s.Real());
  r.SearchWindow(s.Real());
  r.MinScansInBaseline(s.Whole());
  r.BaseNoiseLimit(s.Real());
  r.BkgWidth(s.Whole());
  r.BaseNoiseRejectionFactor(s.Real());
  r.SpectrumOptions(s.Whole());
}

inline void Populate(CSpecEnhanceOptions& r, Seed& s) {
  r.SpecEnabled(s.Whole());
  r.SpectrumMethod(s.Whole());
  r.WindowSize(s.Real());
  r.NoiseThreshold(s.Whole());
  r.Take(s.Real());
  r.BgScalingFactor(s.Real());
  r.Region1Method(s.Whole());
  r.PtsPkTop(s.Real());
  r.Previous(s.Real());
  r.Region2Method(s.Whole());
  r.PtsAfterPkTop(s.Real());
  r.NextPt(s.Real());
  r.CutOffThreshold(s.Real());
}

inline void Populate(CLibrarySearchOptions& r, Seed& s) {
  r.SimilarityMode(s.Whole());
  r.IdentityMode(s.Whole());
  r.SearchType(s.Whole());
  r.SearchMWEnabled(s.Whole());
  r.ReverseSearch(s.Whole());
  r.AppendUserLib(s.Whole());
  r.SearchMW(s.Whole());
  r.NumMaxHits(s.Real());
  r.MatchFactor(s.Whole());
  r.ReverseMatchFactor(s.Whole());
  r.ProbabilityPercent(s.Whole());
  r.ApplyMassDefect(s.Whole());
  r.Defect1(s.Whole());
  r.Defect2(s.Whole());
  r.DefectMass1(s.Real());
  r.DefectMass2(s.Real());
  r.UserLibrary(s.Text(L"UserLibrary"));
}

inline void Populate(CIndividualConstraint& r, Seed& s) {
  r.Condition(s.Whole());
  r.Value(s.Whole());
}

inline void Populate(CIonConstraint& r, Seed& s) {
  r.Type(s.Whole());
  r.MZ(s.Whole());
  r.From(s.Whole());
  r.To(s.Whole());
}

inline void Populate(CConstraints& r, Seed& s) {
  r.MolWtEnabled(s.Whole());
  r.MnMolWt(s.Whole());
  r.MaxMolWt(s.Whole());
  r.NameFragmentEnabled(s.Whole());
  r.DBEnabled(s.Whole());
  r.FineEnabled(s.Whole());
  r.EPAEnabled(s.Whole());
  r.NIHEnabled(s.Whole());
  r.TSCAEnabled(s.Whole());
  r.USPEnabled(s.Whole());
  r.EINECSEnabled(s.Whole());
  r.RTECSEnabled(s.Whole());
  r.HODOCEnabled(s.Whole());
  r.IREnabled(s.Whole());
  r.ElementConstraintsEnabled(s.Whole());
  r.ElementsMethod(s.Whole());
  r.IonConstraintsEnabled(s.Whole());
  r.IonConstraintMethod(s.Whole());
  r.FragmentName(s.Text(L"FragmentName"));
  r.ElementInCompound(s.Text(L"ElementInCompound"));
}

inline void Populate(CReport& r, Seed& s) {
  r.Enabled(s.Whole());
  r.Stds(s.Whole());
  r.QCs(s.Whole());
  r.Unknowns(s.Whole());
  r.Other(s.Whole());
  r.SaveAsType(s.Whole());
  r.Name(s.Text(L"Name"));
}

inline void Populate(CSummaryReport& r, Seed& s) {
  r.Enabled(s.Whole());
  r.SaveAsType(s.Whole());
  r.Name(s.Text(L"Name"));
}

inline void Populate(CProgram& r, Seed& s) {
  r.Enabled(s.Whole());
  r.Stds(s.Whole());
  r.QCs(s.Whole());
  r.Unknowns(s.Whole());
  r.Other(s.Whole());
  r.Sync(s.Whole());
  r.Action(s.Whole());
  r.ProgramName(s.Text(L"ProgramName"));
  r.Parameters(s.Text(L"Parameters"));
}
}  // namespace vglobal::testing
