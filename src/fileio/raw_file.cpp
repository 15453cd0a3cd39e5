// CRawfile: opening and saving a raw file (format in docs/file_formats.md).
#include "vglobal/fileio/raw_file.h"

#include "data_file_codec.h"
#include "data_file_io.h"

CRawfile::CRawfile(const wchar_t* path, int mode)
    : m_extras(std::make_unique<vglobal::fileio::ContainerExtras>()) {
  m_path = path ? path : L"";
  Load(path, mode);
}

CRawfile::~CRawfile() = default;

void CRawfile::Load(const wchar_t* path, int mode) {
  auto contents = std::make_unique<vglobal::fileio::RawFileContents>();
  if (!OpenDataFile(path, mode, L"raw file", [&](vglobal::fileio::Source& source) {
        return DecodeRawFile(source, *contents);
      })) {
    return;
  }
  m_header = std::move(contents->header);
  m_audit = std::move(contents->audit);
  m_data = std::move(contents->data);
  m_ms = std::move(contents->ms);
  *m_extras = std::move(contents->extras);
}

BOOL CRawfile::Save() {
  return SaveDataFile(m_header, [&](std::vector<std::uint8_t>& bytes) {
    return vglobal::fileio::EncodeRawFile(m_header, m_audit, m_data, m_ms, *m_extras, bytes);
  });
}
