// Instrument data items: text and variant forms of every type code, finding a field
// by label, record listings, plottable fields, and records that do not fit their
// header.
#include "vglobal/util/data_items.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "vglobal/fileio/number_format.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using Texts = std::vector<std::wstring>;

template <typename T>
Bytes Of(T value, std::size_t size = sizeof(T)) {
  Bytes bytes(size, 0);
  std::memcpy(bytes.data(), &value, std::min(size, sizeof value));
  return bytes;
}

Bytes Chars(std::string_view text) {
  return Bytes(text.begin(), text.end());
}

Bytes Units(std::u16string_view text) {
  Bytes bytes(text.size() * 2);
  std::memcpy(bytes.data(), text.data(), bytes.size());
  return bytes;
}

// A header and one record laid out by it.
struct Layout {
  CGenericDataHeader header;
  Bytes record;

  Layout(std::initializer_list<std::pair<CGenericDataItem, Bytes>> fields) {
    for (const auto& [item, value] : fields) {
      EXPECT_EQ(static_cast<int>(value.size()), item.ItemSizeInBytes()) << item.Label().ToUtf8();
      header.AddField(item);
      record.insert(record.end(), value.begin(), value.end());
    }
  }
  std::wstring Text(const wchar_t* label) {
    CString text = L"stale";
    EXPECT_EQ(GenericDataItemToString(&header, record.data(), label, text), 1);
    return text.str();
  }
  // The variant form of a field; a string is returned as text and freed.
  VARIANT Variant(const wchar_t* label, std::wstring* string = nullptr) {
    VARIANT value{};
    value.vt = VT_I4;
    EXPECT_EQ(GenericDataItemToVariant(&header, record.data(), label, value), 1);
    if (value.vt == VT_BSTR) {
      if (string) *string = std::wstring(value.bstrVal, SysStringLen(value.bstrVal));
      VariantClear(&value);
      value.vt = VT_BSTR;
    }
    return value;
  }
};

Layout EveryType() {
  return Layout{
      {CGenericDataItem(GDT_EMPTY, L"Empty"), {}},
      {CGenericDataItem(GDT_CHAR, L"Char"), Of<std::int8_t>(-5)},
      {CGenericDataItem(GDT_TRUEFALSE, L"Ready"), Of<std::uint8_t>(0)},
      {CGenericDataItem(GDT_YESNO, L"Locked"), Of<std::uint8_t>(9)},
      {CGenericDataItem(GDT_ONOFF, L"Heater"), Of<std::uint8_t>(0)},
      {CGenericDataItem(GDT_UCHAR, L"UChar"), Of<std::uint8_t>(200)},
      {CGenericDataItem(GDT_SHORT, L"Short"), Of<std::int16_t>(-300)},
      {CGenericDataItem(GDT_USHORT, L"UShort"), Of<std::uint16_t>(65000)},
      {CGenericDataItem(GDT_LONG, L"Long"), Of<std::int32_t>(-70000)},
      {CGenericDataItem(GDT_ULONG, L"ULong"), Of<std::uint32_t>(4000000000u)},
      {CGenericDataItem(GDT_FLOAT, L"Vacuum", 2), Of(2.5f)},
      {CGenericDataItem(GDT_DOUBLE, L"Energy", 1, 1), Of(1234.5)},
      {CGenericDataItem(GDT_CHAR_STRING, L"Mode", 6), Chars({"abc\0\0\0", 6})},
      {CGenericDataItem(GDT_WCHAR_STRING, L"Operator", 3), Units({u"J\u00f6\0", 3})},
      {CGenericDataItem(42, L"Future", 3), Bytes{1, 2, 3}},
      {CGenericDataItem(-1, L"Negative", 2), Bytes{4, 5}},
  };
}

