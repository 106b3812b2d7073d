#pragma once

#include <functional>
#include <string>
#include <vector>

#include "link/SessionState.h"

namespace quorvel {

// One key of the configuration file: where it stands, what it is without being there, how its text
// becomes a field and the field its text.
struct ConfigurationKey {
  std::string section;
  std::string key;
  std::string byDefault;
  // RuntimeError 13 or 6 when the text does not convert.
  std::function<void(SessionState&, const std::string& text)> read;
  // Empty for keys that change by editing the file only, or are written by a window of their own.
  std::function<std::string(const SessionState&)> write;
};

// Every key, in the order of reading and writing.
const std::vector<ConfigurationKey>& ConfigurationKeys();

}  // namespace quorvel
