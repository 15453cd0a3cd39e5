// The contents of the suite's data files and their sections: what CRawfile and
// CSequence read and write, apart from the objects themselves so that the decoders
// can be driven from bytes in memory (tests, fuzzing) as well as from files.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "container.h"
#include "vglobal/fileio/audit_trail.h"
#include "vglobal/fileio/file_header.h"
#include "vglobal/fileio/sequence.h"
#include "vglobal/fileio/virtual_device.h"

namespace vglobal::fileio {

struct RawFileContents {
  CHeader header;
  CAuditTrail audit;
  CVirtualData data;
  CVirtualMS ms;
  ContainerExtras extras;
};

struct SampleListContents {
  CHeader header;
  CAuditTrail audit;
  std::vector<CSeqRow> rows;
  ContainerExtras extras;
};

// Decoders: on error the contents are unspecified (callers decode into a fresh
// object and keep it only on success).
FileError DecodeRawFile(Source& source, RawFileContents& out);
FileError DecodeSampleList(Source& source, SampleListContents& out);

// Encoders: the whole file in out, or kTooLarge when a part is larger than a reader
// accepts (see WriteContainer).
FileError EncodeRawFile(const CHeader& header, const CAuditTrail& audit, const CVirtualData& data,
                        const CVirtualMS& ms, const ContainerExtras& extras,
                        std::vector<std::uint8_t>& out);
FileError EncodeSampleList(const CHeader& header, const CAuditTrail& audit,
                           const std::vector<CSeqRow>& rows, const ContainerExtras& extras,
                           std::vector<std::uint8_t>& out);

}  // namespace vglobal::fileio
