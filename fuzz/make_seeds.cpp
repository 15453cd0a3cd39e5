// Writes the valid seed files of the fuzz corpora with the library's own encoders:
// an empty and a filled raw file, the same with a section of a later version, an
// empty and a filled sample list. Usage: fuzz_make_seeds CORPUS_DIR (the folder
// that holds raw_file_fuzz/ and sequence_fuzz/).
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "fileio/data_file_codec.h"

namespace {

namespace fio = vglobal::fileio;

bool Write(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::streamsize>(bytes.size()));
  return static_cast<bool>(out);
}

void Fill(fio::RawFileContents& raw) {
  raw.header.WriteDesc(L"Seed run");
  raw.header.WhoCreatedId(L"seed");
  CAuditData audit;
  audit.Time(CTime::FromNanoseconds(1700000000000000000));
  audit.WhoAuditedId(L"Ana");
  audit.Comment(L"first save");
  audit.ChangeMask(0x80000001ull);
  raw.audit.AddAudit(audit);

  CGenericDataHeader status;
  status.AddField(CGenericDataItem(GDT_FLOAT, L"Vacuum", 2, 1));
  status.AddField(CGenericDataItem(GDT_SHORT, L"Fan"));
  status.AddField(CGenericDataItem(GDT_CHAR_STRING, L"Mode", 4));
  status.AddField(CGenericDataItem(GDT_WCHAR_STRING, L"Who", 2));
  raw.data.StatusLog().SetHeader(status);
  raw.data.StatusLog().AddEntry(0.5f, nullptr);
  raw.data.StatusLog().AddEntry(1.5f, nullptr);

  CGenericDataHeader tune;
  tune.AddField(CGenericDataItem(GDT_LONG, L"Spray voltage"));
  tune.AddField(CGenericDataItem(GDT_ONOFF, L"Sheath gas"));
  raw.ms.TuneData().SetHeader(tune);
  raw.ms.TuneData().AddRecord(nullptr);

  CGenericDataHeader trailer;
  trailer.AddField(CGenericDataItem(GDT_DOUBLE, L"Injection time", 3));
  raw.ms.TrailerExtra().SetHeader(trailer);
  raw.ms.TrailerExtra().AddRecord(nullptr);
  raw.ms.TrailerExtra().AddRecord(nullptr);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s CORPUS_DIR\n", argv[0]);
    return 2;
  }
  const std::filesystem::path dir = argv[1];
  bool ok = true;
  std::vector<std::uint8_t> bytes;

  fio::RawFileContents raw;
  ok &= !fio::EncodeRawFile(raw.header, raw.audit, raw.data, raw.ms, raw.extras, bytes) &&
        Write(dir / "raw_file_fuzz" / "empty.raw", bytes);
  Fill(raw);
  ok &= !fio::EncodeRawFile(raw.header, raw.audit, raw.data, raw.ms, raw.extras, bytes) &&
        Write(dir / "raw_file_fuzz" / "filled.raw", bytes);
  raw.extras.unknown.push_back({200, 0, 0, {1, 2, 3, 4, 5, 6, 7, 8}});
  ok &= !fio::EncodeRawFile(raw.header, raw.audit, raw.data, raw.ms, raw.extras, bytes) &&
        Write(dir / "raw_file_fuzz" / "later_section.raw", bytes);

  fio::SampleListContents list;
  ok &= !fio::EncodeSampleList(list.header, list.audit, list.rows, list.extras, bytes) &&
        Write(dir / "sequence_fuzz" / "empty.sld", bytes);
  list.audit = raw.audit;
  for (int i = 0; i < 3; ++i) {
    CSeqRow row;
    row.SampleID(std::to_wstring(i).c_str());
    row.SampleName(L"Plasma");
    row.SampleType(i);
    row.Path(L"/data/");
    row.RawFileName((L"run" + std::to_wstring(i) + L".raw").c_str());
    row.InjVol(2.5);
    list.rows.push_back(row);
  }
  ok &= !fio::EncodeSampleList(list.header, list.audit, list.rows, list.extras, bytes) &&
        Write(dir / "sequence_fuzz" / "three_rows.sld", bytes);
  return ok ? 0 : 1;
}
