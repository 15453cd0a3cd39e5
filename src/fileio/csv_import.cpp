// Sample lists from CSV (see csv_import.h; the accepted form is documented in
// docs/file_formats.md).
//
// Map of this file:
//   1. Columns: the names a header row may use, and the sample-type names
//   2. Records: the RFC 4180 tokenizer with line numbers and a record-length cap
//   3. Values: text, numbers (classic locale through std::from_chars), sample types
//   4. The parser: header row, then one row per record
#include "csv_import.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>

#include "vglobal/compat/unicode.h"
#include "vglobal/fileio/base_io.h"

namespace vglobal::fileio {

namespace {

// ---- 1. Columns ----

enum class Column {
  kSampleID,
  kSampleName,
  kSampleType,
  kPath,
  kRawFileName,
  kPosition,
  kInjVol,
  kLevel,
  kDilutionFactor,
  kInstMeth,
  kProcMeth,
  kComment,
  kCount
};

// Header names are compared ignoring case, spaces, '_' and '-', so "Sample ID",
// "sample_id" and "SampleID" name the same column.
struct ColumnName {
  std::string_view key;
  Column column;
};
constexpr ColumnName kColumnNames[] = {
    {"sampleid", Column::kSampleID},
    {"samplename", Column::kSampleName},
    {"sampletype", Column::kSampleType},
    {"path", Column::kPath},
    {"datafolder", Column::kPath},
    {"filename", Column::kRawFileName},
    {"rawfile", Column::kRawFileName},
    {"rawfilename", Column::kRawFileName},
    {"position", Column::kPosition},
    {"vial", Column::kPosition},
    {"injvol", Column::kInjVol},
    {"injectionvolume", Column::kInjVol},
    {"level", Column::kLevel},
    {"dilutionfactor", Column::kDilutionFactor},
    {"dilfactor", Column::kDilutionFactor},
    {"instmeth", Column::kInstMeth},
    {"instrumentmethod", Column::kInstMeth},
    {"procmeth", Column::kProcMeth},
    {"processingmethod", Column::kProcMeth},
    {"comment", Column::kComment},
};

// Sample-type names as the sample-list browser shows them, by code.
constexpr std::string_view kSampleTypeNames[] = {
    "unknown",           "blank",           "qc",     "std clear", "std update", "std bracket",
    "std bracket start", "std bracket end", "program"};

char AsciiLower(char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string HeaderKey(std::string_view name) {
  std::string key;
  for (char c : name)
    if (c != ' ' && c != '_' && c != '-' && c != '\t') key.push_back(AsciiLower(c));
  return key;
}

std::optional<Column> ColumnOf(std::string_view name) {
  const std::string key = HeaderKey(name);
  for (const ColumnName& n : kColumnNames)
    if (n.key == key) return n.column;
  return std::nullopt;
}

// ---- 2. Records ----

std::wstring Line(std::size_t line) {
  return L"line " + std::to_wstring(line);
}

std::wstring Quoted(std::string_view text) {
  constexpr std::size_t kShown = 40;
  std::wstring shown = Utf8ToWide(text.substr(0, kShown));
  return L"\"" + shown + (text.size() > kShown ? L"...\"" : L"\"");
}

struct Record {
  std::size_t line = 0;  // the line on which the record starts
  std::vector<std::string> fields;
};

class Tokenizer {
 public:
  Tokenizer(std::string_view text, char separator) : text_(text), sep_(separator) {}

  // The next record; false at the end of the text or on an error (error set).
  bool Next(Record& record, FileError& error);

 private:
  bool Fail(FileError& error, const std::wstring& what) { return FailAt(error, what, line_); }
  bool FailAt(FileError& error, const std::wstring& what, std::size_t line) {
    error = {CBaseIO::kCorrupt, Line(line) + L": " + what};
    return false;
  }
  bool TooLong(FileError& error, std::size_t recordLine) {
    return Fail(error, L"the record starting on " + Line(recordLine) + L" is longer than " +
                           std::to_wstring(kMaxCsvRecordBytes) + L" bytes");
  }
  bool AtLineEnd() const { return text_[pos_] == '\n' || text_[pos_] == '\r'; }
  void SkipLineEnd() {
    if (text_[pos_] == '\r' && pos_ + 1 < text_.size() && text_[pos_ + 1] == '\n') ++pos_;
    ++pos_;
    ++line_;
  }

  std::string_view text_;
  char sep_;
  std::size_t pos_ = 0;
  std::size_t line_ = 1;
};

bool Tokenizer::Next(Record& record, FileError& error) {
  record.fields.clear();
  record.line = line_;
  if (pos_ >= text_.size()) return false;
  const std::size_t start = pos_;
  std::string field;
  while (true) {
    // Checked at every field too: a line of separators alone makes empty fields only.
    if (pos_ - start > kMaxCsvRecordBytes) return TooLong(error, record.line);
    field.clear();
    const std::size_t column = record.fields.size() + 1;
    if (pos_ < text_.size() && text_[pos_] == '"') {
      const std::size_t opened = line_;
      ++pos_;
      while (true) {
        if (pos_ >= text_.size())
          return FailAt(error,
                        L"the quoted field of column " + std::to_wstring(column) +
                            L" is not closed before the end of the file",
                        opened);
        if (pos_ - start > kMaxCsvRecordBytes) return TooLong(error, record.line);
        const char c = text_[pos_];
        if (c == '"') {
          if (pos_ + 1 < text_.size() && text_[pos_ + 1] == '"') {
            field.push_back('"');
            pos_ += 2;
            continue;
          }
          ++pos_;
          break;
        }
        if (c == '\n') ++line_;
        field.push_back(c);
        ++pos_;
      }
      if (pos_ < text_.size() && text_[pos_] != sep_ && !AtLineEnd())
        return Fail(error, L"text after the closing quote of column " + std::to_wstring(column));
    } else {
      while (pos_ < text_.size() && text_[pos_] != sep_ && !AtLineEnd()) {
        if (pos_ - start > kMaxCsvRecordBytes) return TooLong(error, record.line);
        if (text_[pos_] == '"')
          return Fail(error, L"a quote inside the unquoted field of column " +
                                 std::to_wstring(column) + L" (quote the whole field)");
        field.push_back(text_[pos_++]);
      }
    }
    record.fields.push_back(std::move(field));
    if (pos_ >= text_.size()) return true;
    if (text_[pos_] == sep_) {
      ++pos_;
      continue;
    }
    SkipLineEnd();
    return true;
  }
}

// The separator is the first ',', ';' or tab outside quotes on the header row (lists
// saved where the decimal mark is a comma use ';'); a single column needs none.
char DetectSeparator(std::string_view text) {
  bool quoted = false;
  for (char c : text) {
    if (c == '"') quoted = !quoted;
    if (quoted) continue;
    if (c == '\n' || c == '\r') break;
    if (c == ',' || c == ';' || c == '\t') return c;
  }
  return ',';
}

// ---- 3. Values ----

// Text fields are UTF-8 without NUL characters or encoded surrogates.
bool ValidUtf8(std::string_view s) {
  return s.find('\0') == std::string_view::npos &&
         vglobal::FindInvalidUtf8(s) == std::string_view::npos;
}

std::string_view Trim(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
  return s;
}

std::optional<double> Number(std::string_view s) {
  s = Trim(s);
  if (!s.empty() && s.front() == '+') s.remove_prefix(1);
  double v = 0;
  const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), v);
  if (s.empty() || ec != std::errc() || end != s.data() + s.size() || !std::isfinite(v))
    return std::nullopt;
  return v;
}

std::optional<int> SampleType(std::string_view s) {
  s = Trim(s);
  int code = 0;
  const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), code);
  if (!s.empty() && ec == std::errc() && end == s.data() + s.size())
    return code >= SAMPLE_TYPE_UNKNOWN && code <= SAMPLE_TYPE_PROGRAM ? std::optional(code)
                                                                      : std::nullopt;
  std::string lower;
  for (char c : s) lower.push_back(AsciiLower(c));
  for (int i = 0; i < static_cast<int>(std::size(kSampleTypeNames)); ++i)
    if (kSampleTypeNames[i] == lower) return i;
  return std::nullopt;
}

