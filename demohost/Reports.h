// Reports: listings of one file, told by a table.
#pragma once

#include <string_view>

#include "demohost/Pager.h"

namespace quorvel::demohost {

struct Report;

/// The report of this id, or null.
const Report* FindReport(std::string_view id);
/// The report that lists a file whole, or null.
const Report* ListOf(std::string_view file);
Listing Run(const Report& report, Console& console);

/// Keys and first attributes of any file. Throws StoreError for an unknown one.
Listing ListFile(std::string_view file, Console& console);

}  // namespace quorvel::demohost
