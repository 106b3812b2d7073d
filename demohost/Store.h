// The host's files, records and accounts, kept in one SQLite file.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace quorvel::demohost {

/// A file or record that can't be had; the text is fit for the user.
class StoreError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Store {
 public:
  static constexpr std::size_t kKeyLimit = 100;         // characters, as on classic hosts
  static constexpr std::size_t kRecordLimit = 32'000;   // characters; a request carries no more
  static constexpr std::size_t kListingLimit = 10'000;  // records that one listing looks at

  /// Opens or makes the data file; ":memory:" keeps all in memory. The name is UTF-8.
  /// Throws StoreError: not a data file of this program, in use by another host, no such folder.
  explicit Store(const std::string& name);

  /// True if nothing has been put in yet.
  bool Empty();
  /// Throws away every file, record and account.
  void Clear();
  /// Becomes a copy of another store, whatever it held; there must be no transaction.
  void CopyFrom(const Store& other);

  bool HasFile(std::string_view file);
  void CreateFile(std::string_view file);
  std::vector<std::string> Files();

  /// These throw StoreError for an unknown file ("Unable to open file ...").
  std::optional<std::string> Read(std::string_view file, std::string_view key);
  /// Refuses an empty or overlong key, marks in the key, an overlong record, and a record that
  /// begins with a tilde: as a reply it could be taken for a host message.
  void Write(std::string_view file, std::string_view key, std::string_view record);
  /// True if the record was there.
  bool Delete(std::string_view file, std::string_view key);
  /// Visits the records in the order of the keys, until `visit` gives false; no more than
  /// kListingLimit of them. One is held at a time: a file can be larger than memory should hold.
  using Visit = std::function<bool(const std::string& key, const std::string& record)>;
  void ForEach(std::string_view file, const Visit& visit);
  int Count(std::string_view file);

  /// Accounts are no file: no request can read them.
  void SetPassword(std::string_view user, std::string_view password);
  bool CheckPassword(std::string_view user, std::string_view password);

  /// Changes between the two calls happen all or not at all; see Transaction.
  void Begin();
  void Commit();
  void Rollback();

 private:
  struct Closer {
    void operator()(sqlite3* db) const;
  };

  void Execute(const char* sql);
  int Number(const char* sql);
  void NeedFile(std::string_view file);

  std::unique_ptr<sqlite3, Closer> db_;
};

/// Undoes what was written since its construction, unless committed.
class Transaction {
 public:
  explicit Transaction(Store& store) : store_(store) { store_.Begin(); }
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void Commit();

 private:
  Store& store_;
  bool open_ = true;
};

}  // namespace quorvel::demohost
