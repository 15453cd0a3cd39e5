// The instrument views of a raw file (see virtual_device.h).
#include "vglobal/fileio/virtual_device.h"

int CVirtualData::GetStatusLogAtTime(double time, void** record) {
  const int index = m_statusLog.NearestEntry(time);
  *record = index < 0 ? nullptr : m_statusLog[index];
  return index < 0 ? 0 : 1;
}
