// CAuditData and CAuditTrail: the audit trail a data file carries, one record per
// audited save: when, who (the name the user typed and the operating-system logon),
// why (the user's comment) and what changed (a 64-bit mask whose bits each
// application describes with its own string table).
//
// Contract:
// - Value types; copies are independent. Records keep the order in which they were
//   added (oldest first).
// - GetAudit with an index outside the trail returns an empty record (time zero,
//   empty texts, mask zero).
#pragma once

#include <cstdint>
#include <vector>

#include "vglobal/compat/cstring.h"
#include "vglobal/compat/filestatus.h"
#include "vglobal/compat/types.h"
#include "vglobal/export.h"
#include "vglobal/fileio/field.h"

// The fields of CAuditData, in record order: FIELD(type, name, starting value).
#define VG_AUDIT_DATA_FIELDS(FIELD)                                             \
  /* When the record was made (file time, nanoseconds since 1970-01-01 UTC). */ \
  FIELD(CTime, Time, CTime())                                                   \
  /* The user name typed when the record was made. */                           \
  FIELD(CString, WhoAuditedId, L"")                                             \
  /* The operating-system logon name of the user who made the record. */        \
  FIELD(CString, WhoAuditedLogon, L"")                                          \
  /* The reason for the change, as the user gave it. */                         \
  FIELD(CString, Comment, L"")                                                  \
  /* The two halves of the change mask. */                                      \
  FIELD(DWORD, ChangeMaskLow, 0)                                                \
  FIELD(DWORD, ChangeMaskHigh, 0)

class VGLOBAL_EXPORT CAuditData {
 public:
  // Longest texts a record of a trail holds (characters); CAuditTrail::AddAudit refuses
  // a record with a longer one.
  static constexpr int kMaxNameLength = 256;
  static constexpr int kMaxCommentLength = 4096;

  VG_RECORD_FIELDS(CAuditData, VG_AUDIT_DATA_FIELDS)

 public:
  std::uint64_t ChangeMask() const {
    return (static_cast<std::uint64_t>(m_ChangeMaskHigh) << 32) | m_ChangeMaskLow;
  }
  void ChangeMask(std::uint64_t mask) {
    m_ChangeMaskLow = static_cast<DWORD>(mask);
    m_ChangeMaskHigh = static_cast<DWORD>(mask >> 32);
  }

  friend bool operator==(const CAuditData&, const CAuditData&) = default;
};

namespace vglobal::fileio {
class AuditTrailReader;
}

class VGLOBAL_EXPORT CAuditTrail {
 public:
  // Most records a trail holds; AddAudit refuses more.
  static constexpr int kMaxAudits = 100000;

  int NumAudits() const { return static_cast<int>(m_audits.size()); }
  // The record at index (0 = oldest); an empty record when index is outside the trail.
  const CAuditData& GetAudit(int index) const;
  // Appends a copy of `audit`; a record without a time gets the current time.
  // Returns the new record's index, or -1 with the trail unchanged when the trail is
  // full or a name of the record is longer than kMaxNameLength or its comment longer
  // than kMaxCommentLength: a trail keeps every word it is given, never a cut one.
  int AddAudit(const CAuditData& audit);
  void RemoveAll() { m_audits.clear(); }

  friend bool operator==(const CAuditTrail&, const CAuditTrail&) = default;

 private:
  friend class vglobal::fileio::AuditTrailReader;
  std::vector<CAuditData> m_audits;
};
