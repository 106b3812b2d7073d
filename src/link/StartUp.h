#pragma once

namespace quorvel {

// The start of the process, once the desktop is there.
void Main();

// Chooses host and user (in a dialog, unless the settings have a user) and starts to connect.
// Leaves ConnectRequested at -1 if a connect has been started.
void ConnectToHost();

// ConnectToHost; if that went ahead, shows the terminal window and applies the settings to it.
void StartSession();

// Leaves the session: with a log-off line if the host expects one, else by closing the link.
void LogOff();

}  // namespace quorvel
