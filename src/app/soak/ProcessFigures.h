#pragma once

#include <optional>
#include <vector>

namespace quorvel {

// Something of this process that must not grow; no value where it can't be measured.
struct Figure {
  const char* name;
  std::optional<long long> value;
};

// Resident memory and heap in use (KiB), open handles. Measured on Linux; elsewhere without values.
// Under AddressSanitizer the heap is what its allocator has handed out, and the resident memory has
// no value: the sanitizer keeps freed memory back to find its misuse.
std::vector<Figure> ProcessFigures();

}  // namespace quorvel
