#include "app/soak/ProcessFigures.h"

#if defined(__linux__)
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <malloc.h>
#endif
#if defined(__SANITIZE_ADDRESS__)
#define QUORVEL_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QUORVEL_ADDRESS_SANITIZER 1
#endif
#endif
#if defined(QUORVEL_ADDRESS_SANITIZER)
#include <cstddef>

// From the sanitizers' allocator interface, whose header not every compiler package has.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace quorvel {
namespace {

using Value = std::optional<long long>;

#if defined(QUORVEL_ADDRESS_SANITIZER)
Value ResidentKiB() {
  return {};
}
Value HeapKiB() {
  return static_cast<long long>(__sanitizer_get_current_allocated_bytes() / 1024);
}
#elif defined(__linux__)
// The line "VmRSS: NUMBER kB" (proc(5)).
Value ResidentKiB() {
  std::ifstream file("/proc/self/status");
  for (std::string word; file >> word;) {
    long long kibibytes = 0;
    if (word == "VmRSS:" && file >> kibibytes) return kibibytes;
  }
  return {};
}
// Blocks in use of all arenas, and what was mapped for large ones (mallinfo(3)).
Value HeapKiB() {
  const auto info = mallinfo2();
  return static_cast<long long>((info.uordblks + info.hblkhd) / 1024);
}
#else
Value ResidentKiB() {
  return {};
}
Value HeapKiB() {
  return {};
}
#endif

#if defined(__linux__)
Value Handles() {
  std::error_code failed;
  const std::filesystem::directory_iterator all("/proc/self/fd", failed);
  if (failed) return {};
  return std::distance(begin(all), end(all)) - 1;  // without the one that reads the folder
}
#else
Value Handles() {
  return {};
}
#endif

}  // namespace

std::vector<Figure> ProcessFigures() {
  return {{"resident KiB", ResidentKiB()}, {"heap KiB", HeapKiB()}, {"handles", Handles()}};
}

}  // namespace quorvel
