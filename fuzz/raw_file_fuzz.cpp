// Fuzz target: the raw-file reader on arbitrary bytes. Any input must be read or
// refused with an error; one that is read must survive being written and read again
// unchanged.
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "fileio/data_file_codec.h"
#include "repair_checksums.h"

namespace {

namespace fio = vglobal::fileio;

// Reads bytes; one that is read must survive being written and read again unchanged.
void ReadAndRewrite(const std::uint8_t* data, std::size_t size) {
  fio::MemorySource source(std::span(data, size));
  fio::RawFileContents first;
  if (fio::DecodeRawFile(source, first)) return;

  // What was read is written back unless it is larger than a reader accepts (text
  // that was not UTF-8 grows when written as UTF-8).
  std::vector<std::uint8_t> written, rewritten;
  if (fio::EncodeRawFile(first.header, first.audit, first.data, first.ms, first.extras, written))
    return;
  fio::MemorySource again(written);
  fio::RawFileContents second;
  if (fio::DecodeRawFile(again, second)) __builtin_trap();
  // Compared as bytes: a NaN read from the file equals itself there.
  if (fio::EncodeRawFile(second.header, second.audit, second.data, second.ms, second.extras,
                         rewritten) ||
      rewritten != written)
    __builtin_trap();
}

}  // namespace

// The input as it is (signature, table and checksum checks), then with its checksums
// made right (the section decoders).
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ReadAndRewrite(data, size);
  const std::vector<std::uint8_t> repaired = vglobal::fuzzing::RepairChecksums(data, size);
  ReadAndRewrite(repaired.data(), repaired.size());
  return 0;
}
