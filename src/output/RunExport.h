#pragma once

#include <string>

namespace quorvel {

// Saves a copy of the capture file under a name that the user gives, and starts an export command
// on it. `command` empty: the settings decide which (ExportType, ExportCommands); else it is the
// command line. It is rewritten in the course of the work.
void RunExport(std::string& command);

}  // namespace quorvel
