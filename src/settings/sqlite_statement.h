// Small owners of SQLite objects. A Statement is prepared once per connection; a
// Query is one use of it and resets it when it goes out of scope, so that no
// statement keeps a read transaction open once its result has been read.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

namespace vglobal::settings {

class Statement {
 public:
  Statement() = default;
  ~Statement() { sqlite3_finalize(stmt_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  // Returns the SQLite result code.
  int Prepare(sqlite3* db, std::string_view sql) {
    sqlite3_finalize(stmt_);
    stmt_ = nullptr;
    return sqlite3_prepare_v3(db, sql.data(), static_cast<int>(sql.size()),
                              SQLITE_PREPARE_PERSISTENT, &stmt_, nullptr);
  }
  void Finalize() {
    sqlite3_finalize(stmt_);
    stmt_ = nullptr;
  }
  sqlite3_stmt* get() const { return stmt_; }

 private:
  sqlite3_stmt* stmt_ = nullptr;
};

class Query {
 public:
  explicit Query(const Statement& statement) : stmt_(statement.get()) {}
  ~Query() {
    sqlite3_reset(stmt_);
    sqlite3_clear_bindings(stmt_);
  }
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  Query& Bind(int index, std::int64_t value) {
    sqlite3_bind_int64(stmt_, index, value);
    return *this;
  }
  Query& Bind(int index, std::string_view text) {
    // A zero-length text still needs a non-null pointer, or SQLite binds NULL.
    sqlite3_bind_text64(stmt_, index, text.empty() ? "" : text.data(), text.size(),
                        SQLITE_TRANSIENT, SQLITE_UTF8);
    return *this;
  }
  Query& BindBlob(int index, std::span<const std::uint8_t> bytes) {
    if (bytes.empty()) {
      sqlite3_bind_zeroblob(stmt_, index, 0);
    } else {
      sqlite3_bind_blob64(stmt_, index, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
    }
    return *this;
  }

  // SQLITE_ROW, SQLITE_DONE or an error code.
  int Step() { return sqlite3_step(stmt_); }
  // Ends the statement early, so that it no longer holds the read transaction open.
  void Reset() { sqlite3_reset(stmt_); }

  int Type(int column) const { return sqlite3_column_type(stmt_, column); }
  std::int64_t Int(int column) const { return sqlite3_column_int64(stmt_, column); }
  std::string_view Text(int column) const {
    const auto* p = reinterpret_cast<const char*>(sqlite3_column_text(stmt_, column));
    const int n = sqlite3_column_bytes(stmt_, column);
    return p ? std::string_view(p, static_cast<std::size_t>(n)) : std::string_view();
  }
  std::span<const std::uint8_t> Blob(int column) const {
    const auto* p = static_cast<const std::uint8_t*>(sqlite3_column_blob(stmt_, column));
    const int n = sqlite3_column_bytes(stmt_, column);
    return p ? std::span<const std::uint8_t>(p, static_cast<std::size_t>(n))
             : std::span<const std::uint8_t>();
  }

 private:
  sqlite3_stmt* stmt_;
};

}  // namespace vglobal::settings
