#pragma once

#include <string>

namespace quorvel {

// The mark that opens and closes every frame, formed anew from the setting Magic.
// RuntimeError 5 when that is no character code.
char FrameMark();

// Takes one block of the host's stream apart: frames go to DispatchHostMessage, all else to the
// terminal, the capture file, the printer or the login scanner. `data` is not empty; it may be
// rewritten. Only the first frame in a block is acted on; what follows its closing mark is
// dropped. Positions are 16 bits: a mark beyond place 32,767 is RuntimeError 6.
void ReceiveHostData(std::string& data);

}  // namespace quorvel
