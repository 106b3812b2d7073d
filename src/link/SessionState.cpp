#include "link/SessionState.h"

namespace quorvel {

SessionState& Session() {
  static SessionState state;
  return state;
}

}  // namespace quorvel
