#pragma once

#include <string>

namespace quorvel {

// The help that a field offers in finding its value. Neither waits for the host's list; the mouse
// pointer is the hourglass until it shows.

// Asks for the list of this name; nothing for an empty one.
void RequestList(const std::string& listName);

// Asks the user for a word to search for with this locator, and the host for what it finds.
// Nothing for an empty key, or when the user gives no word.
void RequestLocator(const std::string& locatorKey);

}  // namespace quorvel
