// The engine behind every settings section of the default processing method.
//
// A section is data: a table of entries in the order the values are written and read,
// each naming the value, its type, how it is taken from or put into the record, and
// the condition under which it is written. Most entries are a record field stored
// under its own name and read back alike (Section::Value, from the field's descriptor,
// vglobal/fileio/field.h). Where the stored layout differs between the directions, the
// table holds a write-only entry and a read-only entry instead, spelt out: those are
// the layout's quirks, and a reviewer sees each of them. One writer and one reader run
// every table.
//
// Map of this file:
//   1. Entries: WriteEntry / ReadEntry / Entry, the factories that build them, Join
//   2. Running a table: WriteValues / ReadValues, on an open key or a path
//   3. Lists: the count value and the numbered sub-keys
//
// Writers open their key with create = 1 and ignore write results; readers open with
// create = 0, apply every value they find, never write, and return 1 only when every
// value they looked for was present.
#pragma once

#include <array>
#include <climits>
#include <cmath>
#include <cstddef>
#include <exception>
#include <optional>
#include <span>
#include <type_traits>
#include <utility>

#include "vglobal/compat/cstring.h"
#include "vglobal/fileio/field.h"
#include "vglobal/settings.h"
#include "vglobal/settings_store.h"

namespace vglobal::methoddefaults {

// ---- 1. Entries ----

enum class ValueType { Int, Double, String };

template <typename Record>
struct WriteEntry {
  const wchar_t* name;
  ValueType type;
  int (*getInt)(const Record&);
  double (*getDouble)(const Record&);
  CString (*getString)(const Record&);
  bool (*when)(const Record&);  // null: always written
};

template <typename Record>
struct ReadEntry {
  enum class Kind {
    Int,            // ReadInt into an int setter
    Double,         // ReadDouble into a double setter
    String,         // ReadStr into a string setter
    DoubleAsInt,    // ReadDouble, truncated toward zero into an int setter
    CheckedString,  // ReadStr into a setter that may refuse the text
    CheckedInt,     // ReadInt into a setter that may refuse the number
    Action,         // no value is read: a fixed change of the record
  };
  const wchar_t* name;  // null for Action
  Kind kind;
  void (*setInt)(Record&, int);
  void (*setDouble)(Record&, double);
  void (*setString)(Record&, const CString&);
  void (*action)(Record&);
  int (*setCheckedString)(Record&, const CString&);
  int (*setCheckedInt)(Record&, int);
};

// The int stored for a double field kept as a whole number: truncated toward zero; a
// value beyond the int range is stored as the nearest int and NaN as 0, so that no
// value of the field makes the conversion undefined.
inline int TruncateForStore(double value) {
  if (std::isnan(value)) return 0;
  if (value <= static_cast<double>(INT_MIN)) return INT_MIN;
  if (value >= static_cast<double>(INT_MAX)) return INT_MAX;
  return static_cast<int>(value);
}

// A table row: a value written and read alike, or a write-only or read-only entry.
template <typename Record>
struct Entry {
  enum class Direction { Both, WriteOnly, ReadOnly };
  WriteEntry<Record> write{};
  ReadEntry<Record> read{};
  Direction direction = Direction::Both;

  constexpr Entry(const WriteEntry<Record>& w) : write(w), direction(Direction::WriteOnly) {}
  constexpr Entry(const ReadEntry<Record>& r) : read(r), direction(Direction::ReadOnly) {}
  constexpr Entry(const WriteEntry<Record>& w, const ReadEntry<Record>& r) : write(w), read(r) {}

  bool Writes() const { return direction != Direction::ReadOnly; }
  bool Reads() const { return direction != Direction::WriteOnly; }
};

// Factories, used as  using S = Section<CComponentIO>;  S::Int(L"Name", getter, when).
// Lambdas without captures convert to the function pointers.
template <typename Record>
struct Section {
  using Write = WriteEntry<Record>;
  using Read = ReadEntry<Record>;
  using Entry = methoddefaults::Entry<Record>;
  using When = bool (*)(const Record&);

