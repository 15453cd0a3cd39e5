// The values of a newly constructed processing-method record: what a lab meets in a
// new method before any user default is applied. Every record takes its starting
// values from here, so they are listed, and kept consistent, in one place.
#pragma once

#include "vglobal/fileio/device_types.h"

namespace vglobal::record_defaults {

// ---- Component: identification and detection ----
// A new component is measured on the mass spectrometer with the empty scan filter,
// looked for in a 30-second window shown 1 minute wide, found by the first algorithm
// without smoothing, valley detection or width constraint; the Kiva integrator starts
// from moderate noise factors and windows; the ion-ratio confirmation is off.
inline constexpr const wchar_t* kComponentName = L"";
inline constexpr VirtualDeviceType kDetectorType = VIRTUAL_DEVICE_MS;
inline constexpr double kDetectorDelay = 0.0;
inline constexpr int kTrace1Type =
    1;  // the mass-spectrometer trace (see the Identification writer)
inline constexpr int kTrace2Type = 0;
inline constexpr int kTraceOperator = 0;  // none
inline constexpr const wchar_t* kKeys = L"";
inline constexpr double kRTSearchWindow = 30.0;
inline constexpr double kDisplayWindowWidth = 1.0;
inline constexpr int kAdjustExpectedRT = 0;
inline constexpr int kUseAsRTReference = 0;
inline constexpr const wchar_t* kRTReference = L"";
inline constexpr double kSNThreshold = 3.0;
inline constexpr int kPeakDetectionIndex = 0;
inline constexpr int kSmoothingPoints = 5;  // a moving average over a few points
inline constexpr int kValleyDetection = 0;
inline constexpr double kExpectedPeakWidth = 0.0;
inline constexpr int kConstrainPeak = 0;
inline constexpr double kPeakHeightPercentage = 5.0;
inline constexpr double kTailingFactor = 1.0;
inline constexpr double kValleyThreshold = 1.1;
inline constexpr double kValleyDepth = 2.0;
// Kept as the reciprocal of the signal-to-noise cut-off the dialogs show (200).
inline constexpr double kPeakSNRCutoff = 0.005;
inline constexpr double kBaseSNR = 2.0;
inline constexpr int kKivaNoiseType = 0;
inline constexpr int kKivaMinPeakWidth = 3;
inline constexpr int kPeakNoiseFactor = 10;
inline constexpr int kBaselineWindow = 40;
inline constexpr int kMultipletResolution = 10;
inline constexpr int kAreaTailExtension = 5;
inline constexpr int kAreaNoiseFactor = 5;
inline constexpr int kAreaScanWindow = 0;
inline constexpr int kKivaConstrainPeak = 0;
inline constexpr double kKivaPeakHeightPercentage = 5.0;
inline constexpr double kKivaTailingFactor = 1.0;
inline constexpr int kKivaRMS = 0;
inline constexpr int kForwardThreshold = 0;
inline constexpr int kReverseThreshold = 0;
inline constexpr int kMatchThreshold = 0;
inline constexpr int kIonRatioConfirmation = 0;
inline constexpr int kStandard = 0;
inline constexpr int kIonRatioMethod = 0;
inline constexpr int kIonRatioWndType = 0;
inline constexpr double kQualifierIonCoelution = 0.025;

// ---- Component: calibration, levels and replicates ----
// A new component is a target compound on a linear curve with equal weighting, built
// from peak areas, with no levels yet; an internal standard's amount starts at 1 so
// that a ratio against it is defined; surrogate spikes are accepted between 80 and
// 120 percent recovery.
inline constexpr int kComponentType = 0;  // target compound
inline constexpr double kISTDBaseAmount = 1.0;
inline constexpr const wchar_t* kISTDUnits = L"";
inline constexpr int kCurveIndex = 0;      // linear
inline constexpr int kOriginIndex = 0;     // the origin is ignored
inline constexpr int kWeightingIndex = 0;  // equal weights
inline constexpr int kResponseIndex = 0;   // area
inline constexpr const wchar_t* kCalibrationUnits = L"";
inline constexpr const wchar_t* kReportUnits = L"";
inline constexpr double kPercentISTDInTarget = 0.0;
inline constexpr double kPercentTargetInISTD = 0.0;
inline constexpr double kSpikeAmount = 0.0;
inline constexpr double kSpikeUpperRecovery = 120.0;  // percent
inline constexpr double kSpikeLowerRecovery = 80.0;   // percent
// The retention time the user typed (0: none yet) and the least spectral fit, as a
// fraction of a perfect match, that the reference mass list must reach.
inline constexpr double kUserEnteredRT = 0.0;
inline constexpr double kFitThreshold = 0.8;
// A level: unnamed, amount 0, checked against a deviation of 20 percent.
inline constexpr const wchar_t* kLevelName = L"";
inline constexpr double kLevelBaseAmount = 0.0;
inline constexpr double kLevelTestPercent = 20.0;
// A replicate: nothing measured yet, used in the calibration, no result file.
inline constexpr double kReplicateAmount = 0.0;
inline constexpr double kReplicateHeight = 0.0;
inline constexpr double kReplicateArea = 0.0;
inline constexpr int kReplicateExcludeFromCalibration = 0;
inline constexpr const wchar_t* kReplicateResultFileName = L"";
// Mass/intensity pairs and mass ranges start empty (all zero).
inline constexpr double kMIPairMass = 0.0;
inline constexpr double kMIPairIntensity = 0.0;
inline constexpr double kMassRangeLowMass = 0.0;
inline constexpr double kMassRangeHighMass = 0.0;

// ---- Component: flags and system suitability ----
// Area and height flags are off (threshold 0); a calibration is flagged below an r
// squared of 0.99 or beyond 20 percent non-linearity; detection, quantitation and
// carry-over limits are left to the lab (0). The system-suitability checks are off;
// their limits follow common chromatographic practice: resolution 2, symmetry and
// widths measured at half height, tailing at 10 percent height failing above 2,
// at least 2000 theoretical plates, signal-to-noise 10. The values that are stored as
// integers are whole numbers, so that they keep their value through the store.
inline constexpr double kAreaFlagThreshold = 0.0;
inline constexpr double kHeightFlagThreshold = 0.0;
inline constexpr double kAreaFlagPercentThreshold = 0.0;
inline constexpr double kHeightFlagPercentThreshold = 0.0;
inline constexpr double kR_Squared = 0.99;
inline constexpr double kLimitDetection = 0.0;
inline constexpr double kLimitQuantitation = 0.0;
inline constexpr double kLinearityLimit = 20.0;  // percent
inline constexpr double kCarryOverLimit = 0.0;
inline constexpr int kResolutionChecksEnabled = 0;
inline constexpr int kSymmetryChecksEnabled = 0;
inline constexpr int kPeakClassificationChecksEnabled = 0;
inline constexpr double kResThreshold = 2.0;
inline constexpr double kSymmetryTake = 50.0;       // percent of the peak height
inline constexpr double kSymmetryThreshold = 80.0;  // percent
inline constexpr double kMinPeakWidth = 0.0;
inline constexpr double kMaxPeakWidth = 1.0;
inline constexpr double kDetectWidth = 50.0;      // percent of the peak height
inline constexpr double kTailingMeasured = 10.0;  // percent of the peak height
inline constexpr double kTailingFailureThreshold = 2.0;
inline constexpr double kColumnMeasure = 50.0;             // percent of the peak height
inline constexpr double kColumnFailureThreshold = 2000.0;  // theoretical plates
inline constexpr double kBaselineClipping = 10.0;          // percent
inline constexpr double kDetectSignalToNoise = 10.0;

// ---- Peak detection and method-wide options ----
// A new chromatogram is taken from the mass spectrometer and its peaks are found as a
// new component's are (the values shared with the component are the same constants).
// The algorithm is not listed: it follows the detector through
// GetArvenisDefaultPeakDetectionTypeForDevice. The advanced values sit where the
// advanced-options dialogs open.
inline constexpr int kPdMassRequired = 2;              // fewest masses that make a peak
inline constexpr double kPdPercentMassesFound = 50.0;  // percent of those masses present
inline constexpr double kPdMinPeakSeparation = 0.0;    // peaks may touch
inline constexpr double kPdPercentLargestPeak = 10.0;  // used only while RelPeakEnabled
inline constexpr int kPdSmoothingPoints = kSmoothingPoints;
inline constexpr int kPdValleyDetection = kValleyDetection;
inline constexpr double kPdBkgUpdateRate = 5.0;
inline constexpr int kPdBkgWidth = 5;
inline constexpr int kPdWindowSize = 3;   // always odd
inline constexpr int kPdFilterWidth = 1;  // at most WindowSize - 2
inline constexpr double kPdSNThreshold = kSNThreshold;
inline constexpr int kPdConstrainPeak = kConstrainPeak;
inline constexpr double kPdPeakHeightPercentage = kPeakHeightPercentage;
inline constexpr double kPdTailingFactor = kTailingFactor;
inline constexpr double kPdValleyThreshold = kValleyThreshold;  // shown as 10 (percent rise)
inline constexpr double kPdValleyDepth = kValleyDepth;
inline constexpr double kPdPeakSNRCutoff = kPeakSNRCutoff;
inline constexpr double kPdPeakWidth = kExpectedPeakWidth;
inline constexpr double kPdDisplayWindowWidth = kDisplayWindowWidth;
inline constexpr double kPdBaseSNR = kBaseSNR;
inline constexpr double kPdTraceDelay = kDetectorDelay;
inline constexpr int kPdTrace1Type = kTrace1Type;
inline constexpr int kPdTrace2Type = kTrace2Type;
inline constexpr int kPdTraceOperator = kTraceOperator;
inline constexpr VirtualDeviceType kPdDetectorType = VIRTUAL_DEVICE_MS;
inline constexpr int kPdLimitPeakEnabled = 0;
inline constexpr int kPdLimitPeakMethod = 0;
inline constexpr double kPdPeaksNumber = 10.0;  // used only while LimitPeakEnabled
inline constexpr int kPdRelPeakEnabled = 0;
inline constexpr int kPdKivaNoiseType = kKivaNoiseType;
inline constexpr int kPdKivaMinPeakWidth = kKivaMinPeakWidth;
inline constexpr int kPdPeakNoiseFactor = kPeakNoiseFactor;
inline constexpr int kPdBaselineWindow = kBaselineWindow;
inline constexpr int kPdMultipletResolution = kMultipletResolution;
inline constexpr int kPdAreaTailExtension = kAreaTailExtension;
inline constexpr int kPdAreaNoiseFactor = kAreaNoiseFactor;
inline constexpr int kPdAreaScanWindow = kAreaScanWindow;
inline constexpr int kPdKivaConstrainPeak = kKivaConstrainPeak;
inline constexpr double kPdKivaPeakHeightPercentage = kKivaPeakHeightPercentage;
inline constexpr double kPdKivaTailingFactor = kKivaTailingFactor;
inline constexpr int kPdKivaRMS = kKivaRMS;
// Method-wide options: the void time is entered by the user and starts at 0; a
// spectrum is searched for within the component's retention-time window.
inline constexpr int kOptVoidTime = 0;  // 0: VoidTimeValue defines the void time
inline constexpr double kOptVoidTimeValue = 0.0;
inline constexpr double kOptSearchWindow = kRTSearchWindow;
inline constexpr int kOptMinScansInBaseline = 5;
inline constexpr double kOptBaseNoiseLimit = 0.1;  // a fraction: shown as 10 percent
inline constexpr int kOptBkgWidth = kPdBkgWidth;
inline constexpr double kOptBaseNoiseRejectionFactor = 2.0;
inline constexpr int kOptSpectrumOptions = 0;
// Peak labelling in chromatogram views: retention-time labels only, no widening.
inline constexpr int kPeakOptionFlags = 1;  // CPeakOptions::ShowRetentionTimeLabels
inline constexpr double kPeakOptionExcessDisplayWidth = 0.0;

// ---- Qualitative: spectrum enhancement, library search, constraints ----
// A new method searches the library by identity without enhancing the spectrum, with
// every constraint switched off. The values behind the switches are what the editor
// shows when a user turns one on: the first enhancement method with a 5-point window,
// 10 hits, the whole molecular-weight range up to 1000, ion abundances of 0 to 100 %.
inline constexpr int kSpecEnabled = 0;
inline constexpr int kSpectrumMethod = 0;
inline constexpr double kSpecWindowSize = 5.0;
inline constexpr int kSpecNoiseThreshold = 3;
// Background subtraction (method 1): points are whole numbers kept as doubles.
inline constexpr double kSpecTake = 3.0;
inline constexpr double kSpecBgScalingFactor = 1.0;
inline constexpr int kSpecRegion1Method = 0;
inline constexpr double kSpecPtsPkTop = 3.0;
inline constexpr double kSpecPrevious = 10.0;
inline constexpr int kSpecRegion2Method = 0;
inline constexpr double kSpecPtsAfterPkTop = 3.0;
inline constexpr double kSpecNextPt = 10.0;
// Cut-off (method 2), in percent of the base peak.
inline constexpr double kSpecCutOffThreshold = 1.0;

inline constexpr int kLibSimilarityMode = 0;
inline constexpr int kLibIdentityMode = 0;
inline constexpr int kLibSearchType = 0;  // identity search
inline constexpr int kLibSearchMWEnabled = 0;
inline constexpr int kLibReverseSearch = 0;
inline constexpr int kLibAppendUserLib = 0;
inline constexpr int kLibSearchMW = 0;
inline constexpr double kLibNumMaxHits = 10.0;
// Match thresholds of 0 keep every hit of the appended user library.
inline constexpr int kLibMatchFactor = 0;
inline constexpr int kLibReverseMatchFactor = 0;
inline constexpr int kLibProbabilityPercent = 0;
// No mass-defect correction: both defects are 0.
inline constexpr int kLibApplyMassDefect = 0;
inline constexpr int kLibDefect1 = 0;
inline constexpr int kLibDefect2 = 0;
inline constexpr double kLibDefectMass1 = 0.0;
inline constexpr double kLibDefectMass2 = 0.0;
inline constexpr const wchar_t* kLibUserLibrary = L"";

inline constexpr int kConstraintMolWtEnabled = 0;
inline constexpr int kConstraintMnMolWt = 0;
inline constexpr int kConstraintMaxMolWt = 1000;
inline constexpr int kConstraintNameFragmentEnabled = 0;
inline constexpr int kConstraintDBEnabled = 0;
inline constexpr int kConstraintDatabaseEnabled = 0;  // each of the nine database switches
inline constexpr int kConstraintElementConstraintsEnabled = 0;
inline constexpr int kConstraintElementsMethod = 0;
inline constexpr int kConstraintIonConstraintsEnabled = 0;
inline constexpr int kConstraintIonConstraintMethod = 0;
inline constexpr const wchar_t* kConstraintFragmentName = L"";
inline constexpr const wchar_t* kConstraintElementInCompound = L"";
inline constexpr const wchar_t* kIndConstraintElement = L"";
inline constexpr int kIndConstraintCondition = 0;
inline constexpr int kIndConstraintValue = 0;
inline constexpr int kIonConstraintType = 0;
inline constexpr int kIonConstraintMZ = 0;
inline constexpr int kIonConstraintFrom = 0;  // relative abundance, percent
inline constexpr int kIonConstraintTo = 100;

// ---- Reports, summary reports and programs ----
// A row is added to a list to be used: it starts enabled and applies to every sample
// type (standards, QCs, unknowns, other). Save-as, action and sync codes start at 0,
// the first choice of each.
inline constexpr int kRowEnabled = 1;
inline constexpr int kRowForSampleType = 1;  // Stds, QCs, Unknowns, Other
inline constexpr int kRowSaveAsType = 0;
inline constexpr int kProgramSync = 0;
inline constexpr int kProgramAction = 0;
inline constexpr const wchar_t* kRowName = L"";  // report names, program name, parameters
// Post-processing mass limits: wide enough to pass every mass a spectrum can carry.
inline constexpr double kPostProcessingMaxMassLimit = 999999.0;
inline constexpr double kPostProcessingMinMassLimit = 0.5;

}  // namespace vglobal::record_defaults
