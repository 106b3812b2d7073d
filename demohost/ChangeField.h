// Programs that change one attribute of a record: by a new value, or by adding or taking off.
#pragma once

#include <memory>
#include <string_view>

#include "demohost/Program.h"

namespace quorvel::demohost {

/// The change program of this id, or null.
std::unique_ptr<Program> MakeChange(std::string_view id);

}  // namespace quorvel::demohost