  // A record field, named by its descriptor (&R::Fields::SNThreshold), stored under
  // `name` (its own name when null) with the field's type: a text, a double, or an int
  // for whole numbers and enumerations. Written while `when` holds (always when null),
  // read back unconditionally.
  template <auto descriptor>
  static constexpr Entry Value(const wchar_t* name, When when = nullptr) {
    using T = typename decltype(descriptor())::Value;
    if (!name) name = descriptor().wideName;
    if constexpr (std::is_same_v<T, CString>) {
      return {String(
                  name, [](const Record& r) { return descriptor().get(r); }, when),
              ReadString(name, [](Record& r, const CString& v) { descriptor().set(r, v); })};
    } else if constexpr (std::is_floating_point_v<T>) {
      return {Double(
                  name, [](const Record& r) { return descriptor().get(r); }, when),
              ReadDouble(name, [](Record& r, double v) { descriptor().set(r, v); })};
    } else {
      static_assert(std::is_integral_v<T> || std::is_enum_v<T>, "no stored form for this type");
      return {
          Int(
              name, [](const Record& r) { return static_cast<int>(descriptor().get(r)); }, when),
          ReadInt(name, [](Record& r, int v) { descriptor().set(r, static_cast<T>(v)); })};
    }
  }
  template <auto descriptor>
  static constexpr Entry Value(When when = nullptr) {
    return Value<descriptor>(nullptr, when);
  }
  // A double field that holds a whole number (a count of points), stored as an int:
  // truncated when written (TruncateForStore), widened when read.
  template <auto descriptor>
  static constexpr Entry WholeValue(When when = nullptr) {
    const wchar_t* name = descriptor().wideName;
    return {Int(
                name, [](const Record& r) { return TruncateForStore(descriptor().get(r)); }, when),
            ReadInt(name, [](Record& r, int v) { descriptor().set(r, v); })};
  }

  static constexpr Write Int(const wchar_t* name, int (*get)(const Record&), When when = nullptr) {
    return {name, ValueType::Int, get, nullptr, nullptr, when};
  }
  static constexpr Write Double(const wchar_t* name, double (*get)(const Record&),
                                When when = nullptr) {
    return {name, ValueType::Double, nullptr, get, nullptr, when};
  }
  static constexpr Write String(const wchar_t* name, CString (*get)(const Record&),
                                When when = nullptr) {
    return {name, ValueType::String, nullptr, nullptr, get, when};
  }

  static constexpr Read ReadInt(const wchar_t* name, void (*set)(Record&, int)) {
    return {name, Read::Kind::Int, set, nullptr, nullptr, nullptr, nullptr, nullptr};
  }
  static constexpr Read ReadDouble(const wchar_t* name, void (*set)(Record&, double)) {
    return {name, Read::Kind::Double, nullptr, set, nullptr, nullptr, nullptr, nullptr};
  }
  static constexpr Read ReadString(const wchar_t* name, void (*set)(Record&, const CString&)) {
    return {name, Read::Kind::String, nullptr, nullptr, set, nullptr, nullptr, nullptr};
  }
  // A string for a field that holds only some texts (a fixed-size field, say). The
  // setter returns 0 to refuse the text, which leaves the field as it was; a refused
  // value counts as missing, so the section reads as incomplete rather than taking a
  // mangled value silently.
  static constexpr Read ReadCheckedString(const wchar_t* name,
                                          int (*set)(Record&, const CString&)) {
    return {name, Read::Kind::CheckedString, nullptr, nullptr, nullptr, nullptr, set, nullptr};
  }
  // An int for a field that accepts only some numbers (an index into a short table,
  // say). The setter returns 0 to refuse the number, which leaves the field as it was;
  // a refused value counts as missing.
  static constexpr Read ReadCheckedInt(const wchar_t* name, int (*set)(Record&, int)) {
    return {name, Read::Kind::CheckedInt, nullptr, nullptr, nullptr, nullptr, nullptr, set};
  }
  // A double stored for an int field: truncated toward zero. A stored value that no
  // int can hold (NaN, infinite, out of range) counts as missing.
  static constexpr Read ReadDoubleAsInt(const wchar_t* name, void (*set)(Record&, int)) {
    return {name, Read::Kind::DoubleAsInt, set, nullptr, nullptr, nullptr, nullptr, nullptr};
  }
  // A fixed change made at this point of the reading order; it reads nothing and
  // does not affect completeness.
  static constexpr Read Do(void (*action)(Record&)) {
    return {nullptr, Read::Kind::Action, nullptr, nullptr, nullptr, action, nullptr, nullptr};
  }
};

// One table from several, in order: a section whose runs of entries include a group
// that other sections store alike (the Kiva integrator's values, the traces) joins its
// own runs and the group's.
template <typename Record, std::size_t N, std::size_t M, typename... Rest>
constexpr auto Join(const std::array<Entry<Record>, N>& first,
                    const std::array<Entry<Record>, M>& second, const Rest&... rest) {
  const auto joined = [&]<std::size_t... I, std::size_t... J>(std::index_sequence<I...>,
                                                              std::index_sequence<J...>) {
    return std::array<Entry<Record>, N + M>{first[I]..., second[J]...};
  }
  (std::make_index_sequence<N>(), std::make_index_sequence<M>());
  if constexpr (sizeof...(Rest) == 0)
    return joined;
  else
    return Join(joined, rest...);
}

// Truncation toward zero of a stored double, or nullopt when no int can hold it.
inline std::optional<int> TruncateToInt(double value) {
  if (!std::isfinite(value)) return std::nullopt;
  double t = std::trunc(value);
  if (t < static_cast<double>(INT_MIN) || t > static_cast<double>(INT_MAX)) return std::nullopt;
  return static_cast<int>(t);
}

// ---- 2. Running a table ----

// The scope of a writer of the user's defaults: everything written while it lives is
// one transaction of the user's store, kept when the outermost scope ends, so that a
// save interrupted at any moment (a crash, a killed program) leaves the defaults as
// they were before it or as they are after it, never half. Scopes nest: the whole
// component's writer and the page writers it calls make one transaction. An exception
// leaving the scope abandons the transaction.
class WriteScope {
 public:
  WriteScope() : transaction_(HKEY_CURRENT_USER), exceptions_(std::uncaught_exceptions()) {}
  ~WriteScope() {
    if (std::uncaught_exceptions() == exceptions_) transaction_.Commit();
  }
  WriteScope(const WriteScope&) = delete;
  WriteScope& operator=(const WriteScope&) = delete;

