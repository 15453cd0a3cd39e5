// The self-describing records of a raw file: a CGenericDataHeader lists the typed,
// labelled fields of a record (CGenericDataItem), and a record map holds the records
// laid out by it: the instrument status log (CStatusLogFileMap, one record per logged
// time), the tune data (CTuneDataFileMap, one per acquisition segment) and the trailer
// extra data (CTrailerExtraFileMap, one per scan).
//
// Record layout: the fields follow one another without padding, each at the running
// sum of the sizes of the fields before it (ItemBufferOffset), numbers little-endian.
// Record bytes are not aligned: read a value with memcpy, never through a cast pointer.
//
// Contract:
// - Value types; copies are independent. Not thread-safe for concurrent mutation.
// - An item's size follows from its type code: fixed for the numeric and flag codes,
//   StringLengthOrPrecision bytes for 8-bit text (code 12), twice that for wide text
//   (code 13, UTF-16LE code units), nothing for code 0, and StringLengthOrPrecision
//   bytes of opaque data for codes this version does not know.
// - Every count and size is capped (see the constants); the adders refuse beyond.
// - A field cannot be changed once made (it is replaced with its header's fields), so
//   a header's layout changes only through its own members.
// - A record pointer from a map stays valid until the map's next change. A map whose
//   header was changed to another record size after it took records hands out no
//   records (null) until they are replaced, so no record is read past its end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "vglobal/compat/cstring.h"
#include "vglobal/compat/types.h"
#include "vglobal/export.h"

// Type codes of the fields of a generic data header.
enum GenericDataType : int {
  GDT_EMPTY = 0,          // no value
  GDT_CHAR = 1,           // signed 8-bit
  GDT_TRUEFALSE = 2,      // byte, non-zero = true
  GDT_YESNO = 3,          // byte, non-zero = yes
  GDT_ONOFF = 4,          // byte, non-zero = on
  GDT_UCHAR = 5,          // unsigned 8-bit
  GDT_SHORT = 6,          // signed 16-bit
  GDT_USHORT = 7,         // unsigned 16-bit
  GDT_LONG = 8,           // signed 32-bit
  GDT_ULONG = 9,          // unsigned 32-bit
  GDT_FLOAT = 10,         // 32-bit float
  GDT_DOUBLE = 11,        // 64-bit double
  GDT_CHAR_STRING = 12,   // 8-bit text of StringLengthOrPrecision bytes
  GDT_WCHAR_STRING = 13,  // UTF-16LE text of StringLengthOrPrecision code units
};

class VGLOBAL_EXPORT CGenericDataItem {
 public:
  static constexpr int kMaxLabelLength = 256;   // characters
  static constexpr unsigned kMaxLength = 4096;  // StringLengthOrPrecision

  // An empty field (code 0, no label, no bytes).
  CGenericDataItem() = default;
  // type: a type code (GenericDataType or an unknown code, see above); label: null is
  // empty; lengthOrPrecision: the text length of codes 12/13, the decimals of codes
  // 10/11, the byte count of unknown codes, unused otherwise. Values beyond the caps
  // are cut to them.
  CGenericDataItem(int type, const wchar_t* label, unsigned lengthOrPrecision = 0,
                   int scientific = 0);

  int DataType() const { return m_type; }
  CString Label() const { return m_label; }
  int ItemSizeInBytes() const;
  // Text length (codes 12, 13), decimals (codes 10, 11), byte count (unknown codes).
  unsigned StringLengthOrPrecision() const { return m_length; }
  // Non-zero: a floating value is shown in scientific notation.
  int IsScientificNotation() const { return m_scientific; }

  CGenericDataItem(const CGenericDataItem&) = default;
  friend bool operator==(const CGenericDataItem&, const CGenericDataItem&) = default;

 private:
  // A field is fixed once made: a header computes its record layout once, and a
  // reference to one of its fields cannot change that layout behind its back.
  CGenericDataItem& operator=(const CGenericDataItem&) = default;

  int m_type = GDT_EMPTY;
  CString m_label;
  unsigned m_length = 0;
  int m_scientific = 0;
};

class VGLOBAL_EXPORT CGenericDataHeader {
 public:
  static constexpr int kMaxFields = 1024;
  static constexpr int kMaxRecordSize = 65536;  // bytes

  CGenericDataHeader() = default;
  CGenericDataHeader(const CGenericDataHeader&) = default;
  CGenericDataHeader(CGenericDataHeader&&) noexcept = default;
  CGenericDataHeader& operator=(CGenericDataHeader other) noexcept;

