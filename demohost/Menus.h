// Menus: their definitions, and the menu message made of them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "demohost/Store.h"

namespace quorvel::demohost {

inline constexpr const char* kMainMenu = "MAIN.MENU";

/// Writes the menus of the sample into the file MENUS. A menu's record: 1 title, 2 tab names,
/// 3 option texts, 4 the tab of each, 5 the id of each; values in 2 to 5.
void SeedMenus(Store& store);

/// The record of a menu, or nothing. If the file lacks it, the one that it was seeded with.
std::optional<std::string> MenuRecord(Store& store, std::string_view id);

/// The ~STARTMENU~ frame of a menu record. The client's tables hold ten tabs and a hundred
/// options; what is beyond is left out.
std::string MenuFrame(std::string_view id, std::string_view record, std::string_view who);

}  // namespace quorvel::demohost
