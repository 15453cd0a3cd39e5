// Fuzz target: the CSV sample-list parser on arbitrary text. Any input must give rows
// or an error that names a line; rows never exceed the caps.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fileio/csv_import.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  namespace fio = vglobal::fileio;
  std::vector<CSeqRow> rows;
  const fio::FileError error =
      fio::ParseSampleListCsv(std::string_view(reinterpret_cast<const char*>(data), size), rows);
  if (error && error.message.rfind(L"line ", 0) != 0 && error.code != CBaseIO::kTooLarge)
    __builtin_trap();
  if (!error && rows.size() > static_cast<std::size_t>(CSequence::kMaxRows)) __builtin_trap();
  return 0;
}
