// Sample lists in CSV, the form in which laboratories move them between programs:
// RFC 4180 records under a header row that names the columns. The accepted columns,
// values and limits are documented in docs/file_formats.md ("Sample lists in CSV").
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "byte_codec.h"
#include "vglobal/fileio/sequence.h"

namespace vglobal::fileio {

// The largest CSV file and the longest record (one line, or the lines of a record
// with quoted line breaks) accepted.
inline constexpr std::size_t kMaxCsvBytes = std::size_t{64} << 20;
inline constexpr std::size_t kMaxCsvRecordBytes = std::size_t{64} << 10;

// Parses CSV text (UTF-8, a byte-order mark allowed) into rows. On error rows are
// unspecified and the message starts with the line number ("line 7, column ...").
FileError ParseSampleListCsv(std::string_view text, std::vector<CSeqRow>& rows);

}  // namespace vglobal::fileio