TEST(DataItem, TextAndVariantOfEveryTypeCode) {
  Layout layout = EveryType();
  struct Expected {
    const wchar_t* label;
    const wchar_t* text;
    VARTYPE vt;
  };
  for (const Expected& e : {Expected{L"Empty", L"", VT_EMPTY},
                            {L"Char", L"-5", VT_I1},
                            {L"Ready", L"False", VT_BOOL},
                            {L"Locked", L"Yes", VT_BOOL},
                            {L"Heater", L"Off", VT_BOOL},
                            {L"UChar", L"200", VT_UI1},
                            {L"Short", L"-300", VT_I2},
                            {L"UShort", L"65000", VT_UI2},
                            {L"Long", L"-70000", VT_I4},
                            {L"ULong", L"4000000000", VT_UI4},
                            {L"Vacuum", L"2.50", VT_R4},
                            {L"Energy", L"1.2e+03", VT_R8},
                            {L"Mode", L"abc", VT_BSTR},
                            {L"Operator", L"J\u00f6", VT_BSTR},
                            {L"Future", L"", VT_ERROR},
                            {L"Negative", L"", VT_ERROR}}) {
    EXPECT_EQ(layout.Text(e.label), e.text) << CString(e.label).ToUtf8();
    std::wstring string;
    EXPECT_EQ(layout.Variant(e.label, &string).vt, e.vt) << CString(e.label).ToUtf8();
    if (e.vt == VT_BSTR) {
      EXPECT_EQ(string, e.text);
    }
  }
  EXPECT_EQ(layout.Variant(L"Char").cVal, -5);
  EXPECT_EQ(layout.Variant(L"UShort").uiVal, 65000);
  EXPECT_EQ(layout.Variant(L"ULong").ulVal, 4000000000u);
  EXPECT_EQ(layout.Variant(L"Vacuum").fltVal, 2.5f);
  EXPECT_EQ(layout.Variant(L"Energy").dblVal, 1234.5);
  // Flag variants are inverted, and true is 1.
  EXPECT_EQ(layout.Variant(L"Ready").boolVal, 1);
  EXPECT_EQ(layout.Variant(L"Locked").boolVal, 0);
}

TEST(DataItem, TextsEndAtTheirFirstZeroOrTheirField) {
  Layout layout{{CGenericDataItem(GDT_CHAR_STRING, L"Utf8", 5), Chars("caf\xc3\xa9")},
                {CGenericDataItem(GDT_CHAR_STRING, L"Latin1", 4), Chars("caf\xe9")},
                {CGenericDataItem(GDT_CHAR_STRING, L"Overlong", 2), Chars("\xc0\xaf")},
                {CGenericDataItem(GDT_CHAR_STRING, L"Inner zero", 5), Chars({"ab\0cd", 5})},
                {CGenericDataItem(GDT_WCHAR_STRING, L"Wide", 2), Units(u"\U0001F600")},
                {CGenericDataItem(GDT_WCHAR_STRING, L"Wide zero", 3), Units({u"a\0b", 3})},
                {CGenericDataItem(GDT_CHAR_STRING, L"Next", 2), Chars("zz")}};
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"Utf8", L"caf\u00e9"}, {L"Latin1", L"caf\u00e9"}, {L"Overlong", L"\u00c0\u00af"},
      {L"Inner zero", L"ab"},  {L"Wide", L"\U0001F600"},  {L"Wide zero", L"a"},
  };
  for (auto [label, text] : cases) {
    std::wstring string;
    EXPECT_EQ(layout.Text(label), text) << CString(label).ToUtf8();
    layout.Variant(label, &string);
    EXPECT_EQ(string, text) << CString(label).ToUtf8();
  }
}

TEST(DataItem, LabelIgnoresCaseAndTheFirstMatchWins) {
  Layout layout{{CGenericDataItem(GDT_SHORT, L"Temp \u00c9"), Of<std::int16_t>(1)},
                {CGenericDataItem(GDT_SHORT, L"temp \u00e9"), Of<std::int16_t>(2)}};
  EXPECT_EQ(layout.Text(L"TEMP \u00e9"), L"1");
  EXPECT_EQ(layout.Variant(L"temp \u00e9").iVal, 1);

  Layout none{};
  void* record = layout.record.data();
  CString text = L"stale";
  VARIANT value{};
  for (const wchar_t* label : {L"Temp", L"", static_cast<const wchar_t*>(nullptr)}) {
    EXPECT_EQ(GenericDataItemToString(&layout.header, record, label, text), 0);
    EXPECT_EQ(GenericDataItemToVariant(&layout.header, record, label, value), 0);
  }
  EXPECT_EQ(GenericDataItemToString(&none.header, record, L"Temp \u00c9", text), 0);
  EXPECT_EQ(GenericDataItemToString(nullptr, record, L"Temp \u00c9", text), 0);
  EXPECT_EQ(GenericDataItemToVariant(&layout.header, nullptr, L"Temp \u00c9", value), 0);
  EXPECT_EQ(text, L"");
  EXPECT_EQ(value.vt, VT_ERROR);
}

