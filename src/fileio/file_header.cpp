// CHeader: what a save records in a data file's header.
#include "vglobal/fileio/file_header.h"

void CHeader::StampSave(bool firstSave, CTime when, const wchar_t* logon) {
  const wchar_t* who = logon ? logon : L"";
  m_ModificationDate = when;
  m_WhoChangedId = who;
  m_WhoChangedLogon = who;
  if (firstSave) {
    m_CreationDate = when;
    m_WhoCreatedId = who;
    m_WhoCreatedLogon = who;
    m_NumTimesSaved = 0;
  } else if (m_NumTimesSaved < 0xFFFF) {
    ++m_NumTimesSaved;
  }
}
