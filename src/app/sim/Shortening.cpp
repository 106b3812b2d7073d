#include "app/sim/Shortening.h"

#include <algorithm>

namespace quorvel::sim {
namespace {

std::vector<std::size_t> Without(const std::vector<std::size_t>& kept, std::size_t from,
                                 std::size_t count) {
  std::vector<std::size_t> rest = kept;
  const auto first = rest.begin() + static_cast<std::ptrdiff_t>(from);
  const auto last = first + static_cast<std::ptrdiff_t>(std::min(count, rest.size() - from));
  rest.erase(first, last);
  return rest;
}

}  // namespace

Story Shorten(const Story& story, const std::function<bool(const Story&)>& fails, int most) {
  Story shortest = story;
  std::size_t size = std::max<std::size_t>(1, shortest.kept.size() / 2);
  while (!shortest.kept.empty()) {
    bool shorter = false;
    for (std::size_t from = 0; from < shortest.kept.size();) {
      if (--most < 0) return shortest;
      const Story part = Part(shortest, Without(shortest.kept, from, size));
      if (fails(part)) {
        shortest = part;
        shorter = true;
      } else {
        from += size;
      }
    }
    if (size > 1) {
      size = (size + 1) / 2;
    } else if (!shorter) {
      return shortest;
    }
  }
  return shortest;
}

}  // namespace quorvel::sim