  int NumFields() const { return static_cast<int>(m_items.size()); }
  // Field i in record order (fields cannot be changed in place). An index outside the
  // header gives an empty item.
  CGenericDataItem& operator[](int i);
  const CGenericDataItem& operator[](int i) const;
  // Byte offset of field i inside a record; i == NumFields() gives the record size;
  // -1 for any other index.
  int ItemBufferOffset(int i) const;
  // Bytes of one record laid out by this header.
  int RecordSize() const { return m_offsets.back(); }

  // Appends a field. FALSE (header unchanged) when the header already holds
  // kMaxFields fields or the record would outgrow kMaxRecordSize.
  BOOL AddField(const CGenericDataItem& item);
  void RemoveAll();

  friend bool operator==(const CGenericDataHeader& a, const CGenericDataHeader& b) {
    return a.m_items == b.m_items;
  }

 private:
  std::vector<CGenericDataItem> m_items;
  std::vector<int> m_offsets{0};  // of every field, then the record size
};

// Records laid out by one header. Record i is RecordSize() bytes.
class VGLOBAL_EXPORT CGenericDataFileMap {
 public:
  static constexpr int kMaxRecords = 1 << 20;
  static constexpr std::size_t kMaxBytes = std::size_t{256} << 20;  // all records together

  virtual ~CGenericDataFileMap() = default;

  // The layout of the records. Changing it through this reference to another record
  // size makes the map hand out no records until SetHeader or RemoveAll.
  CGenericDataHeader& Header() { return m_header; }
  const CGenericDataHeader& Header() const { return m_header; }
  // Replaces the layout and drops every record.
  void SetHeader(const CGenericDataHeader& header);

  int NumRecords() const { return static_cast<int>(m_count); }
  BOOL HasRecords() const { return m_count != 0; }
  // Bytes of one record of this map.
  int RecordSize() const { return m_stride; }
  // Record index, or null when there is no such record (see the header's contract).
  void* operator[](int index);
  const void* operator[](int index) const;

  // Appends a record copied from `bytes` (RecordSize() bytes; null appends zeros).
  // Returns its index, or -1 when a cap would be passed.
  int AddRecord(const void* bytes);
  void RemoveAll();

  friend bool operator==(const CGenericDataFileMap& a, const CGenericDataFileMap& b) {
    return a.m_header == b.m_header && a.m_stride == b.m_stride && a.m_count == b.m_count &&
           a.m_bytes == b.m_bytes;
  }

 protected:
  // extra: bytes that every record carries before its fields.
  explicit CGenericDataFileMap(int extra) : m_extra(extra), m_stride(extra) {}
  CGenericDataFileMap(const CGenericDataFileMap&) = default;
  CGenericDataFileMap& operator=(const CGenericDataFileMap&) = default;

 private:
  // Records are read by the header's layout; they are handed out only while that
  // layout has the size they were made with.
  bool Usable() const { return m_stride == m_extra + m_header.RecordSize(); }

  CGenericDataHeader m_header;
  int m_extra;
  int m_stride;
  std::size_t m_count = 0;
  std::vector<std::uint8_t> m_bytes;
};

// Tune data: one record per acquisition segment, counted from 0.
class VGLOBAL_EXPORT CTuneDataFileMap : public CGenericDataFileMap {
 public:
  CTuneDataFileMap() : CGenericDataFileMap(0) {}
};

// Trailer extra data: one record per scan; record index = scan number - 1.
class VGLOBAL_EXPORT CTrailerExtraFileMap : public CGenericDataFileMap {
 public:
  CTrailerExtraFileMap() : CGenericDataFileMap(0) {}
};

// Instrument status log: every record begins with the 32-bit float time (minutes)
// at which it was logged; the header's fields follow it, so RecordSize() is
// 4 + Header().RecordSize().
class VGLOBAL_EXPORT CStatusLogFileMap : public CGenericDataFileMap {
 public:
  static constexpr int kTimeSize = 4;
  CStatusLogFileMap() : CGenericDataFileMap(kTimeSize) {}

  // Appends a record logged at `time` whose fields are copied from `fields`
  // (Header().RecordSize() bytes; null appends zeros). -1 when a cap would be passed.
  int AddEntry(float time, const void* fields);
  // The time at which record index was logged; 0 when there is no such record.
  float EntryTime(int index) const;
  // Index of the record logged nearest to `time` (the earlier one of two equally
  // near); -1 when the map hands out no records.
  int NearestEntry(double time) const;
};
