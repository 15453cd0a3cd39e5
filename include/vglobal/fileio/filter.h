// The scan filter of a mass-spectrometer trace (CFilter) and its parser (CVC_FilterStruct).
//
// A filter says which scans of a raw file a chromatogram is built from. This record
// keeps the part of the filter that the processing method moves: polarity, scan mode,
// scan type and the mass ranges. A default-constructed CFilter is the empty filter
// (every scan; nothing is selected), and its text is "".
//
// Text form (grammar): every part optional but in this order, parts written with one
// space between them; the empty text is the empty filter:
//
//   filter     := [polarity] [scanmode] [scantype] [ranges]
//   polarity   := "+" | "-"                          (positive / negative ions)
//   scanmode   := "c" | "p"                          (centroid / profile data)
//   scantype   := "Full ms" | "SIM ms" | "SRM ms2" | "Z ms"
//                                                    (full scan, selected ion monitoring,
//                                                     selected reaction monitoring, zoom)
//   ranges     := "[" range { "," range } "]"        (no spaces inside the brackets)
//   range      := mass [ "-" mass ]                  (a single mass is a range of width 0)
//   mass       := digits [ "." digits ]              (unsigned decimal, classic "C" locale)
//
// Examples: "+ c Full ms [50.00-500.00]", "- SIM ms [100.50,200.00-210.00]", "p", "".
//
// Rules the parser enforces (a violation is reported, never a crash):
// - the text is at most kMaxFilterTextLength characters;
// - at most kMaxMassRanges mass ranges;
// - masses are finite, not negative, at most kMaxMass, and a range's low mass is not
//   above its high mass;
// - nothing may follow the ranges; parts appear at most once and in grammar order;
//   words are case-sensitive; leading and trailing blanks (spaces, tabs) are ignored
//   and runs of blanks between parts are accepted, but none inside the brackets.
// A rejected text gets a message "scan filter: <what is wrong> at character <n>",
// n counted from 0 (CVC_FilterStruct::GetError, GetErrorPosition).
//
// GetFilterString(first, last, decimals) renders the text:
// - first, last: zero-based indices of the first and last mass range to include.
//   A negative first (-1) means "from the first range"; a negative last (-1), or one
//   past the end of the list, means "to the last range". When no range lies between
//   them (first > last, or first past the end) the brackets are left out.
// - decimals: the number of decimals written for every mass, clamped to 0..9; the
//   processing method uses 2.
// The text produced for a filter whose masses obey the rules above and have at most
// `decimals` decimals parses back to an equal filter. AddMassRange does not check the
// masses: a filter built in code with a negative mass renders text the parser refuses.
#pragma once

#include <cstddef>
#include <vector>

#include "vglobal/compat/cstring.h"
#include "vglobal/export.h"

// One mass range of a filter, in mass-to-charge units.
struct VGLOBAL_EXPORT CFilterMassRange {
  double Low = 0.0;
  double High = 0.0;
  friend bool operator==(const CFilterMassRange&, const CFilterMassRange&) = default;
};

class VGLOBAL_EXPORT CFilter {
 public:
  enum Polarity : int { PolarityAny = 0, PolarityPositive = 1, PolarityNegative = 2 };
  enum ScanMode : int { ScanModeAny = 0, ScanModeCentroid = 1, ScanModeProfile = 2 };
  enum ScanType : int {
    ScanTypeAny = 0,
    ScanTypeFull = 1,
    ScanTypeSIM = 2,
    ScanTypeSRM = 3,
    ScanTypeZoom = 4
  };

  static constexpr std::size_t kMaxMassRanges = 1000;
  static constexpr int kMaxFilterTextLength = 65536;
  static constexpr double kMaxMass = 1.0e9;

  CFilter() = default;

  Polarity GetPolarity() const { return m_polarity; }
  void SetPolarity(Polarity value) { m_polarity = value; }
  ScanMode GetScanMode() const { return m_scanMode; }
  void SetScanMode(ScanMode value) { m_scanMode = value; }
  ScanType GetScanType() const { return m_scanType; }
  void SetScanType(ScanType value) { m_scanType = value; }

  int NumMassRanges() const { return static_cast<int>(m_ranges.size()); }
  // The range at index (0-based); an index outside the list gives an empty range.
  CFilterMassRange GetMassRange(int index) const;
  const std::vector<CFilterMassRange>& MassRanges() const { return m_ranges; }
  // Appends a range; returns false (and adds nothing) when the list is full.
  bool AddMassRange(double low, double high);
  void ClearMassRanges() { m_ranges.clear(); }

  // True for the empty filter (nothing selected, no ranges).
  bool IsEmpty() const;

  // The text form described at the top of this file.
  CString GetFilterString(int first, int last, int decimals) const;

  friend bool operator==(const CFilter&, const CFilter&) = default;

 private:
  Polarity m_polarity = PolarityAny;
  ScanMode m_scanMode = ScanModeAny;
  ScanType m_scanType = ScanTypeAny;
  std::vector<CFilterMassRange> m_ranges;
};

// The filter parser. Constructed with three ints as the legacy parser was
// (CVC_FilterStruct(9, 2, 2) in the processing method); the legacy parser sized its
// work from them, while this one's grammar and limits do not depend on them, so they
// are accepted and not used. One parser may parse any number of texts in turn.
class VGLOBAL_EXPORT CVC_FilterStruct {
 public:
  CVC_FilterStruct() = default;
  CVC_FilterStruct(int /* legacy */, int /* legacy */, int /* legacy */) {}

  // Parses `text` (null is the empty text). `options` is reserved (the processing
  // method passes -1). Returns nonzero on success; then ToCFilter() gives the parsed
  // filter. On failure ToCFilter() gives the empty filter and GetError() says what is
  // wrong and at which character (0-based) of the text.
  int ParseFilterStructString(const wchar_t* text, int options = -1);
  int ParseFilterStructString(const CString& text, int options = -1) {
    return ParseFilterStructString(text.GetString(), options);
  }

  const CFilter& ToCFilter() const { return m_filter; }
  CString GetError() const { return m_error; }
  // The 0-based character position of the error, -1 after a successful parse.
  int GetErrorPosition() const { return m_errorPosition; }

 private:
  CFilter m_filter;
  CString m_error;
  int m_errorPosition = -1;
};
