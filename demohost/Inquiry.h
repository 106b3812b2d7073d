// Inquiries: a form of lines and labels in the terminal, filled with one record after another.
#pragma once

#include <memory>
#include <string_view>

#include "demohost/Program.h"

namespace quorvel::demohost {

/// The inquiry program of this id, or null.
std::unique_ptr<Program> MakeInquiry(std::string_view id);

}  // namespace quorvel::demohost
