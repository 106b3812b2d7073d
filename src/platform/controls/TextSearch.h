#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace quorvel {

// Finds a text in others, letters of either case being equal (bytes are Windows-1252). By
// Horspool's method: long texts are passed over in steps of up to the length of what is sought.
class TextSearch {
 public:
  static constexpr std::size_t kNone = std::string_view::npos;

  explicit TextSearch(std::string_view sought);

  std::size_t Length() const { return sought_.size(); }
  bool IsEmpty() const { return sought_.empty(); }
  // The first place at or behind `from`; kNone if there is none, or nothing is sought.
  std::size_t Find(std::string_view text, std::size_t from = 0) const;
  // The last place that ends at or ahead of `before`; kNone if there is none.
  std::size_t FindLast(std::string_view text, std::size_t before) const;
  // How many there are, none overlapping another.
  std::size_t Count(std::string_view text) const;

 private:
  bool IsAt(const char* place) const;

  std::string sought_;  // folded
  std::array<std::size_t, 256> step_{};
};

}  // namespace quorvel
