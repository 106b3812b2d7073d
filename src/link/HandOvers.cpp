#include "link/HandOvers.h"

namespace quorvel {

HandOvers& Ask() {
  static HandOvers handOvers;
  return handOvers;
}

}  // namespace quorvel
