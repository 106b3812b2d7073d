#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

#include "app/sim/Story.h"
#include "demohost/Application.h"

namespace quorvel::sim {

// What all stories of a process share, because it is dear to make: the sample host's data, and a
// folder. Reset makes them new.
class Workplace {
 public:
  Workplace();
  ~Workplace();
  Workplace(const Workplace&) = delete;
  Workplace& operator=(const Workplace&) = delete;

  // The blocks of memory in use, where somebody counts them.
  std::function<std::int64_t()> blocksInUse;

  // The data as seeded, and nothing in the folder but a configuration for this setting.
  void Reset(const Setting& setting);
  demohost::Application& Host() { return host_; }
  std::string Folder() const { return folder_.string(); }
  // The one that stories begin with; beside it lies that of another host.
  std::string Configuration() const { return (folder_ / "sim.inf").string(); }

 private:
  std::filesystem::path folder_;
  demohost::Application host_;
  demohost::Store pristine_;
};

// The attribute that no screen knows: it holds the key of its record, so that a record that is
// written shows whose fields it carries.
inline constexpr int kIdentity = 60;

// The other configuration, which logs in by itself, at a host and as a user of its own.
inline constexpr char kOtherConfiguration[] = "other.inf";
inline constexpr char kOtherHost[] = "other";
inline constexpr char kOtherUser[] = "second";

}  // namespace quorvel::sim