// ---- Record listings ----

// Arrays that already hold something, so that every call must empty them.
struct Lists {
  CStringArray labels, values;
  Lists() {
    labels.Add(L"old");
    values.Add(L"old");
  }
  Texts Labels() const { return {labels.begin(), labels.end()}; }
  Texts Values() const {
    Texts texts;
    for (const CString& v : values) texts.push_back(v.str());
    return texts;
  }
};

CGenericDataHeader VacuumAndPump() {
  CGenericDataHeader header;
  header.AddField(CGenericDataItem(GDT_FLOAT, L"Vacuum", 1));
  header.AddField(CGenericDataItem(GDT_ONOFF, L"Pump"));
  return header;
}

Bytes VacuumAndPump(float vacuum, std::uint8_t pump) {
  Bytes bytes = Of(vacuum);
  bytes.push_back(pump);
  return bytes;
}

TEST(RecordListing, StatusLogNearestRecordAndItsTime) {
  CVirtualData data;
  Lists out;
  float logTime = -1;
  EXPECT_EQ(GetStatusLogAtTime(1, &logTime, out.labels, out.values, &data), 0);
  EXPECT_EQ(logTime, 0.0f);
  data.StatusLog().AddEntry(1.0f, nullptr);  // entries, but no fields
  EXPECT_EQ(GetStatusLogAtTime(1, &logTime, out.labels, out.values, &data), 0);

  data.StatusLog().SetHeader(VacuumAndPump());
  data.StatusLog().AddEntry(1.0f, VacuumAndPump(0.5f, 0).data());
  data.StatusLog().AddEntry(2.0f, VacuumAndPump(1.25f, 1).data());
  ASSERT_EQ(GetStatusLogAtTime(1.8, &logTime, out.labels, out.values, &data), 1);
  EXPECT_EQ(logTime, 2.0f);
  EXPECT_EQ(out.Labels(), (Texts{L"Vacuum", L"Pump"}));
  EXPECT_EQ(out.Values(), (Texts{L"1.2", L"On"}));
  EXPECT_EQ(GetStatusLogAtTime(std::nan(""), &logTime, out.labels, out.values, &data), 0);
  EXPECT_TRUE(out.labels.IsEmpty());
}

TEST(RecordListing, TuneSegmentsCountFromZeroAndTrailerScansFromOne) {
  CVirtualMS ms;
  Lists out;
  EXPECT_EQ(GetTuneDataAtSegment(0, out.labels, out.values, &ms), 0);
  for (CGenericDataFileMap* map :
       std::initializer_list<CGenericDataFileMap*>{&ms.TuneData(), &ms.TrailerExtra()}) {
    map->SetHeader(VacuumAndPump());
    map->AddRecord(VacuumAndPump(3.0f, 0).data());
    map->AddRecord(VacuumAndPump(4.0f, 1).data());
  }
  ASSERT_EQ(GetTuneDataAtSegment(1, out.labels, out.values, &ms), 1);
  EXPECT_EQ(out.Values(), (Texts{L"4.0", L"On"}));
  ASSERT_EQ(GetTrailerExtraDataAtScan(1, out.labels, out.values, &ms), 1);
  EXPECT_EQ(out.Values(), (Texts{L"3.0", L"Off"}));
  for (int index : {-1, 2, INT_MIN, INT_MAX}) {
    Lists failed;
    EXPECT_EQ(GetTuneDataAtSegment(index, failed.labels, failed.values, &ms), 0) << index;
    EXPECT_TRUE(failed.labels.IsEmpty() && failed.values.IsEmpty());
  }
  for (int scan : {0, 3, INT_MIN, INT_MAX}) {
    Lists failed;
    EXPECT_EQ(GetTrailerExtraDataAtScan(scan, failed.labels, failed.values, &ms), 0) << scan;
    EXPECT_TRUE(failed.labels.IsEmpty() && failed.values.IsEmpty());
  }
  EXPECT_EQ(GetTuneDataAtSegment(0, out.labels, out.values, nullptr), 0);
}

