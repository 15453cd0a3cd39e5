// The processing method (CProcMethod): its own records for the qualitative side
// (library-search constraints, spectrum enhancement, library-search options), the
// method-wide options and the peak detection, and three ordered lists of what is done
// with the results: sample reports, summary reports and post-processing programs.
//
// Contract: the method owns its records and rows. Add* appends a copy of the row given;
// Get* returns the row in place and throws std::out_of_range for an index outside the
// list. Copy and assignment copy every record and every list.
#pragma once

#include "vglobal/compat/collections.h"
#include "vglobal/export.h"
#include "vglobal/fileio/constraints.h"
#include "vglobal/fileio/library_search.h"
#include "vglobal/fileio/options.h"
#include "vglobal/fileio/peak_detection.h"
#include "vglobal/fileio/report.h"
#include "vglobal/fileio/spectrum_enhance.h"

class VGLOBAL_EXPORT CProcMethod {
 public:
  CProcMethod() = default;
  CProcMethod(const CProcMethod&) = default;
  CProcMethod& operator=(const CProcMethod&) = default;
  virtual ~CProcMethod() = default;

  // ---- the method's records ----
  CConstraints& Constraints() { return m_Constraints; }
  const CConstraints& Constraints() const { return m_Constraints; }
  void Constraints(const CConstraints& value) { m_Constraints = value; }

  CSpecEnhanceOptions& SpecEnhanceOptions() { return m_SpecEnhanceOptions; }
  const CSpecEnhanceOptions& SpecEnhanceOptions() const { return m_SpecEnhanceOptions; }
  void SpecEnhanceOptions(const CSpecEnhanceOptions& value) { m_SpecEnhanceOptions = value; }

  CLibrarySearchOptions& LibrarySearchOptions() { return m_LibrarySearchOptions; }
  const CLibrarySearchOptions& LibrarySearchOptions() const { return m_LibrarySearchOptions; }
  void LibrarySearchOptions(const CLibrarySearchOptions& value) { m_LibrarySearchOptions = value; }

  COptions& Options() { return m_Options; }
  const COptions& Options() const { return m_Options; }
  void Options(const COptions& value) { m_Options = value; }

  CPeakDetection& PeakDetection() { return m_PeakDetection; }
  const CPeakDetection& PeakDetection() const { return m_PeakDetection; }
  void PeakDetection(const CPeakDetection& value) { m_PeakDetection = value; }

  // ---- sample reports ----
  int NumReports() const { return static_cast<int>(m_Reports.GetSize()); }
  CReport& GetReport(int index) { return m_Reports.ElementAt(index); }
  const CReport& GetReport(int index) const { return m_Reports.GetAt(index); }
  // Returns the new row's index.
  int AddReport(const CReport& report) { return static_cast<int>(m_Reports.Add(report)); }
  void RemoveAllReports() { m_Reports.RemoveAll(); }

  // ---- summary reports ----
  int NumSummaryReports() const { return static_cast<int>(m_SummaryReports.GetSize()); }
  CSummaryReport& GetSummaryReport(int index) { return m_SummaryReports.ElementAt(index); }
  const CSummaryReport& GetSummaryReport(int index) const { return m_SummaryReports.GetAt(index); }
  int AddSummaryReport(const CSummaryReport& report) {
    return static_cast<int>(m_SummaryReports.Add(report));
  }
  void RemoveAllSummaryReports() { m_SummaryReports.RemoveAll(); }

  // ---- post-processing programs ----
  int NumPrograms() const { return static_cast<int>(m_Programs.GetSize()); }
  CProgram& GetProgram(int index) { return m_Programs.ElementAt(index); }
  const CProgram& GetProgram(int index) const { return m_Programs.GetAt(index); }
  int AddProgram(const CProgram& program) { return static_cast<int>(m_Programs.Add(program)); }
  void RemoveAllPrograms() { m_Programs.RemoveAll(); }

 private:
  CConstraints m_Constraints;
  CSpecEnhanceOptions m_SpecEnhanceOptions;
  CLibrarySearchOptions m_LibrarySearchOptions;
  COptions m_Options;
  CPeakDetection m_PeakDetection;
  CArray<CReport> m_Reports;
  CArray<CSummaryReport> m_SummaryReports;
  CArray<CProgram> m_Programs;
};
