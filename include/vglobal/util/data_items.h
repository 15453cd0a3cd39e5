// Instrument data items: one labelled value of a status-log, tune or trailer record
// as text or as an automation variant, whole records as labelled texts, and the
// status-log fields that can be plotted.
//
// Text form by type code: 0 and unknown codes give empty text; integers plain
// decimal; flags (2, 3, 4) the string-table texts "True"/"False", "Yes"/"No",
// "On"/"Off"; floating values (10, 11) with the field's precision, in scientific
// notation when the field asks for it; 8-bit text (12) and UTF-16 text (13) up to
// their first zero character. 8-bit text is taken as UTF-8 when its bytes are valid
// UTF-8, else as code page 1252 (each byte one character, see vglobal/compat/unicode.h),
// so that text written by either kind of instrument software reads sensibly.
//
// Variant form: VT_EMPTY, VT_I1, VT_BOOL (2, 3, 4), VT_UI1, VT_I2, VT_UI2, VT_I4,
// VT_UI4, VT_R4, VT_R8, VT_BSTR (12, 13), and VT_ERROR for unknown codes. A flag's
// variant boolean is inverted, as the suite's programs have always read it: 1 when
// the stored byte is 0, and 0 when it is not. The variant's previous content is
// overwritten, not freed: clear a variant that holds a string before passing it.
//
// Contract:
// - No read leaves a record. For the functions that take a bare record, the record
//   holds the bytes that the header lays out (its RecordSize()); for the listings,
//   each record comes from its map, whose RecordSize() bounds the walk: a header that
//   lays out more bytes than the record holds is rejected (0, outputs emptied).
// - Every failure is the zero result with the outputs emptied (or the variant left at
//   VT_ERROR); nothing is shown and nothing is thrown. Null pointers fail.
// - Runs on the calling thread; the sources are not changed.
#pragma once

#include "vglobal/compat/collections.h"
#include "vglobal/compat/cstring.h"
#include "vglobal/compat/variant.h"
#include "vglobal/export.h"
#include "vglobal/fileio/generic_data.h"
#include "vglobal/fileio/virtual_device.h"

// The text form of the first field whose label equals `label` ignoring case, read
// from `record` at that field's ItemBufferOffset. 1 on success; 0 with `text` empty
// when no label matches.
VGLOBAL_EXPORT int GenericDataItemToString(CGenericDataHeader* header, void* record,
                                           const wchar_t* label, CString& text);

// The variant form of the same field. `value` is set to VT_ERROR first; 1 on success
// (an unknown type code is a success whose variant stays VT_ERROR); 0 when no label
// matches.
VGLOBAL_EXPORT int GenericDataItemToVariant(CGenericDataHeader* header, void* record,
                                            const wchar_t* label, VARIANT& value);

// The status-log record logged nearest to `time` (minutes), as labels and texts in
// field order; *logTime (when logTime is not null) receives the time it was logged,
// 0 on failure. 0 when the log has no entries, its header no fields, or no record.
VGLOBAL_EXPORT int GetStatusLogAtTime(double time, float* logTime, CStringArray& labels,
                                      CStringArray& values, CVirtualData* data);

// The tune-data record of acquisition segment `segment` (from 0), as labels and
// texts. 0 when there is no tune data, the segment is negative or has no record, or
// the header has no fields.
VGLOBAL_EXPORT int GetTuneDataAtSegment(int segment, CStringArray& labels, CStringArray& values,
                                        CVirtualMS* ms);

// The trailer-extra record of scan `scan` (scan numbers count from 1, so scan 0 has
// none), as labels and texts. 0 as for the tune data.
VGLOBAL_EXPORT int GetTrailerExtraDataAtScan(int scan, CStringArray& labels, CStringArray& values,
                                             CVirtualMS* ms);

// The status-log fields that can be plotted: those holding 16- or 32-bit integers or
// floating values (type codes 6 to 11), their labels and field indices in field
// order. 0 when the log has no entries; otherwise 1, also when no field qualifies.
VGLOBAL_EXPORT int StatusLogPlottable(CStringArray& labels, CArray<long, long>& indices,
                                      CVirtualData* data);
