#pragma once

namespace quorvel {

// The link has ended. What the session leaves behind stays, but the windows answer: nothing holds
// input any more, and nothing shows that it is waited for.
void EndOfLink();

// A window that was waited for will not come: the pointer is the usual one again.
void DropHourglass();

// A link has been made. What the last session has left behind goes: its waits, its frame, capture
// and printing, what it asked, the windows of its entry screen. A report viewer and a changed help
// text stay.
void BeginSession();

}  // namespace quorvel
