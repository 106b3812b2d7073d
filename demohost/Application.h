// What all sessions of the host share: the data, the record locks, the clock, each other.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "demohost/Format.h"
#include "demohost/Locks.h"
#include "demohost/Store.h"

namespace quorvel::demohost {

class HostSession;

class Application {
 public:
  using Clock = std::function<DateTime()>;

  /// Opens the data file, which is filled with the sample data if it is new or `reset` is set;
  /// ":memory:" for tests. `clock` tells the date and time that the host shows and stores.
  /// Throws StoreError.
  Application(const std::string& dataFile, Clock clock, bool reset = false);

  Store& Data() { return store_; }
  Locks& RecordLocks() { return locks_; }
  DateTime Now() const { return clock_(); }

  struct Who {
    int port;
    std::string user;  // empty before the login
    std::string doing;
  };
  std::vector<Who> WhoIsOn() const;

  /// A picture that workstations can show; empty if none has been shipped with the data.
  const std::string& PictureFile() const { return picture_; }
  void SetPictureFile(std::string name) { picture_ = std::move(name); }

  /// "demo on port 3".
  std::string NameOf(int port) const;

  /// Shows the text in a message box of every other session that is logged in; gives their count.
  int Broadcast(const HostSession& from, std::string_view text);

 private:
  friend class HostSession;  // enters and leaves the list

  Store store_;
  Locks locks_;
  Clock clock_;
  std::string picture_;
  std::vector<HostSession*> sessions_;
};

}  // namespace quorvel::demohost
