#pragma once

namespace quorvel {

// Acts on the frame in HostMessage: a message of the host, or the reply to what PendingOp names.
// Its first act is a yield.
void DispatchHostMessage();

}  // namespace quorvel
