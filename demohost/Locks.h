// Record locks between the sessions of one host.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvel::demohost {

class Locks {
 public:
  /// A session holds one for a screen and a few in programs; the limit stops a client that only
  /// takes.
  static constexpr std::size_t kPerSession = 1'000;

  struct Lock {
    std::string file, key;
    int session;
  };

  enum class Outcome { Taken, Already, Refused };
  /// Taken, or held by this session already, or refused: another session holds it, or this one
  /// holds kPerSession.
  Outcome Take(int session, std::string_view file, std::string_view key);
  /// Does nothing if the session does not hold it.
  void Release(int session, std::string_view file, std::string_view key);
  void ReleaseAll(int session);
  /// The session that holds the record.
  std::optional<int> Holder(std::string_view file, std::string_view key) const;
  /// True if a session other than this one holds the record.
  bool HeldByOther(int session, std::string_view file, std::string_view key) const;
  std::vector<Lock> List() const;

 private:
  using Place = std::pair<std::string, std::string>;
  std::map<Place, int> locks_;
  std::map<int, std::size_t> counts_;
};

/// A lock that a host program holds while it works on a record.
class RecordLock {
 public:
  RecordLock() = default;
  ~RecordLock() { Free(); }
  RecordLock(const RecordLock&) = delete;
  RecordLock& operator=(const RecordLock&) = delete;

  /// Gives up the record held before. False if the new one can't be had.
  bool Take(Locks& locks, int session, std::string_view file, std::string_view key);
  void Free();

 private:
  Locks* locks_ = nullptr;
  int session_ = 0;
  std::string file_, key_;
};

}  // namespace quorvel::demohost