 private:
  SettingsTransaction transaction_;
  int exceptions_;
};

// Writes the entries that write and whose condition holds, in table order, into an
// open key.
template <typename Record>
void WriteValues(CVRegKey& key, const Record& record, std::span<const Entry<Record>> table) {
  for (const Entry<Record>& entry : table) {
    if (!entry.Writes()) continue;
    const WriteEntry<Record>& e = entry.write;
    if (e.when && !e.when(record)) continue;
    switch (e.type) {
      case ValueType::Int:
        key.WriteInt(e.name, e.getInt(record));
        break;
      case ValueType::Double:
        key.WriteDouble(e.name, e.getDouble(record));
        break;
      case ValueType::String:
        key.WriteStr(e.name, e.getString(record).GetString());
        break;
    }
  }
}

// Opens `path` below the current user's root for writing, then writes the entries.
template <typename Record>
void WriteValues(const wchar_t* path, const Record& record, std::span<const Entry<Record>> table) {
  CVRegKey key(HKEY_CURRENT_USER, path, 1, 1);
  WriteValues(key, record, table);
}

// Reads every entry that reads, in table order, from an open key, applying what it
// finds.
// Returns 1 when every value was present (actions do not count), else 0.
template <typename Record>
int ReadValues(CVRegKey& key, Record& record, std::span<const Entry<Record>> table) {
  using Kind = typename ReadEntry<Record>::Kind;
  int complete = 1;
  for (const Entry<Record>& entry : table) {
    if (!entry.Reads()) continue;
    const ReadEntry<Record>& e = entry.read;
    switch (e.kind) {
      case Kind::Int: {
        int v = 0;
        if (key.ReadInt(e.name, &v))
          e.setInt(record, v);
        else
          complete = 0;
        break;
      }
      case Kind::Double: {
        double v = 0;
        if (key.ReadDouble(e.name, &v))
          e.setDouble(record, v);
        else
          complete = 0;
        break;
      }
      case Kind::String: {
        CString v;
        if (key.ReadStr(e.name, v))
          e.setString(record, v);
        else
          complete = 0;
        break;
      }
      case Kind::DoubleAsInt: {
        double v = 0;
        std::optional<int> truncated;
        if (key.ReadDouble(e.name, &v)) truncated = TruncateToInt(v);
        if (truncated)
          e.setInt(record, *truncated);
        else
          complete = 0;
        break;
      }
      case Kind::CheckedString: {
        CString v;
        if (!key.ReadStr(e.name, v) || !e.setCheckedString(record, v)) complete = 0;
        break;
      }
      case Kind::CheckedInt: {
        int v = 0;
        if (!key.ReadInt(e.name, &v) || !e.setCheckedInt(record, v)) complete = 0;
        break;
      }
      case Kind::Action:
        e.action(record);
        break;
    }
  }
  return complete;
}

// Opens `path` below the current user's root for reading (nothing is created), then
// reads the entries. A missing key fails every value but still runs the actions.
template <typename Record>
int ReadValues(const wchar_t* path, Record& record, std::span<const Entry<Record>> table) {
  CVRegKey key(HKEY_CURRENT_USER, path, 0, 0);
  return ReadValues(key, record, table);
}

// ---- 3. Lists ----

// The most elements a reader will make room for. Far above any real list; a stored
// count beyond it is treated as a missing value rather than trusted.
constexpr int kMaxListLength = 100000;

// Reads a list's count. nullopt when it is missing or larger than kMaxListLength;
// a count of zero or less gives an empty list.
inline std::optional<int> ReadListCount(CVRegKey& key, const wchar_t* name) {
  int count = 0;
  if (!key.ReadInt(name, &count)) return std::nullopt;
  if (count > kMaxListLength) return std::nullopt;
  return count < 0 ? 0 : count;
}

// The name of a list element's sub-key, from a format such as L"Level[%d]" or
// L"Row %d".
inline CString ElementKeyName(const wchar_t* format, int index) {
  CString name;
  name.Format(format, index);
  return name;
}

}  // namespace vglobal::methoddefaults
