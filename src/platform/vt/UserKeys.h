#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/vt/Keys.h"
#include "platform/vt/Sequence.h"

namespace quorvel::vt {

// The texts that the host puts on F6 to F20 together with Shift (DECUDK, VT220 programmer
// reference, chapter 4).
class UserKeys {
 public:
  // Of all texts together, as in the VT220. What comes beyond is left out.
  static constexpr std::size_t kMaxBytes = 256;
  // A definition of that size with all its numbers and separators is shorter than this.
  static constexpr std::size_t kMaxDefinition = 1024;

  // `head` has the parameters Pc (0: clear all keys first) and Pl (0: lock afterwards); `body` is
  // "key/hex;key/hex". A fault in it ends the loading; keys loaded before it stay. While the keys
  // are locked nothing happens.
  void Load(const Sequence& head, std::string_view body);
  bool Locked() const { return locked_; }
  // Empty when the key has none.
  const std::string& TextOf(Key key) const;
  void Reset();

 private:
  bool LoadOne(std::string_view definition);
  std::size_t Size() const;

  static constexpr std::size_t kKeys = 15;
  std::array<std::string, kKeys> texts_;
  bool locked_ = false;
};

}  // namespace quorvel::vt
