#pragma once

namespace quorvel {

// The two messages around a captured report, as the dispatcher's table names them.
void TakeCaptureOn();
void TakeCaptureOff();

}  // namespace quorvel
