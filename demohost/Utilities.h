// Utilities of the host: who is on, locks, files, messages, passwords, the terminal's test card.
#pragma once

#include <memory>

#include "demohost/Pager.h"
#include "demohost/Program.h"

namespace quorvel::demohost {

Listing ListUsers(Console& console);
Listing ListLocks(Console& console);
Listing ListFiles(Console& console);

std::unique_ptr<Program> MakeBroadcast();
std::unique_ptr<Program> MakeBoxDemonstration();
std::unique_ptr<Program> MakeTestCard();
std::unique_ptr<Program> MakeMonthClose();
std::unique_ptr<Program> MakePasswordChange();

}  // namespace quorvel::demohost
