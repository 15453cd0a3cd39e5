// Instrument data items and logs (see data_items.h).
//
// Map of this file:
//   1. Reading one field's bytes: text form and variant form by type code.
//   2. Finding a field by label, and the single-value functions.
//   3. Listing whole records (status log, tune data, trailer extra data).
//   4. Plottable status-log fields.
//
// Record bytes are little-endian and unaligned: every value is copied out with
// memcpy. Every read is checked against the bytes the record holds before it is made.
#include "vglobal/util/data_items.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "vglobal/compat/unicode.h"
#include "vglobal/fileio/number_format.h"

namespace {

// ---- 1. One field ----

// String-table texts of the flag types.
constexpr UINT kFalseText = 5281;
constexpr UINT kTrueText = 5282;
constexpr UINT kNoText = 5283;
constexpr UINT kYesText = 5284;
constexpr UINT kOffText = 5285;
constexpr UINT kOnText = 5286;

// The arguments with which instrument values have always been handed to the data-file
// module's number formatter.
constexpr int kFormatWidth = 0;
constexpr int kFormatDigits = 1;
constexpr int kFormatRadix = 10;
constexpr unsigned kFormatFlags = 0x10002;

template <typename T>
T Read(const std::uint8_t* bytes) {
  T value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

CString Signed(std::int32_t value) {
  return FI_STRING_FORMAT_NumberToString(value, kFormatWidth, kFormatDigits, kFormatRadix,
                                         kFormatFlags);
}

CString Unsigned(std::uint32_t value) {
  return FI_STRING_FORMAT_NumberToString(value, kFormatWidth, kFormatDigits, kFormatRadix,
                                         kFormatFlags);
}

CString Floating(double value, const CGenericDataItem& item) {
  // The precision is capped by the field itself (CGenericDataItem::kMaxLength).
  return FI_STRING_FORMAT_NumberToString(value, kFormatWidth,
                                         static_cast<int>(item.StringLengthOrPrecision()),
                                         kFormatFlags, item.IsScientificNotation());
}

CString Flag(std::uint8_t stored, UINT setText, UINT clearText) {
  CString text;
  text.LoadString(stored ? setText : clearText);
  return text;
}

// 8-bit text up to its first zero byte, read as all legacy 8-bit text is: UTF-8 when
// it is valid UTF-8, else code page 1252 (vglobal/compat/unicode.h).
std::wstring EightBitText(const std::uint8_t* bytes, std::size_t size) {
  const std::uint8_t* end = std::find(bytes, bytes + size, std::uint8_t{0});
  return vglobal::EightBitToWide(std::string_view(reinterpret_cast<const char*>(bytes),
                                                  static_cast<std::size_t>(end - bytes)));
}

// UTF-16LE text up to its first zero unit, ending at the field's end at the latest; an
// odd last byte is padding, not half a character. The text and the variant form read
// alike: the variant form's buffer held one unit per byte plus the terminator, with the
// bytes in its first half and zeros after them, so its text ends at the same place.
std::wstring WideText(const std::uint8_t* bytes, std::size_t size) {
  std::wstring text =
      vglobal::Utf16LeToWide(std::string_view(reinterpret_cast<const char*>(bytes), size / 2 * 2));
  text.resize(std::min(text.size(), text.find(L'\0')));
  return text;
}

// `bytes` holds the field's ItemSizeInBytes() bytes.
CString FieldText(const CGenericDataItem& item, const std::uint8_t* bytes) {
  const auto size = static_cast<std::size_t>(item.ItemSizeInBytes());
  switch (item.DataType()) {
    case GDT_CHAR:
      return Signed(Read<std::int8_t>(bytes));
    case GDT_TRUEFALSE:
      return Flag(bytes[0], kTrueText, kFalseText);
    case GDT_YESNO:
      return Flag(bytes[0], kYesText, kNoText);
    case GDT_ONOFF:
      return Flag(bytes[0], kOnText, kOffText);
    case GDT_UCHAR:
      return Unsigned(Read<std::uint8_t>(bytes));
    case GDT_SHORT:
      return Signed(Read<std::int16_t>(bytes));
    case GDT_USHORT:
      return Unsigned(Read<std::uint16_t>(bytes));
    case GDT_LONG:
      return Signed(Read<std::int32_t>(bytes));
    case GDT_ULONG:
      return Unsigned(Read<std::uint32_t>(bytes));
    case GDT_FLOAT:
      return Floating(Read<float>(bytes), item);
    case GDT_DOUBLE:
      return Floating(Read<double>(bytes), item);
    case GDT_CHAR_STRING:
      return CString(EightBitText(bytes, size));
    case GDT_WCHAR_STRING:
      return CString(WideText(bytes, size));
    default:
      return CString();
  }
}

BSTR MakeBstr(const std::wstring& text) {
  return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

// `bytes` holds the field's ItemSizeInBytes() bytes; `value` is VT_ERROR on entry and
// stays so for an unknown type code.
void FieldVariant(const CGenericDataItem& item, const std::uint8_t* bytes, VARIANT& value) {
  const auto size = static_cast<std::size_t>(item.ItemSizeInBytes());
  switch (item.DataType()) {
    case GDT_EMPTY:
      value.vt = VT_EMPTY;
      break;
    case GDT_CHAR:
      value.vt = VT_I1;
      value.cVal = Read<std::int8_t>(bytes);
      break;
    case GDT_TRUEFALSE:
    case GDT_YESNO:
    case GDT_ONOFF:
      // Inverted, and 1 rather than VARIANT_TRUE: the readers of these variants
      // across the suite expect exactly this.
      value.vt = VT_BOOL;
      value.boolVal = bytes[0] == 0 ? 1 : 0;
      break;
    case GDT_UCHAR:
      value.vt = VT_UI1;
      value.bVal = bytes[0];
      break;
    case GDT_SHORT:
      value.vt = VT_I2;
      value.iVal = Read<std::int16_t>(bytes);
      break;
    case GDT_USHORT:
      value.vt = VT_UI2;
      value.uiVal = Read<std::uint16_t>(bytes);
      break;
    case GDT_LONG:
      value.vt = VT_I4;
      value.lVal = Read<std::int32_t>(bytes);
      break;
    case GDT_ULONG:
      value.vt = VT_UI4;
      value.ulVal = Read<std::uint32_t>(bytes);
      break;
    case GDT_FLOAT:
      value.vt = VT_R4;
      value.fltVal = Read<float>(bytes);
      break;
    case GDT_DOUBLE:
      value.vt = VT_R8;
      value.dblVal = Read<double>(bytes);
      break;
    case GDT_CHAR_STRING:
      value.vt = VT_BSTR;
      value.bstrVal = MakeBstr(EightBitText(bytes, size));
      break;
    case GDT_WCHAR_STRING:
      value.vt = VT_BSTR;
      value.bstrVal = MakeBstr(WideText(bytes, size));
      break;
    default:
      break;
  }
}

// ---- 2. Single values ----

// Index of the first field labelled `label` ignoring case; -1 when there is none.
int FindField(const CGenericDataHeader& header, const wchar_t* label) {
  if (!label) return -1;
  for (int i = 0; i < header.NumFields(); ++i) {
    if (header[i].Label().CompareNoCase(label) == 0) return i;
  }
  return -1;
}

// The bytes of field `index` inside a record laid out by `header`, or null when the
// header's layout does not hold them.
const std::uint8_t* FieldBytes(const CGenericDataHeader& header, const void* record, int index) {
  const int offset = header.ItemBufferOffset(index);
  const int size = header[index].ItemSizeInBytes();
  if (offset < 0 || size < 0 || offset > header.RecordSize() - size) return nullptr;
  return static_cast<const std::uint8_t*>(record) + offset;
}

// ---- 3. Listings ----

// Appends the labels and texts of a record of `recordSize` bytes whose fields begin
// `start` bytes in. Each field's value follows the one before it (the running sum of
// the sizes), which for a well-formed header is its ItemBufferOffset. False, with both
// arrays emptied, when the fields run past the record.
bool ListRecord(const CGenericDataHeader& header, const void* record, std::size_t recordSize,
                std::size_t start, CStringArray& labels, CStringArray& values) {
  const auto* bytes = static_cast<const std::uint8_t*>(record);
  std::size_t at = start;
  for (int i = 0; i < header.NumFields(); ++i) {
    const CGenericDataItem& item = header[i];
    const int size = item.ItemSizeInBytes();
    if (at > recordSize || size < 0 || static_cast<std::size_t>(size) > recordSize - at) {
      labels.RemoveAll();
      values.RemoveAll();
      return false;
    }
    labels.Add(item.Label());
    values.Add(FieldText(item, bytes + at));
    at += static_cast<std::size_t>(size);
  }
  return true;
}

// Lists record `index` of a tune or trailer map.
int ListMapRecord(CGenericDataFileMap& map, int index, CStringArray& labels, CStringArray& values) {
  if (!map.HasRecords() || index < 0 || map.Header().NumFields() == 0) return 0;
  const void* record = map[index];
  if (!record) return 0;
  return ListRecord(map.Header(), record, static_cast<std::size_t>(map.RecordSize()), 0, labels,
                    values)
             ? 1
             : 0;
}

}  // namespace

int GenericDataItemToString(CGenericDataHeader* header, void* record, const wchar_t* label,
                            CString& text) {
  text.Empty();
  if (!header || !record) return 0;
  const int index = FindField(*header, label);
  if (index < 0) return 0;
  const std::uint8_t* bytes = FieldBytes(*header, record, index);
  if (!bytes) return 0;
  text = FieldText((*header)[index], bytes);
  return 1;
}

int GenericDataItemToVariant(CGenericDataHeader* header, void* record, const wchar_t* label,
                             VARIANT& value) {
  value.vt = VT_ERROR;
  value.scode = 0;
  if (!header || !record) return 0;
  const int index = FindField(*header, label);
  if (index < 0) return 0;
  const std::uint8_t* bytes = FieldBytes(*header, record, index);
  if (!bytes) return 0;
  FieldVariant((*header)[index], bytes, value);
  return 1;
}

int GetStatusLogAtTime(double time, float* logTime, CStringArray& labels, CStringArray& values,
                       CVirtualData* data) {
  labels.RemoveAll();
  values.RemoveAll();
  if (logTime) *logTime = 0;
  if (!data || data->NumStatusLogEntries() == 0) return 0;
  const CGenericDataHeader& header = data->StatusLogHeader();
  if (header.NumFields() == 0) return 0;
  void* record = nullptr;
  if (!data->GetStatusLogAtTime(time, &record) || !record) return 0;

  constexpr auto kTimeSize = static_cast<std::size_t>(CStatusLogFileMap::kTimeSize);
  const auto recordSize = static_cast<std::size_t>(data->StatusLog().RecordSize());
  if (recordSize < kTimeSize) return 0;
  if (!ListRecord(header, record, recordSize, kTimeSize, labels, values)) return 0;
  if (logTime) *logTime = Read<float>(static_cast<const std::uint8_t*>(record));
  return 1;
}

int GetTuneDataAtSegment(int segment, CStringArray& labels, CStringArray& values, CVirtualMS* ms) {
  labels.RemoveAll();
  values.RemoveAll();
  if (!ms) return 0;
  return ListMapRecord(ms->TuneData(), segment, labels, values);
}

int GetTrailerExtraDataAtScan(int scan, CStringArray& labels, CStringArray& values,
                              CVirtualMS* ms) {
  labels.RemoveAll();
  values.RemoveAll();
  if (!ms) return 0;
  // Scan numbers count from 1; scan 0 and below name no record.
  return ListMapRecord(ms->TrailerExtra(), scan > 0 ? scan - 1 : -1, labels, values);
}

// ---- 4. Plottable fields ----

int StatusLogPlottable(CStringArray& labels, CArray<long, long>& indices, CVirtualData* data) {
  labels.RemoveAll();
  indices.RemoveAll();
  if (!data || data->NumStatusLogEntries() == 0) return 0;
  const CGenericDataHeader& header = data->StatusLogHeader();
  for (int i = 0; i < header.NumFields(); ++i) {
    const int type = header[i].DataType();
    if (type >= GDT_SHORT && type <= GDT_DOUBLE) {
      labels.Add(header[i].Label());
      indices.Add(i);
    }
  }
  return 1;
}
