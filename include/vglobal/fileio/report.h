// The rows of a processing method's three output lists: sample reports (CReport),
// summary reports (CSummaryReport) and post-processing programs (CProgram). The
// switches Stds, QCs, Unknowns and Other name the sample types (standards, quality
// controls, unknowns, other samples) for which a report is printed or a program run.
// The codes SaveAsType, Sync and Action are carried, not interpreted. Starting values
// come from record_defaults.h ("Reports"). Copy and assignment copy every field.
#pragma once

#include "vglobal/export.h"
#include "vglobal/fileio/field.h"
#include "vglobal/fileio/record_defaults.h"

class VGLOBAL_EXPORT CReport {
  VG_FIELD(int, Enabled, vglobal::record_defaults::kRowEnabled)
  VG_FIELD(int, Stds, vglobal::record_defaults::kRowForSampleType)
  VG_FIELD(int, QCs, vglobal::record_defaults::kRowForSampleType)
  VG_FIELD(int, Unknowns, vglobal::record_defaults::kRowForSampleType)
  VG_FIELD(int, Other, vglobal::record_defaults::kRowForSampleType)
  VG_FIELD(int, SaveAsType, vglobal::record_defaults::kRowSaveAsType)
  VG_STRING_FIELD(Name, vglobal::record_defaults::kRowName)

 public:
  CReport() = default;
  CReport(const CReport&) = default;
  CReport& operator=(const CReport&) = default;
  virtual ~CReport() = default;
};

class VGLOBAL_EXPORT CSummaryReport {
  VG_FIELD(int, Enabled, vglobal::record_defaults::kRowEnabled)
  VG_FIELD(int, SaveAsType, vglobal::record_defaults::kRowSaveAsType)
  VG_STRING_FIELD(Name, vglobal::record_defaults::kRowName)

 public:
  CSummaryReport() = default;
  CSummaryReport(const CSummaryReport&) = default;
  CSummaryReport& operator=(const CSummaryReport&) = default;
  virtual ~CSummaryReport() = default;
};

class VGLOBAL_EXPORT CProgram {
  VG_FIELD(int, Enabled, vglobal::record_defaults::kRowEnabled)
  VG_FIELD(int, Stds, vglobal::record_defaults::kRowForSampleType)
  VG_FIELD(int, QCs, vglobal::record_defaults::kRowForSampleType)
  VG_FIELD(int, Unknowns, vglobal::record_defaults::kRowForSampleType)
  VG_FIELD(int, Other, vglobal::record_defaults::kRowForSampleType)
  VG_FIELD(int, Sync, vglobal::record_defaults::kProgramSync)
  VG_FIELD(int, Action, vglobal::record_defaults::kProgramAction)
  VG_STRING_FIELD(ProgramName, vglobal::record_defaults::kRowName)
  VG_STRING_FIELD(Parameters, vglobal::record_defaults::kRowName)

 public:
  CProgram() = default;
  CProgram(const CProgram&) = default;
  CProgram& operator=(const CProgram&) = default;
  virtual ~CProgram() = default;
};
