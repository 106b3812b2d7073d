// The business rules of the order screen. CaseRules.cpp tells what a rule can do.
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "demohost/CaseCall.h"
#include "demohost/CaseRules.h"
#include "demohost/Format.h"
#include "demohost/Marks.h"
#include "demohost/Orders.h"
#include "demohost/Record.h"
#include "demohost/Screens.h"
#include "demohost/Values.h"

namespace quorvel::demohost {
namespace {

using namespace order_field;
using std::string;

constexpr std::string_view kShipped = "SHIPPED";
constexpr std::string_view kCancelled = "CANCELLED";

// A client may name any field.
int LineOf(int field) {
  return std::clamp((field - FirstLine) / LineFields, 0, kLines - 1);
}

int FieldOf(int line, int part) {
  return FirstLine + line * LineFields + part;
}

string Remembered(int line) {
  return "item " + std::to_string(line);
}

void KeyAccepted(CaseCall& call) {
  if (call.data == "NEW") {
    Transaction all(call.Data());
    const auto number = TakeOrderNumber(call.Data());
    all.Commit();
    call.Replace(number);
    return call.Show(Key, number);
  }
  if (call.data.empty() || call.data == "E" || IsDigits(call.data, call.data.size())) return;
  call.Tell("Key", "An order number has digits only.");
  call.Error();
}

void KeyStored(CaseCall& call) {
  const auto order = call.Data().Read("ORDERS", call.data);
  call.Show(Note, order ? Attribute(*order, order::Status) : "Not on file");
}

// Lines behind those of the screen, which an order entered in the terminal may have.
long long TotalOffScreen(CaseCall& call) {
  const auto order = call.Data().Read("ORDERS", call.Value(Key)).value_or("");
  const auto quantities = Split(Attribute(order, order::Quantities), kVm);
  const auto unitPrices = Split(Attribute(order, order::Prices), kVm);
  long long total = 0;
  for (std::size_t i = kLines; i < quantities.size() && i < unitPrices.size(); ++i)
    total = Plus(total, Times(Number(quantities[i]), Number(unitPrices[i])));
  return total;
}

void ShowAmounts(CaseCall& call) {
  long long total = TotalOffScreen(call);
  for (int line = 0; line < kLines; ++line) {
    const auto amount = Times(Number(call.Value(FieldOf(line, LineQuantity))),
                              Number(call.Value(FieldOf(line, LinePrice))));
    call.Show(FieldOf(line, LineAmount), amount == 0 ? "" : PlainMoney(std::to_string(amount)));
    total = Plus(total, amount);
  }
  call.Show(Total, Money(std::to_string(total)));
}

void Found(CaseCall& call) {
  if (call.InUse("ORDERS", call.Value(Key))) return;
  for (int line = 0; line < kLines; ++line)
    call.memory[Remembered(line)] = call.Value(FieldOf(line, LineItem));
  ShowAmounts(call);
  if (call.Value(Status) == kShipped) call.EntryMode();  // closes the status, for good
}

void Missing(CaseCall& call) {
  const auto key = call.Value(Key);
  if (call.InUse("ORDERS", key)) return;
  if (!IsDigits(key, key.size())) return call.Error();
  call.memory.clear();
  const auto today = call.Today();
  call.SetAndShow(Date, std::to_string(today), ShowShortDate(today));
  call.SetAndShow(Status, "OPEN", "OPEN");
}

void CustomerStored(CaseCall& call) {
  const auto customer = call.Data().Read("CUSTOMERS", call.data);
  if (!customer || !call.Value(Rep).empty()) return;
  const auto rep = Attribute(*customer, customer::Rep);
  call.SetAndShow(Rep, rep, rep);
  call.Show(RepName, Attribute(call.Data().Read("REPS", rep).value_or(""), 1));
}

// What has been agreed with the customer, while it is valid, or the list price.
string PriceOf(CaseCall& call, const string& item) {
  const auto agreed = call.Data().Read("PRICES", call.Value(Customer) + item);
  if (agreed && Number(Attribute(*agreed, price::Until)) >= call.Today())
    return Attribute(*agreed, price::Amount);
  return Attribute(call.Data().Read("ITEMS", item).value_or(""), item::Price);
}

void ItemStored(CaseCall& call) {
  const int line = LineOf(call.field);
  auto& before = call.memory[Remembered(line)];
  if (call.data == before) return;
  before = call.data;
  const auto price = call.data.empty() ? string() : PriceOf(call, call.data);
  call.SetAndShow(FieldOf(line, LinePrice), price, price.empty() ? "" : PlainMoney(price));
  if (call.data.empty()) {
    call.SetAndShow(FieldOf(line, LineQuantity), "", "");
    call.Show(FieldOf(line, LineText), "");
  }
  ShowAmounts(call);
}

void QuantityAccepted(CaseCall& call) {
  const auto item = call.Value(FieldOf(LineOf(call.field), LineItem));
  if (call.data.empty()) return;
  if (item.empty()) {  // a quantity of nothing
    call.Show(call.field, "");
    return call.Return();
  }
  if (Number(call.data) > 0) return;
  call.Tell("Quantity", "A line has a quantity of 1 or more.");
  call.Error();
}

void QuantityStored(CaseCall& call) {
  ShowAmounts(call);
  const auto item = call.Data().Read("ITEMS", call.Value(FieldOf(LineOf(call.field), LineItem)));
  if (!item) return;
  const auto onHand = Attribute(*item, item::OnHand);
  if (Number(call.data) > Number(onHand))
    call.Show(Note, "Only " + onHand + " on hand of " + Attribute(*item, item::Name));
  // The prices on the lines are this customer's: from the first line on, the customer stays.
  if (call.original.empty() && call.memory["closed"].empty()) {
    call.memory["closed"] = "Y";
    call.MaintenanceMode();
  }
}

void StatusAccepted(CaseCall& call) {
  const auto before = Attribute(call.original, Status);
  if (call.data != kShipped || before == kShipped) return;
  call.Show(Status, before);
  call.Tell("Status", "Orders are shipped by the option Ship an Order.");
  call.Error();
}

void BeforeWrite(CaseCall& call) {
  for (int line = 0; line < kLines; ++line) {
    if (!call.Value(FieldOf(line, LineItem)).empty()) return;
  }
  call.Tell("Order", "An order needs a line.");
  call.Return();
}

string WithoutTail(string values) {
  while (!values.empty() && values.back() == kVm) values.pop_back();
  return values;
}

void AfterWrite(CaseCall& call) {
  const auto key = call.Value(Key);
  auto order = call.Data().Read("ORDERS", key);
  if (!order || call.host.RecordLocks().HeldByOther(call.port, "ORDERS", key)) return;
  for (const int attribute : {order::Items, order::Quantities, order::Prices})
    SetAttribute(*order, attribute, WithoutTail(Attribute(*order, attribute)));
  call.Data().Write("ORDERS", key, *order);
  call.Show(Note, key + " has been stored");
}

void BeforeDelete(CaseCall& call) {
  if (Attribute(call.original, Status) != kShipped) return;
  call.Tell("Order", "A shipped order is kept.");
  call.Error();
}

void BeforeLeaving(CaseCall& call) {
  if (call.Value(Status) != kCancelled || Attribute(call.original, Status) == kCancelled) return;
  call.Tell("Order", "You have cancelled the order: save it, or set the status back.");
  call.Error();
}

void Left(CaseCall& call) {
  call.Show(Note, "");
}

constexpr CaseRule kRules[] = {
    {"ORDER.RULES", "ai_ORDER.NO", KeyAccepted},
    {"ORDER.RULES", "as_ORDER.NO", KeyStored},
    {"ORDER.RULES", "AfterRead", Found},
    {"ORDER.RULES", "NewItem", Missing},
    {"ORDER.RULES", "as_ORDER.CUST", CustomerStored},
    {"ORDER.RULES", "as_LINE.ITEM", ItemStored},
    {"ORDER.RULES", "ai_LINE.QUANTITY", QuantityAccepted},
    {"ORDER.RULES", "as_LINE.QUANTITY", QuantityStored},
    {"ORDER.RULES", "as_LINE.PRICE", ShowAmounts},
    {"ORDER.RULES", "ai_ORDER.STATUS", StatusAccepted},
    {"ORDER.RULES", "BeforeWrite", BeforeWrite},
    {"ORDER.RULES", "AfterWrite", AfterWrite},
    {"ORDER.RULES", "BeforeDelete", BeforeDelete},
    {"ORDER.RULES", "BeforeExitWoSave", BeforeLeaving},
    {"ORDER.RULES", "ExitWoSave", Left},
};

}  // namespace

std::span<const CaseRule> OrderRules() {
  return kRules;
}

}  // namespace quorvel::demohost
