// What reports and inquiries show of a record: stored attributes and what is worked out of them.
#pragma once

#include <string>
#include <string_view>

#include "demohost/Format.h"
#include "demohost/Store.h"

namespace quorvel::demohost {

enum class Source {
  Key,
  Stored,        // the attribute as it stands
  CustomerName,  // name of the customer whose key is in the attribute
  RepName,
  VendorName,
  Available,   // credit limit less balance
  StockValue,  // on hand times cost
  OrderTotal,  // sum of quantity times price over the lines
  LineCount
};

struct Value {
  Source source = Source::Stored;
  int attribute = 0;
  Form form = Form::Text;
};

/// The value in stored form.
std::string Stored(Store& store, const Value& value, std::string_view key, std::string_view record);

/// Attribute numbers of the sample's files.
namespace customer {
enum {
  Name = 1,
  Street,
  City,
  Zip,
  Phone,
  Terms,
  Limit,
  Balance,
  Rep,
  Contacts,
  Since,
  Reviewed,
  LastOrder,
  Account,
  Email,
  Class,
  Discount
};
}
namespace item {
enum { Name = 1, Group, Unit, OnHand, Level, Cost, Price, Bin, Vendor, Counted, Catalogue, Pack };
}
namespace order {
enum { Customer = 1, Date, Items, Quantities, Prices, Status, Rep, PoNumber, ShipBy, Remark };
}
namespace price {  // of a customer for an item; the key is both numbers, one behind the other
enum { Amount = 1, Until, Remark };
}

}  // namespace quorvel::demohost
