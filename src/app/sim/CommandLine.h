#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/sim/Story.h"

namespace quorvel::sim {

struct Options {
  std::uint64_t from = 1;
  std::uint64_t to = 1000;
  std::optional<Kind> kind;                      // none: all in turn
  std::optional<std::vector<std::size_t>> acts;  // none: all
  bool trace = false;
  bool goOn = false;  // past a failure
  bool help = false;
};

// Nothing if a word can't be understood.
std::optional<Options> ReadCommandLine(const std::vector<std::string>& words);
std::string UsageText(const std::string& program);

}  // namespace quorvel::sim
