#pragma once

#include "platform/MessageBox.h"

class QWidget;

namespace quorvel {

// Shows a message box above `shell` and whatever else is open, and serves events until the user has
// answered. When the program ends meanwhile the answer is that of Escape: No, or OK.
MessageBoxAnswer ExecMessageBox(const MessageBoxRequest& request, QWidget* shell);

}  // namespace quorvel
