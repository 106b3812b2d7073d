#include "platform/Application.h"

namespace quorvel {

std::string FileNameOf(const std::string& path) {
  const auto last = path.find_last_of("/\\");
  return last == std::string::npos ? path : path.substr(last + 1);
}

bool HoldsSeparator(const std::string& path) {
  return path.find_first_of("/\\") != std::string::npos;
}

}  // namespace quorvel
