// The rows of a processing method's three output lists: sample reports (CReport),
// summary reports (CSummaryReport) and post-processing programs (CProgram). The switches
// Stds, QCs, Unknowns and Other name the sample types (standards, quality controls,
// unknowns, other samples) for which a report is printed or a program run. The codes
// SaveAsType, Sync and Action are carried, not interpreted. Starting values are the
// third column of the field list. A row is added to a list to be used: it starts enabled
// and applies to every sample type (standards, QCs, unknowns, other). Save-as, action
// and sync codes start at 0, the first choice of each. Copy and assignment copy every
// field.
#pragma once

#include "vglobal/export.h"
#include "vglobal/fileio/field.h"

// The fields of CReport, in record order: FIELD(type, name, starting value).
#define VG_REPORT_FIELDS(FIELD) \
  FIELD(int, Enabled, 1)        \
  FIELD(int, Stds, 1)           \
  FIELD(int, QCs, 1)            \
  FIELD(int, Unknowns, 1)       \
  FIELD(int, Other, 1)          \
  FIELD(int, SaveAsType, 0)     \
  FIELD(CString, Name, L"")

class VGLOBAL_EXPORT CReport {
  VG_RECORD_FIELDS(CReport, VG_REPORT_FIELDS)

 public:
  CReport() = default;
  CReport(const CReport&) = default;
  CReport& operator=(const CReport&) = default;
  virtual ~CReport() = default;
};

// The fields of CSummaryReport, in record order: FIELD(type, name, starting value).
#define VG_SUMMARY_REPORT_FIELDS(FIELD) \
  FIELD(int, Enabled, 1)                \
  FIELD(int, SaveAsType, 0)             \
  FIELD(CString, Name, L"")

class VGLOBAL_EXPORT CSummaryReport {
  VG_RECORD_FIELDS(CSummaryReport, VG_SUMMARY_REPORT_FIELDS)

 public:
  CSummaryReport() = default;
  CSummaryReport(const CSummaryReport&) = default;
  CSummaryReport& operator=(const CSummaryReport&) = default;
  virtual ~CSummaryReport() = default;
};

// The fields of CProgram, in record order: FIELD(type, name, starting value).
#define VG_PROGRAM_FIELDS(FIELD)   \
  FIELD(int, Enabled, 1)           \
  FIELD(int, Stds, 1)              \
  FIELD(int, QCs, 1)               \
  FIELD(int, Unknowns, 1)          \
  FIELD(int, Other, 1)             \
  FIELD(int, Sync, 0)              \
  FIELD(int, Action, 0)            \
  FIELD(CString, ProgramName, L"") \
  FIELD(CString, Parameters, L"")

class VGLOBAL_EXPORT CProgram {
  VG_RECORD_FIELDS(CProgram, VG_PROGRAM_FIELDS)

 public:
  CProgram() = default;
  CProgram(const CProgram&) = default;
  CProgram& operator=(const CProgram&) = default;
  virtual ~CProgram() = default;
};
