#include "demohost/Store.h"

#include <sqlite3.h>

#include "demohost/Marks.h"

namespace quorvel::demohost {
namespace {

// Marks the file as ours (SQLite's application_id), so that no other database is ever cleared.
constexpr int kApplicationId = 0x51564831;
constexpr int kLayoutVersion = 2;
// 65,536 pages of 4 KiB are 256 MiB: a client that writes without end fills this and not the disk.
constexpr const char* kPageLimit = "PRAGMA max_page_count = 65536";

// Keys that end in a number sort by it: the shorter first.
constexpr const char* kOrder = " ORDER BY length(key), key";

class Statement {
 public:
  Statement(sqlite3* db, const std::string& sql) : db_(db) {
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &handle_, nullptr) != SQLITE_OK) Fail();
  }
  ~Statement() { sqlite3_finalize(handle_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  Statement& Bind(int place, std::string_view text) {
    // A null pointer would bind NULL in place of the empty text.
    const char* data = text.empty() ? "" : text.data();
    if (sqlite3_bind_blob64(handle_, place, data, text.size(), SQLITE_TRANSIENT) != SQLITE_OK)
      Fail();
    return *this;
  }
  bool Step() {
    const int result = sqlite3_step(handle_);
    if (result != SQLITE_ROW && result != SQLITE_DONE) Fail();
    return result == SQLITE_ROW;
  }
  std::string Text(int column) {
    const auto* data = static_cast<const char*>(sqlite3_column_blob(handle_, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(handle_, column));
    return data == nullptr ? std::string() : std::string(data, size);
  }
  int Number(int column) { return sqlite3_column_int(handle_, column); }

 private:
  [[noreturn]] void Fail() const { throw StoreError(sqlite3_errmsg(db_)); }

  sqlite3* db_;
  sqlite3_stmt* handle_ = nullptr;
};

void CheckRecord(std::string_view key, std::string_view record) {
  if (key.empty()) throw StoreError("A record needs a key");
  if (key.size() > Store::kKeyLimit) throw StoreError("The key is too long");
  for (const char c : key) {
    const auto code = static_cast<unsigned char>(c);
    if (code < 32 || code == 127 || code >= 250)
      throw StoreError("The key holds a character that can't be in a key");
  }
  if (record.size() > Store::kRecordLimit) throw StoreError("The record is too long");
  if (record.starts_with('~')) throw StoreError("A record can't begin with a tilde");
}

}  // namespace

void Store::Closer::operator()(sqlite3* db) const {
  sqlite3_close_v2(db);
}

Store::Store(const std::string& name) {
  sqlite3* db = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  const int result = sqlite3_open_v2(name.c_str(), &db, flags, nullptr);
  db_.reset(db);
  if (result != SQLITE_OK) throw StoreError(name + ": " + sqlite3_errstr(result));
  try {
    // The record locks live in this process, so a second host on the same file is kept out.
    Execute("PRAGMA locking_mode = EXCLUSIVE");
    const int id = Number("PRAGMA application_id");
    const bool fresh = id == 0 && Number("SELECT count(*) FROM sqlite_master") == 0;
    if (!fresh && id != kApplicationId) throw StoreError("not a data file of the sample host");
    if (!fresh && Number("PRAGMA user_version") != kLayoutVersion)
      throw StoreError("made by another version of the sample host; delete it for a new one");
    Execute(kPageLimit);
    Execute("BEGIN IMMEDIATE");
    Execute(
        "CREATE TABLE IF NOT EXISTS file (name BLOB PRIMARY KEY) WITHOUT ROWID;"
        "CREATE TABLE IF NOT EXISTS record (file BLOB, key BLOB, body BLOB,"
        " PRIMARY KEY (file, key)) WITHOUT ROWID;"
        "CREATE TABLE IF NOT EXISTS account (user BLOB PRIMARY KEY, password BLOB) WITHOUT ROWID");
    Execute(("PRAGMA application_id = " + std::to_string(kApplicationId)).c_str());
    Execute(("PRAGMA user_version = " + std::to_string(kLayoutVersion)).c_str());
    Execute("COMMIT");
  } catch (const StoreError& error) {
    throw StoreError(name + ": " + error.what());
  }
}

bool Store::Empty() {
  return Number("SELECT count(*) FROM file") == 0;
}

void Store::Clear() {
  Execute("DELETE FROM record; DELETE FROM file; DELETE FROM account");
}

void Store::CopyFrom(const Store& other) {
  sqlite3_backup* copy = sqlite3_backup_init(db_.get(), "main", other.db_.get(), "main");
  if (copy == nullptr) throw StoreError(sqlite3_errmsg(db_.get()));
  constexpr int kAllPages = -1;
  const int result = sqlite3_backup_step(copy, kAllPages);
  sqlite3_backup_finish(copy);
  if (result != SQLITE_DONE) throw StoreError(sqlite3_errstr(result));
}

bool Store::HasFile(std::string_view file) {
  return Statement(db_.get(), "SELECT 1 FROM file WHERE name = ?").Bind(1, file).Step();
}

void Store::CreateFile(std::string_view file) {
  Statement(db_.get(), "INSERT OR IGNORE INTO file VALUES (?)").Bind(1, file).Step();
}

std::vector<std::string> Store::Files() {
  std::vector<std::string> files;
  Statement rows(db_.get(), "SELECT name FROM file ORDER BY name");
  while (rows.Step()) files.push_back(rows.Text(0));
  return files;
}

std::optional<std::string> Store::Read(std::string_view file, std::string_view key) {
  NeedFile(file);
  Statement row(db_.get(), "SELECT body FROM record WHERE file = ? AND key = ?");
  if (!row.Bind(1, file).Bind(2, key).Step()) return std::nullopt;
  return row.Text(0);
}

void Store::Write(std::string_view file, std::string_view key, std::string_view record) {
  NeedFile(file);
  CheckRecord(key, record);
  Statement(db_.get(), "INSERT OR REPLACE INTO record VALUES (?, ?, ?)")
      .Bind(1, file)
      .Bind(2, key)
      .Bind(3, record)
      .Step();
}

bool Store::Delete(std::string_view file, std::string_view key) {
  NeedFile(file);
  Statement(db_.get(), "DELETE FROM record WHERE file = ? AND key = ?")
      .Bind(1, file)
      .Bind(2, key)
      .Step();
  return sqlite3_changes(db_.get()) > 0;
}

void Store::ForEach(std::string_view file, const Visit& visit) {
  NeedFile(file);
  Statement rows(db_.get(), std::string("SELECT key, body FROM record WHERE file = ?") + kOrder +
                                " LIMIT " + std::to_string(kListingLimit));
  rows.Bind(1, file);
  while (rows.Step() && visit(rows.Text(0), rows.Text(1))) {
  }
}

int Store::Count(std::string_view file) {
  NeedFile(file);
  Statement row(db_.get(), "SELECT count(*) FROM record WHERE file = ?");
  row.Bind(1, file).Step();
  return row.Number(0);
}

void Store::SetPassword(std::string_view user, std::string_view password) {
  Statement(db_.get(), "INSERT OR REPLACE INTO account VALUES (?, ?)")
      .Bind(1, user)
      .Bind(2, password)
      .Step();
}

bool Store::CheckPassword(std::string_view user, std::string_view password) {
  Statement row(db_.get(), "SELECT 1 FROM account WHERE user = ? AND password = ?");
  return row.Bind(1, user).Bind(2, password).Step();
}

void Store::Begin() {
  Execute("BEGIN IMMEDIATE");
}
void Store::Commit() {
  Execute("COMMIT");
}
void Store::Rollback() {
  Execute("ROLLBACK");
}

void Store::Execute(const char* sql) {
  if (sqlite3_exec(db_.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK)
    throw StoreError(sqlite3_errmsg(db_.get()));
}

int Store::Number(const char* sql) {
  Statement row(db_.get(), sql);
  return row.Step() ? row.Number(0) : 0;
}

void Store::NeedFile(std::string_view file) {
  // The client's screens look for these first words.
  if (!HasFile(file)) throw StoreError("Unable to open file " + std::string(file.substr(0, 60)));
}

Transaction::~Transaction() {
  if (!open_) return;
  try {
    store_.Rollback();
  } catch (const StoreError&) {  // SQLite has rolled back by itself, a full disk for instance
  }
}

void Transaction::Commit() {
  store_.Commit();
  open_ = false;
}

}  // namespace quorvel::demohost
