#include "demohost/Values.h"

#include "demohost/Marks.h"
#include "demohost/Record.h"

namespace quorvel::demohost {
namespace {

std::string NameIn(Store& store, const char* file, const std::string& key) {
  return Attribute(store.Read(file, key).value_or(""), 1);
}

std::string OrderTotal(std::string_view record) {
  const auto quantities = Split(Attribute(record, order::Quantities), kVm);
  const auto prices = Split(Attribute(record, order::Prices), kVm);
  long long total = 0;
  for (std::size_t i = 0; i < quantities.size() && i < prices.size(); ++i)
    total = Plus(total, Times(Number(quantities[i]), Number(prices[i])));
  return std::to_string(total);
}

}  // namespace

std::string Stored(Store& store, const Value& value, std::string_view key,
                   std::string_view record) {
  const auto attribute = [&](int number) { return Attribute(record, number); };
  switch (value.source) {
    case Source::Key:
      return std::string(key);
    case Source::Stored:
      return attribute(value.attribute);
    case Source::CustomerName:
      return NameIn(store, "CUSTOMERS", attribute(value.attribute));
    case Source::RepName:
      return NameIn(store, "REPS", attribute(value.attribute));
    case Source::VendorName:
      return NameIn(store, "VENDORS", attribute(value.attribute));
    case Source::Available:
      return std::to_string(
          Plus(Number(attribute(customer::Limit)), -Number(attribute(customer::Balance))));
    case Source::StockValue:
      return std::to_string(Times(Number(attribute(item::OnHand)), Number(attribute(item::Cost))));
    case Source::OrderTotal:
      return OrderTotal(record);
    case Source::LineCount:
      return std::to_string(Split(attribute(order::Items), kVm).size());
  }
  return {};
}

}  // namespace quorvel::demohost
