// The sample data of the trading company.
#pragma once

#include "demohost/Store.h"

namespace quorvel::demohost {

/// Fills an empty store: files, records, menus, help texts, the accounts demo and sales.
/// Orders are dated in the eighty days up to `today` (a day number).
void Seed(Store& store, long long today);

}  // namespace quorvel::demohost
