// Sales orders: listing, entry, shipping, cancelling.
#pragma once

#include <memory>
#include <string>

#include "demohost/Program.h"
#include "demohost/Store.h"

namespace quorvel::demohost {

/// Takes the next free order number from the counter in PARM. Throws StoreError.
std::string TakeOrderNumber(Store& store);

/// A listing whose rows are drawn in the attributes of the terminal by their status.
std::unique_ptr<Program> MakeOrderListing();
std::unique_ptr<Program> MakeOrderEntry();
/// Takes the goods from stock and adds the total to the customer's balance.
std::unique_ptr<Program> MakeShipping();
std::unique_ptr<Program> MakeCancelling();

}  // namespace quorvel::demohost
