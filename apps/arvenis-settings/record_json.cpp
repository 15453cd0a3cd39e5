// The processing-method records as JSON, every field under its own name, for
// `arvenis-settings defaults show`. Objects keep the record's field order.
#include "record_json.h"

#include <cmath>

#include "vglobal/compat/unicode.h"

namespace arvenis_settings {
namespace {

Json Text(const CString& text) {
  return vglobal::WideToUtf8(text.str());
}
// JSON has no NaN or infinity: such a value shows as null.
Json Number(double value) {
  return std::isfinite(value) ? Json(value) : Json(nullptr);
}

}  // namespace

Json ToJson(const vglobal::ComponentIdentification& r) {
  Json j;
  j["ComponentName"] = Text(r.ComponentName());
  j["DetectorType"] = static_cast<long long>(r.DetectorType());
  j["DetectorDelay"] = Number(r.DetectorDelay());
  j["Trace1Type"] = static_cast<long long>(r.Trace1Type());
  j["Trace2Type"] = static_cast<long long>(r.Trace2Type());
  j["TraceOperator"] = static_cast<long long>(r.TraceOperator());
  j["Keys"] = Text(r.Keys());
  j["RTSearchWindow"] = Number(r.RTSearchWindow());
  j["DisplayWindowWidth"] = Number(r.DisplayWindowWidth());
  j["AdjustExpectedRT"] = static_cast<long long>(r.AdjustExpectedRT());
  j["UseAsRTReference"] = static_cast<long long>(r.UseAsRTReference());
  j["RTReference"] = Text(r.RTReference());
  j["SNThreshold"] = Number(r.SNThreshold());
  j["PeakDetectionIndex"] = static_cast<long long>(r.PeakDetectionIndex());
  j["SmoothingPoints"] = static_cast<long long>(r.SmoothingPoints());
  j["ValleyDetection"] = static_cast<long long>(r.ValleyDetection());
  j["ExpectedPeakWidth"] = Number(r.ExpectedPeakWidth());
  j["ConstrainPeak"] = static_cast<long long>(r.ConstrainPeak());
  j["PeakHeightPercentage"] = Number(r.PeakHeightPercentage());
  j["TailingFactor"] = Number(r.TailingFactor());
  j["ValleyThreshold"] = Number(r.ValleyThreshold());
  j["ValleyDepth"] = Number(r.ValleyDepth());
  j["PeakSNRCutoff"] = Number(r.PeakSNRCutoff());
  j["BaseSNR"] = Number(r.BaseSNR());
  j["KivaNoiseType"] = static_cast<long long>(r.KivaNoiseType());
  j["KivaMinPeakWidth"] = static_cast<long long>(r.KivaMinPeakWidth());
  j["PeakNoiseFactor"] = static_cast<long long>(r.PeakNoiseFactor());
  j["BaselineWindow"] = static_cast<long long>(r.BaselineWindow());
  j["MultipletResolution"] = static_cast<long long>(r.MultipletResolution());
  j["AreaTailExtension"] = static_cast<long long>(r.AreaTailExtension());
  j["AreaNoiseFactor"] = static_cast<long long>(r.AreaNoiseFactor());
  j["AreaScanWindow"] = static_cast<long long>(r.AreaScanWindow());
  j["KivaConstrainPeak"] = static_cast<long long>(r.KivaConstrainPeak());
  j["KivaPeakHeightPercentage"] = Number(r.KivaPeakHeightPercentage());
  j["KivaTailingFactor"] = Number(r.KivaTailingFactor());
  j["KivaRMS"] = static_cast<long long>(r.KivaRMS());
  j["ForwardThreshold"] = static_cast<long long>(r.ForwardThreshold());
  j["ReverseThreshold"] = static_cast<long long>(r.ReverseThreshold());
  j["MatchThreshold"] = static_cast<long long>(r.MatchThreshold());
  j["IonRatioConfirmation"] = static_cast<long long>(r.IonRatioConfirmation());
  j["Standard"] = static_cast<long long>(r.Standard());
  j["IonRatioMethod"] = static_cast<long long>(r.IonRatioMethod());
  j["IonRatioWndType"] = static_cast<long long>(r.IonRatioWndType());
  j["QualifierIonCoelution"] = Number(r.QualifierIonCoelution());
  j["Filter"] = Text(r.Filter().GetFilterString(-1, -1, 2));
  return j;
}

Json ToJson(const CReplicate& r) {
  Json j;
  j["Amount"] = Number(r.Amount());
  j["Height"] = Number(r.Height());
  j["Area"] = Number(r.Area());
  j["ExcludeFromCalibration"] = static_cast<long long>(r.ExcludeFromCalibration());
  j["ResultFileName"] = Text(r.ResultFileName());
  return j;
}

Json ToJson(const CLevel& r) {
  Json j;
  j["LevelName"] = Text(r.LevelName());
  j["BaseAmount"] = Number(r.BaseAmount());
  j["TestPercent"] = Number(r.TestPercent());
  j["Replicates"] = Json::array();
  for (int i = 0; i < r.NumReplicates(); ++i) j["Replicates"].push_back(ToJson(r[i]));
  return j;
}

Json ToJson(const CMIPair& r) {
  Json j;
  j["Mass"] = Number(r.Mass());
  j["Intensity"] = Number(r.Intensity());
  return j;
}

Json ToJson(const CMassRange& r) {
  Json j;
  j["LowMass"] = Number(r.LowMass());
  j["HighMass"] = Number(r.HighMass());
  return j;
}

Json ToJson(const vglobal::ComponentCalibration& r) {
  Json j;
  j["Type"] = static_cast<long long>(r.Type());
  j["ISTDBaseAmount"] = Number(r.ISTDBaseAmount());
  j["ISTDUnits"] = Text(r.ISTDUnits());
  j["CurveIndex"] = static_cast<long long>(r.CurveIndex());
  j["OriginIndex"] = static_cast<long long>(r.OriginIndex());
  j["WeightingIndex"] = static_cast<long long>(r.WeightingIndex());
  j["ResponseIndex"] = static_cast<long long>(r.ResponseIndex());
  j["CalibrationUnits"] = Text(r.CalibrationUnits());
  j["ReportUnits"] = Text(r.ReportUnits());
  j["PercentISTDInTarget"] = Number(r.PercentISTDInTarget());
  j["PercentTargetInISTD"] = Number(r.PercentTargetInISTD());
  j["SpikeAmount"] = Number(r.SpikeAmount());
  j["SpikeUpperRecovery"] = Number(r.SpikeUpperRecovery());
  j["SpikeLowerRecovery"] = Number(r.SpikeLowerRecovery());
  j["UserEnteredRT"] = Number(r.UserEnteredRT());
  j["FitThreshold"] = Number(r.FitThreshold());
  j["CalLevels"] = Json::array();
  for (int i = 0; i < r.NumCalLevels(); ++i) j["CalLevels"].push_back(ToJson(r.GetCalLevel(i)));
  j["QCLevels"] = Json::array();
  for (int i = 0; i < r.NumQCLevels(); ++i) j["QCLevels"].push_back(ToJson(r.GetQCLevel(i)));
  j["SurrogateLevels"] = Json::array();
  for (int i = 0; i < r.NumSurrogateCalLevels(); ++i)
    j["SurrogateLevels"].push_back(ToJson(r.GetSurrogateLevel(i)));
  j["MassList"] = Json::array();
  for (int i = 0; i < r.NumMIPairs(); ++i) j["MassList"].push_back(ToJson(r.GetMIPair(i)));
  j["MassRanges"] = Json::array();
  for (int i = 0; i < r.NumMassRanges(); ++i) j["MassRanges"].push_back(ToJson(r[i]));
  return j;
}

Json ToJson(const vglobal::ComponentFlags& r) {
  Json j;
  j["AreaFlagThreshold"] = Number(r.AreaFlagThreshold());
  j["HeightFlagThreshold"] = Number(r.HeightFlagThreshold());
  j["AreaFlagPercentThreshold"] = Number(r.AreaFlagPercentThreshold());
  j["HeightFlagPercentThreshold"] = Number(r.HeightFlagPercentThreshold());
  j["R_Squared"] = Number(r.R_Squared());
  j["LimitDetection"] = Number(r.LimitDetection());
  j["LimitQuantitation"] = Number(r.LimitQuantitation());
  j["LinearityLimit"] = Number(r.LinearityLimit());
  j["CarryOverLimit"] = Number(r.CarryOverLimit());
  j["ResolutionChecksEnabled"] = static_cast<long long>(r.ResolutionChecksEnabled());
  j["SymmetryChecksEnabled"] = static_cast<long long>(r.SymmetryChecksEnabled());
  j["PeakClassificationChecksEnabled"] =
      static_cast<long long>(r.PeakClassificationChecksEnabled());
  j["ResThreshold"] = Number(r.ResThreshold());
  j["SymmetryTake"] = Number(r.SymmetryTake());
  j["SymmetryThreshold"] = Number(r.SymmetryThreshold());
  j["MinPeakWidth"] = Number(r.MinPeakWidth());
  j["MaxPeakWidth"] = Number(r.MaxPeakWidth());
  j["DetectWidth"] = Number(r.DetectWidth());
  j["TailingMeasured"] = Number(r.TailingMeasured());
  j["TailingFailureThreshold"] = Number(r.TailingFailureThreshold());
  j["ColumnMeasure"] = Number(r.ColumnMeasure());
  j["ColumnFailureThreshold"] = Number(r.ColumnFailureThreshold());
  j["BaselineClipping"] = Number(r.BaselineClipping());
  j["DetectSignalToNoise"] = Number(r.DetectSignalToNoise());
  return j;
}

Json ToJson(const CPeakDetection& r) {
  Json j;
  j["MassRequired"] = static_cast<long long>(r.MassRequired());
  j["PercentMassesFound"] = Number(r.PercentMassesFound());
  j["MinPeakSeparation"] = Number(r.MinPeakSeparation());
  j["PercentLargestPeak"] = Number(r.PercentLargestPeak());
  j["SmoothingPoints"] = static_cast<long long>(r.SmoothingPoints());
  j["ValleyDetection"] = static_cast<long long>(r.ValleyDetection());
  j["BkgUpdateRate"] = Number(r.BkgUpdateRate());
  j["BkgWidth"] = static_cast<long long>(r.BkgWidth());
  j["WindowSize"] = static_cast<long long>(r.WindowSize());
  j["FilterWidth"] = static_cast<long long>(r.FilterWidth());
  j["SNThreshold"] = Number(r.SNThreshold());
  j["ConstrainPeak"] = static_cast<long long>(r.ConstrainPeak());
  j["PeakHeightPercentage"] = Number(r.PeakHeightPercentage());
  j["TailingFactor"] = Number(r.TailingFactor());
  j["ValleyThreshold"] = Number(r.ValleyThreshold());
  j["ValleyDepth"] = Number(r.ValleyDepth());
  j["PeakSNRCutoff"] = Number(r.PeakSNRCutoff());
  j["PeakWidth"] = Number(r.PeakWidth());
  j["DisplayWindowWidth"] = Number(r.DisplayWindowWidth());
  j["BaseSNR"] = Number(r.BaseSNR());
  j["TraceDelay"] = Number(r.TraceDelay());
  j["Trace1Type"] = static_cast<long long>(r.Trace1Type());
  j["Trace2Type"] = static_cast<long long>(r.Trace2Type());
  j["TraceOperator"] = static_cast<long long>(r.TraceOperator());
  j["DetectorType"] = static_cast<long long>(r.DetectorType());
  j["LimitPeakEnabled"] = static_cast<long long>(r.LimitPeakEnabled());
  j["LimitPeakMethod"] = static_cast<long long>(r.LimitPeakMethod());
  j["PeaksNumber"] = Number(r.PeaksNumber());
  j["RelPeakEnabled"] = static_cast<long long>(r.RelPeakEnabled());
  j["Algorithm"] = static_cast<long long>(r.Algorithm());
  j["KivaNoiseType"] = static_cast<long long>(r.KivaNoiseType());
  j["KivaMinPeakWidth"] = static_cast<long long>(r.KivaMinPeakWidth());
  j["PeakNoiseFactor"] = static_cast<long long>(r.PeakNoiseFactor());
  j["BaselineWindow"] = static_cast<long long>(r.BaselineWindow());
  j["MultipletResolution"] = static_cast<long long>(r.MultipletResolution());
  j["AreaTailExtension"] = static_cast<long long>(r.AreaTailExtension());
  j["AreaNoiseFactor"] = static_cast<long long>(r.AreaNoiseFactor());
  j["AreaScanWindow"] = static_cast<long long>(r.AreaScanWindow());
  j["KivaConstrainPeak"] = static_cast<long long>(r.KivaConstrainPeak());
  j["KivaPeakHeightPercentage"] = Number(r.KivaPeakHeightPercentage());
  j["KivaTailingFactor"] = Number(r.KivaTailingFactor());
  j["KivaRMS"] = static_cast<long long>(r.KivaRMS());
  j["AlgorithmName"] = vglobal::PeakDetectionAlgorithmName(r.Algorithm());
  j["Filter"] = Text(r.Filter().GetFilterString(-1, -1, 2));
  return j;
}

Json ToJson(const COptions& r) {
  Json j;
  j["VoidTime"] = static_cast<long long>(r.VoidTime());
  j["VoidTimeValue"] = Number(r.VoidTimeValue());
  j["SearchWindow"] = Number(r.SearchWindow());
  j["MinScansInBaseline"] = static_cast<long long>(r.MinScansInBaseline());
  j["BaseNoiseLimit"] = Number(r.BaseNoiseLimit());
  j["BkgWidth"] = static_cast<long long>(r.BkgWidth());
  j["BaseNoiseRejectionFactor"] = Number(r.BaseNoiseRejectionFactor());
  j["SpectrumOptions"] = static_cast<long long>(r.SpectrumOptions());
  return j;
}

Json ToJson(const CSpecEnhanceOptions& r) {
  Json j;
  j["SpecEnabled"] = static_cast<long long>(r.SpecEnabled());
  j["SpectrumMethod"] = static_cast<long long>(r.SpectrumMethod());
  j["WindowSize"] = Number(r.WindowSize());
  j["NoiseThreshold"] = static_cast<long long>(r.NoiseThreshold());
  j["Take"] = Number(r.Take());
  j["BgScalingFactor"] = Number(r.BgScalingFactor());
  j["Region1Method"] = static_cast<long long>(r.Region1Method());
  j["PtsPkTop"] = Number(r.PtsPkTop());
  j["Previous"] = Number(r.Previous());
  j["Region2Method"] = static_cast<long long>(r.Region2Method());
  j["PtsAfterPkTop"] = Number(r.PtsAfterPkTop());
  j["NextPt"] = Number(r.NextPt());
  j["CutOffThreshold"] = Number(r.CutOffThreshold());
  return j;
}

Json ToJson(const CLibrarySearchOptions& r) {
  Json j;
  j["SimilarityMode"] = static_cast<long long>(r.SimilarityMode());
  j["IdentityMode"] = static_cast<long long>(r.IdentityMode());
  j["SearchType"] = static_cast<long long>(r.SearchType());
  j["SearchMWEnabled"] = static_cast<long long>(r.SearchMWEnabled());
  j["ReverseSearch"] = static_cast<long long>(r.ReverseSearch());
  j["AppendUserLib"] = static_cast<long long>(r.AppendUserLib());
  j["SearchMW"] = static_cast<long long>(r.SearchMW());
  j["NumMaxHits"] = Number(r.NumMaxHits());
  j["MatchFactor"] = static_cast<long long>(r.MatchFactor());
  j["ReverseMatchFactor"] = static_cast<long long>(r.ReverseMatchFactor());
  j["ProbabilityPercent"] = static_cast<long long>(r.ProbabilityPercent());
  j["ApplyMassDefect"] = static_cast<long long>(r.ApplyMassDefect());
  j["Defect1"] = static_cast<long long>(r.Defect1());
  j["Defect2"] = static_cast<long long>(r.Defect2());
  j["DefectMass1"] = Number(r.DefectMass1());
  j["DefectMass2"] = Number(r.DefectMass2());
  j["UserLibrary"] = Text(r.UserLibrary());
  j["SearchList"] = Json::array();
  for (const CString& library : r.SearchList()) j["SearchList"].push_back(Text(library));
  return j;
}

Json ToJson(const CIndividualConstraint& r) {
  Json j;
  j["Condition"] = static_cast<long long>(r.Condition());
  j["Value"] = static_cast<long long>(r.Value());
  return j;
}

Json ToJson(const CIonConstraint& r) {
  Json j;
  j["Type"] = static_cast<long long>(r.Type());
  j["MZ"] = static_cast<long long>(r.MZ());
  j["From"] = static_cast<long long>(r.From());
  j["To"] = static_cast<long long>(r.To());
  return j;
}

Json ToJson(const CConstraints& r) {
  Json j;
  j["MolWtEnabled"] = static_cast<long long>(r.MolWtEnabled());
  j["MnMolWt"] = static_cast<long long>(r.MnMolWt());
  j["MaxMolWt"] = static_cast<long long>(r.MaxMolWt());
  j["NameFragmentEnabled"] = static_cast<long long>(r.NameFragmentEnabled());
  j["DBEnabled"] = static_cast<long long>(r.DBEnabled());
  j["FineEnabled"] = static_cast<long long>(r.FineEnabled());
  j["EPAEnabled"] = static_cast<long long>(r.EPAEnabled());
  j["NIHEnabled"] = static_cast<long long>(r.NIHEnabled());
  j["TSCAEnabled"] = static_cast<long long>(r.TSCAEnabled());
  j["USPEnabled"] = static_cast<long long>(r.USPEnabled());
  j["EINECSEnabled"] = static_cast<long long>(r.EINECSEnabled());
  j["RTECSEnabled"] = static_cast<long long>(r.RTECSEnabled());
  j["HODOCEnabled"] = static_cast<long long>(r.HODOCEnabled());
  j["IREnabled"] = static_cast<long long>(r.IREnabled());
  j["ElementConstraintsEnabled"] = static_cast<long long>(r.ElementConstraintsEnabled());
  j["ElementsMethod"] = static_cast<long long>(r.ElementsMethod());
  j["IonConstraintsEnabled"] = static_cast<long long>(r.IonConstraintsEnabled());
  j["IonConstraintMethod"] = static_cast<long long>(r.IonConstraintMethod());
  j["FragmentName"] = Text(r.FragmentName());
  j["ElementInCompound"] = Text(r.ElementInCompound());
  j["IndividualConstraints"] = Json::array();
  for (int i = 0; i < r.NumIndividualConstraints(); ++i)
    j["IndividualConstraints"].push_back(ToJson(r.GetIndConstraint(i)));
  j["IonConstraints"] = Json::array();
  for (int i = 0; i < r.NumIonConstraints(); ++i)
    j["IonConstraints"].push_back(ToJson(r.GetIonConstraint(i)));
  return j;
}

Json ToJson(const CReport& r) {
  Json j;
  j["Enabled"] = static_cast<long long>(r.Enabled());
  j["Stds"] = static_cast<long long>(r.Stds());
  j["QCs"] = static_cast<long long>(r.QCs());
  j["Unknowns"] = static_cast<long long>(r.Unknowns());
  j["Other"] = static_cast<long long>(r.Other());
  j["SaveAsType"] = static_cast<long long>(r.SaveAsType());
  j["Name"] = Text(r.Name());
  return j;
}

Json ToJson(const CSummaryReport& r) {
  Json j;
  j["Enabled"] = static_cast<long long>(r.Enabled());
  j["SaveAsType"] = static_cast<long long>(r.SaveAsType());
  j["Name"] = Text(r.Name());
  return j;
}

Json ToJson(const CProgram& r) {
  Json j;
  j["Enabled"] = static_cast<long long>(r.Enabled());
  j["Stds"] = static_cast<long long>(r.Stds());
  j["QCs"] = static_cast<long long>(r.QCs());
  j["Unknowns"] = static_cast<long long>(r.Unknowns());
  j["Other"] = static_cast<long long>(r.Other());
  j["Sync"] = static_cast<long long>(r.Sync());
  j["Action"] = static_cast<long long>(r.Action());
  j["ProgramName"] = Text(r.ProgramName());
  j["Parameters"] = Text(r.Parameters());
  return j;
}

Json ToJson(const CComponentIO& c) {
  Json j = ToJson(static_cast<const vglobal::ComponentIdentification&>(c));
  j.update(ToJson(static_cast<const vglobal::ComponentCalibration&>(c)));
  j.update(ToJson(static_cast<const vglobal::ComponentFlags&>(c)));
  return j;
}

Json ToJson(const CProcMethod& m) {
  Json j;
  j["PeakDetection"] = ToJson(m.PeakDetection());
  j["Options"] = ToJson(m.Options());
  j["Constraints"] = ToJson(m.Constraints());
  j["SpecEnhanceOptions"] = ToJson(m.SpecEnhanceOptions());
  j["LibrarySearchOptions"] = ToJson(m.LibrarySearchOptions());
  j["Reports"] = Json::array();
  for (int i = 0; i < m.NumReports(); ++i) j["Reports"].push_back(ToJson(m.GetReport(i)));
  j["SummaryReports"] = Json::array();
  for (int i = 0; i < m.NumSummaryReports(); ++i)
    j["SummaryReports"].push_back(ToJson(m.GetSummaryReport(i)));
  j["Programs"] = Json::array();
  for (int i = 0; i < m.NumPrograms(); ++i) j["Programs"].push_back(ToJson(m.GetProgram(i)));
  return j;
}

}  // namespace arvenis_settings
