// Sales orders: listing, entry, shipping, cancelling.
#pragma once

#include <memory>

#include "demohost/Program.h"

namespace quorvel::demohost {

/// A listing whose rows are drawn in the attributes of the terminal by their status.
std::unique_ptr<Program> MakeOrderListing();
std::unique_ptr<Program> MakeOrderEntry();
/// Takes the goods from stock and adds the total to the customer's balance.
std::unique_ptr<Program> MakeShipping();
std::unique_ptr<Program> MakeCancelling();

}  // namespace quorvel::demohost
