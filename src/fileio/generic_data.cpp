// Generic data items, headers and record maps (see generic_data.h).
#include "vglobal/fileio/generic_data.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

// Records are kept in file byte order, and callers read their values in place.
static_assert(std::endian::native == std::endian::little,
              "generic data records are little-endian in memory as on disk");

// ---- Items ----

CGenericDataItem::CGenericDataItem(int type, const wchar_t* label, unsigned lengthOrPrecision,
                                   int scientific)
    : m_type(type),
      m_label(label ? label : L""),
      m_length(std::min(lengthOrPrecision, kMaxLength)),
      m_scientific(scientific ? 1 : 0) {
  if (m_label.GetLength() > kMaxLabelLength) m_label.Truncate(kMaxLabelLength);
}

int CGenericDataItem::ItemSizeInBytes() const {
  switch (m_type) {
    case GDT_EMPTY:
      return 0;
    case GDT_CHAR:
    case GDT_TRUEFALSE:
    case GDT_YESNO:
    case GDT_ONOFF:
    case GDT_UCHAR:
      return 1;
    case GDT_SHORT:
    case GDT_USHORT:
      return 2;
    case GDT_LONG:
    case GDT_ULONG:
    case GDT_FLOAT:
      return 4;
    case GDT_DOUBLE:
      return 8;
    case GDT_CHAR_STRING:
      return static_cast<int>(m_length);
    case GDT_WCHAR_STRING:
      return static_cast<int>(2 * m_length);
    default:
      return static_cast<int>(m_length);
  }
}

// ---- Headers ----

CGenericDataHeader& CGenericDataHeader::operator=(CGenericDataHeader other) noexcept {
  // Swapped rather than assigned element by element: fields cannot be assigned.
  m_items.swap(other.m_items);
  m_offsets.swap(other.m_offsets);
  return *this;
}

CGenericDataItem& CGenericDataHeader::operator[](int i) {
  // Shared safely: a field cannot be changed through the reference.
  static CGenericDataItem none;
  if (i < 0 || i >= NumFields()) return none;
  return m_items[static_cast<std::size_t>(i)];
}

const CGenericDataItem& CGenericDataHeader::operator[](int i) const {
  return const_cast<CGenericDataHeader&>(*this)[i];
}

int CGenericDataHeader::ItemBufferOffset(int i) const {
  if (i < 0 || i > NumFields()) return -1;
  return m_offsets[static_cast<std::size_t>(i)];
}

BOOL CGenericDataHeader::AddField(const CGenericDataItem& item) {
  if (NumFields() >= kMaxFields) return FALSE;
  if (RecordSize() + item.ItemSizeInBytes() > kMaxRecordSize) return FALSE;
  m_items.push_back(item);
  m_offsets.push_back(RecordSize() + item.ItemSizeInBytes());
  return TRUE;
}

void CGenericDataHeader::RemoveAll() {
  m_items.clear();
  m_offsets.assign(1, 0);
}

// ---- Record maps ----

void CGenericDataFileMap::SetHeader(const CGenericDataHeader& header) {
  m_header = header;
  RemoveAll();
}

void CGenericDataFileMap::RemoveAll() {
  m_bytes.clear();
  m_count = 0;
  m_stride = m_extra + m_header.RecordSize();
}

void* CGenericDataFileMap::operator[](int index) {
  return const_cast<void*>(static_cast<const CGenericDataFileMap&>(*this)[index]);
}

const void* CGenericDataFileMap::operator[](int index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= m_count || !Usable()) return nullptr;
  // Records of no bytes still exist; they get a valid, empty place.
  if (m_stride == 0) return &m_bytes;
  return m_bytes.data() + static_cast<std::size_t>(index) * static_cast<std::size_t>(m_stride);
}

int CGenericDataFileMap::AddRecord(const void* bytes) {
  if (!Usable() || m_count >= static_cast<std::size_t>(kMaxRecords)) return -1;
  const auto stride = static_cast<std::size_t>(m_stride);
  if (m_bytes.size() + stride > kMaxBytes) return -1;
  const std::size_t at = m_bytes.size();
  m_bytes.resize(at + stride);
  if (bytes && stride) std::memcpy(m_bytes.data() + at, bytes, stride);
  return static_cast<int>(m_count++);
}

// ---- Status log ----

int CStatusLogFileMap::AddEntry(float time, const void* fields) {
  if (RecordSize() < kTimeSize) return -1;
  std::vector<std::uint8_t> record(static_cast<std::size_t>(RecordSize()));
  std::memcpy(record.data(), &time, kTimeSize);
  if (fields) std::memcpy(record.data() + kTimeSize, fields, record.size() - kTimeSize);
  return AddRecord(record.data());
}

float CStatusLogFileMap::EntryTime(int index) const {
  const void* record = (*this)[index];
  float time = 0;
  if (record) std::memcpy(&time, record, kTimeSize);
  return time;
}

int CStatusLogFileMap::NearestEntry(double time) const {
  if (std::isnan(time)) return -1;
  int best = -1;
  double bestDistance = 0;
  for (int i = 0; i < NumRecords(); ++i) {
    if (!(*this)[i]) return -1;
    const double t = EntryTime(i);
    if (std::isnan(t)) continue;
    const double distance = std::fabs(t - time);
    if (best < 0 || distance < bestDistance) {
      best = i;
      bestDistance = distance;
    }
  }
  return best;
}