TEST(RecordListing, UnknownTypeCodeGivesEmptyTextAndTheWalkGoesOn) {
  CVirtualMS ms;
  CGenericDataHeader header;
  header.AddField(CGenericDataItem(GDT_SHORT, L"Before"));
  header.AddField(CGenericDataItem(77, L"Opaque", 3));
  header.AddField(CGenericDataItem(GDT_CHAR_STRING, L"After", 2));
  ms.TuneData().SetHeader(header);
  ms.TuneData().AddRecord(Bytes{0xfe, 0xff, 0xff, 0xff, 0xff, 'o', 'k'}.data());
  Lists out;
  ASSERT_EQ(GetTuneDataAtSegment(0, out.labels, out.values, &ms), 1);
  EXPECT_EQ(out.Labels(), (Texts{L"Before", L"Opaque", L"After"}));
  EXPECT_EQ(out.Values(), (Texts{L"-2", L"", L"ok"}));
}

TEST(RecordListing, HeaderChangedUnderItsRecordsIsRejected) {
  CVirtualData data;
  data.StatusLog().SetHeader(VacuumAndPump());
  data.StatusLog().AddEntry(1.0f, VacuumAndPump(0.5f, 0).data());
  // The record was made for the old layout; the wider one would read past it.
  data.StatusLogHeader().AddField(CGenericDataItem(GDT_DOUBLE, L"Extra"));
  Lists out;
  float logTime = -1;
  EXPECT_EQ(GetStatusLogAtTime(1, &logTime, out.labels, out.values, &data), 0);
  EXPECT_TRUE(out.labels.IsEmpty());
  EXPECT_EQ(logTime, 0.0f);
}

TEST(Plottable, OnlySixteenAndThirtyTwoBitIntegersAndFloatingValues) {
  CVirtualData data;
  Layout layout = EveryType();
  data.StatusLog().SetHeader(layout.header);
  CStringArray labels;
  CArray<long, long> indices;
  EXPECT_EQ(StatusLogPlottable(labels, indices, &data), 0);  // no entries yet
  data.StatusLog().AddEntry(0.5f, layout.record.data());
  ASSERT_EQ(StatusLogPlottable(labels, indices, &data), 1);
  EXPECT_EQ(Texts(labels.begin(), labels.end()),
            (Texts{L"Short", L"UShort", L"Long", L"ULong", L"Vacuum", L"Energy"}));
  EXPECT_EQ(indices.vec(), (std::vector<long>{6, 7, 8, 9, 10, 11}));

  CGenericDataHeader eightBit;
  eightBit.AddField(CGenericDataItem(GDT_CHAR, L"Char"));
  eightBit.AddField(CGenericDataItem(GDT_UCHAR, L"UChar"));
  data.StatusLog().SetHeader(eightBit);
  data.StatusLog().AddEntry(0, nullptr);
  EXPECT_EQ(StatusLogPlottable(labels, indices, &data), 1);
  EXPECT_TRUE(labels.IsEmpty() && indices.IsEmpty());
}

TEST(NumberToString, PlainIntegersAndFixedOrScientificFloatingValues) {
  EXPECT_EQ(FI_STRING_FORMAT_NumberToString(std::int32_t{INT_MIN}, 0, 1, 10, 0x10002u).str(),
            L"-2147483648");
  EXPECT_EQ(FI_STRING_FORMAT_NumberToString(std::uint32_t{UINT_MAX}, 8, 4, 16, 0u).str(),
            L"4294967295");
  const std::pair<CString, const wchar_t*> cases[] = {
      {FI_STRING_FORMAT_NumberToString(3.14159, 0, 2, 0x10002u, 0), L"3.14"},
      {FI_STRING_FORMAT_NumberToString(-0.000123, 0, 1, 0x10002u, 7), L"-1.2e-04"},
      {FI_STRING_FORMAT_NumberToString(2.75, 0, -3, 0x10002u, 0), L"3"},
      {FI_STRING_FORMAT_NumberToString(std::nan(""), 0, 2, 0x10002u, 0), L"nan"},
      {FI_STRING_FORMAT_NumberToString(-HUGE_VAL, 0, 2, 0x10002u, 1), L"-inf"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(text.str(), expected);
}

}  // namespace
