// CAuditTrail: the records of a data file's audited saves.
#include "vglobal/fileio/audit_trail.h"

#include "file_access.h"

const CAuditData& CAuditTrail::GetAudit(int index) const {
  static const CAuditData kNone;
  if (index < 0 || index >= NumAudits()) return kNone;
  return m_audits[static_cast<std::size_t>(index)];
}

int CAuditTrail::AddAudit(const CAuditData& audit) {
  if (NumAudits() >= kMaxAudits) return -1;
  // Refused rather than cut: a regulated lab's trail must say what the user wrote,
  // and the file keeps no more than these lengths.
  if (audit.WhoAuditedId().GetLength() > CAuditData::kMaxNameLength ||
      audit.WhoAuditedLogon().GetLength() > CAuditData::kMaxNameLength ||
      audit.Comment().GetLength() > CAuditData::kMaxCommentLength)
    return -1;
  m_audits.push_back(audit);
  if (m_audits.back().Time() == CTime()) m_audits.back().Time(vglobal::fileio::CurrentFileTime());
  return NumAudits() - 1;
}
