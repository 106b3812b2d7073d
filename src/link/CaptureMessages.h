#pragma once

#include <string_view>

namespace quorvel {

// The two messages around a captured report, as the dispatcher's table names them.
void TakeCaptureOn();
void TakeCaptureOff();

// Blocks are captured no more.
void EndCapture();

// Appends a block of the report to the capture file, which is opened and closed for every block: a
// report is whole up to its last block whatever happens next. A file that can't be written is told
// in one box for the whole capture, which goes on all the same.
void AppendToCapture(std::string_view block);

}  // namespace quorvel