// ---- 4. The parser ----

bool AllEmpty(const Record& r) {
  for (const std::string& f : r.fields)
    if (!f.empty()) return false;
  return true;
}

}  // namespace

FileError ParseSampleListCsv(std::string_view text, std::vector<CSeqRow>& rows) {
  rows.clear();
  if (text.size() > kMaxCsvBytes)
    return {CBaseIO::kTooLarge,
            L"the file is larger than " + std::to_wstring(kMaxCsvBytes) + L" bytes"};
  if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);

  Tokenizer tokens(text, DetectSeparator(text));
  Record record;
  FileError error;

  // Header row: no known column twice, the raw file's name among them. Columns this
  // list does not know (a barcode, a vial rack...) are common in lab exports: they are
  // passed over rather than refused, so a sample list imports as it was exported.
  if (!tokens.Next(record, error))
    return error ? error : FileError{CBaseIO::kCorrupt, L"line 1: no header row"};
  const std::size_t headerLine = record.line;
  std::vector<Column> columns;
  std::array<bool, static_cast<std::size_t>(Column::kCount)> seen{};
  for (std::size_t i = 0; i < record.fields.size(); ++i) {
    const std::string& name = record.fields[i];
    const std::optional<Column> column = ColumnOf(name);
    if (!column) {
      columns.push_back(Column::kCount);  // read past, not stored
      continue;
    }
    auto& already = seen[static_cast<std::size_t>(*column)];
    if (already)
      return {CBaseIO::kCorrupt,
              Line(headerLine) + L": column " + Quoted(name) + L" appears twice"};
    already = true;
    columns.push_back(*column);
  }
  if (!seen[static_cast<std::size_t>(Column::kRawFileName)])
    return {CBaseIO::kCorrupt, Line(headerLine) + L": the header row has no \"File Name\" column"};

  while (tokens.Next(record, error)) {
    if (AllEmpty(record)) continue;
    const std::wstring at = Line(record.line);
    if (record.fields.size() != columns.size())
      return {CBaseIO::kCorrupt, at + L": " + std::to_wstring(record.fields.size()) +
                                     L" fields, but the header row names " +
                                     std::to_wstring(columns.size()) + L" columns"};
    if (rows.size() >= static_cast<std::size_t>(CSequence::kMaxRows))
      return {CBaseIO::kTooLarge,
              at + L": more than " + std::to_wstring(CSequence::kMaxRows) + L" rows"};
    CSeqRow row;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const std::string& value = record.fields[i];
      const std::wstring where = at + L", column " + std::to_wstring(i + 1);
      if (!ValidUtf8(value)) return {CBaseIO::kCorrupt, where + L": the text is not valid UTF-8"};
      const std::wstring wide = Utf8ToWide(value);
      if (wide.size() > static_cast<std::size_t>(CSeqRow::kMaxTextLength))
        return {CBaseIO::kCorrupt, where + L": the text is longer than " +
                                       std::to_wstring(CSeqRow::kMaxTextLength) + L" characters"};
      switch (columns[i]) {
        case Column::kSampleID:
          row.SampleID(wide.c_str());
          break;
        case Column::kSampleName:
          row.SampleName(wide.c_str());
          break;
        case Column::kPath:
          row.Path(wide.c_str());
          break;
        case Column::kRawFileName:
          row.RawFileName(wide.c_str());
          break;
        case Column::kPosition:
          row.Position(wide.c_str());
          break;
        case Column::kLevel:
          row.Level(wide.c_str());
          break;
        case Column::kInstMeth:
          row.InstMeth(wide.c_str());
          break;
        case Column::kProcMeth:
          row.ProcMeth(wide.c_str());
          break;
        case Column::kComment:
          row.Comment(wide.c_str());
          break;
        case Column::kSampleType: {
          if (Trim(value).empty()) break;
          const std::optional<int> type = SampleType(value);
          if (!type)
            return {CBaseIO::kCorrupt, where + L": " + Quoted(value) +
                                           L" is not a sample type (0 to 8, or a name such as "
                                           L"\"Blank\" or \"Std Bracket\")"};
          row.SampleType(*type);
          break;
        }
        case Column::kInjVol:
        case Column::kDilutionFactor: {
          if (Trim(value).empty()) break;
          const std::optional<double> v = Number(value);
          const bool dilution = columns[i] == Column::kDilutionFactor;
          if (!v)
            return {CBaseIO::kCorrupt, where + L": " + Quoted(value) +
                                           L" is not a number (use a '.' as decimal mark)"};
          if (dilution ? !(*v > 0) : *v < 0)
            return {CBaseIO::kCorrupt,
                    where + L": " + Quoted(value) +
                        (dilution ? L" is not a valid dilution factor (greater than 0)"
                                  : L" is not a valid injection volume (0 or more)")};
          if (dilution)
            row.DilutionFactor(*v);
          else
            row.InjVol(*v);
          break;
        }
        case Column::kCount:
          break;
      }
    }
    rows.push_back(std::move(row));
  }
  return error;
}

}  // namespace vglobal::fileio
