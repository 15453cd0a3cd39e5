// The instrument views of a raw file: CVirtualData holds what every detector logs
// (the status log), CVirtualMS what a mass spectrometer adds (tune data per
// acquisition segment, trailer extra data per scan). A raw file owns one of each.
//
// Contract: value types; the maps and headers they hand out belong to them and live
// as long as they do. Not thread-safe for concurrent mutation.
#pragma once

#include "vglobal/compat/types.h"
#include "vglobal/export.h"
#include "vglobal/fileio/generic_data.h"

class VGLOBAL_EXPORT CVirtualData {
 public:
  // The number of status-log entries.
  int NumStatusLogEntries() const { return m_statusLog.NumRecords(); }
  CGenericDataHeader& StatusLogHeader() { return m_statusLog.Header(); }
  const CGenericDataHeader& StatusLogHeader() const { return m_statusLog.Header(); }
  CStatusLogFileMap& StatusLog() { return m_statusLog; }
  const CStatusLogFileMap& StatusLog() const { return m_statusLog; }

  // Hands back in *record the status-log record logged nearest to `time` (minutes;
  // of two equally near, the earlier one): its 32-bit float time, then its fields.
  // Returns 1, or 0 with *record null when the log has no usable record. record may
  // not be null.
  int GetStatusLogAtTime(double time, void** record);

  friend bool operator==(const CVirtualData&, const CVirtualData&) = default;

 private:
  CStatusLogFileMap m_statusLog;
};

class VGLOBAL_EXPORT CVirtualMS {
 public:
  CGenericDataHeader& TuneDataHeader() { return m_tune.Header(); }
  const CGenericDataHeader& TuneDataHeader() const { return m_tune.Header(); }
  CTuneDataFileMap& TuneData() { return m_tune; }
  const CTuneDataFileMap& TuneData() const { return m_tune; }

  CGenericDataHeader& TrailerExtraHeader() { return m_trailer.Header(); }
  const CGenericDataHeader& TrailerExtraHeader() const { return m_trailer.Header(); }
  CTrailerExtraFileMap& TrailerExtra() { return m_trailer; }
  const CTrailerExtraFileMap& TrailerExtra() const { return m_trailer; }

  friend bool operator==(const CVirtualMS&, const CVirtualMS&) = default;

 private:
  CTuneDataFileMap m_tune;
  CTrailerExtraFileMap m_trailer;
};
