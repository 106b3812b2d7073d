// The business rules of the screens: what a program behind a screen can do, hook by hook.
//
// The client calls at fixed points, with the record as it stands on the screen, and goes on when it
// has the reply. A rule may change the record, put texts on the screen, open message boxes, close
// fields by a mode message, and answer with a reply word:
//
//   Error    ai_: the entry is refused; as_: the user is taken back to the field; AfterRead,
//            NewItem, BeforeDelete, BeforeExitWoSave, ExitWoSave: the operation stops
//   Return   bi_: the field is passed by; ai_: the entry is dropped; BeforeWrite: no writing
//   Replace  ai_: this value is stored in place of the entry
//   data     bo_: what is shown in place of the stored value
//
// A rule that does none of this lets the screen go on as if it were not there.
#include "demohost/CaseRules.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "demohost/CaseCall.h"
#include "demohost/Format.h"
#include "demohost/Marks.h"
#include "demohost/Record.h"
#include "demohost/Screens.h"
#include "demohost/Values.h"

namespace quorvel::demohost {
namespace {

using std::string;

constexpr long long kHighestLimit = 10'000'000;  // cents
constexpr long long kPriceDays = 90;             // that a new price holds unless changed

bool IsKey(std::string_view key, char letter, std::size_t digits) {
  return !key.empty() && key.front() == letter && IsDigits(key.substr(1), digits);
}

// Keys are a letter and a number; the next one follows the highest.
string NextKey(Store& store, const char* file, char letter, std::size_t digits) {
  long long highest = 0;
  store.ForEach(file, [&](const string& key, const string&) {
    if (IsKey(key, letter, digits)) highest = std::max(highest, Number(key.substr(1)));
    return true;
  });
  const auto number = std::to_string(highest + 1);
  return letter + string(digits - std::min(digits, number.size()), '0') + number;
}

// "NEW" takes the next key, digits get the letter, and E is left alone: it leaves the screen.
void CompleteKey(CaseCall& call, const char* file, char letter, std::size_t digits) {
  string key = call.data;
  if (key.empty() || key == "E") return;
  if (key == "NEW") key = NextKey(call.Data(), file, letter, digits);
  if (IsDigits(key, digits)) key = letter + key;
  if (!IsKey(key, letter, digits)) {
    call.Tell("Key", string("A number is ") + letter + " and " + std::to_string(digits) +
                         " digits, or NEW.");
    return call.Error();
  }
  if (key == call.data) return;
  call.Replace(key);
  call.Show(call.field, key);
}

bool OrderHas(std::string_view order, int attribute, const string& text) {
  const auto values = Split(Attribute(order, attribute), kVm);
  return std::find(values.begin(), values.end(), text) != values.end();
}

int OpenOrdersOf(Store& store, int attribute, const string& text) {
  int count = 0;
  store.ForEach("ORDERS", [&](const string&, const string& order) {
    count += Attribute(order, order::Status) == "OPEN" && OrderHas(order, attribute, text);
    return true;
  });
  return count;
}

// --- Customers ---------------------------------------------------------------------------------

namespace customers {
using namespace customer_field;

void KeyAccepted(CaseCall& call) {
  CompleteKey(call, "CUSTOMERS", 'C', 4);
}

void KeyStored(CaseCall& call) {
  const auto record = call.Data().Read("CUSTOMERS", call.data);
  const auto since = record ? Attribute(*record, customer::Since) : string();
  call.Show(Note, !record         ? "Not on file"
                  : since.empty() ? "On file"
                                  : "Customer since " + Show(Form::Date, since));
}

void ShowCredit(CaseCall& call) {
  const auto left = Plus(Number(call.Value(Limit)), -Number(call.Value(Balance)));
  call.Show(Credit, Money(std::to_string(left)));
}

void Found(CaseCall& call) {
  const auto key = call.Value(Key);
  if (call.InUse("CUSTOMERS", key)) return;
  // A field that is not on the screen: as a balance, it keeps the customer from being deleted.
  call.Set(OpenOrders, std::to_string(OpenOrdersOf(call.Data(), order::Customer, key)));
  ShowCredit(call);
}

void Missing(CaseCall& call) {
  const auto key = call.Value(Key);
  if (call.InUse("CUSTOMERS", key)) return;
  if (!IsKey(key, 'C', 4)) return call.Error();
  call.SetAndShow(Class, "C", "C");
  call.SetAndShow(Discount, "0", "0.00");
}

void ClassStored(CaseCall& call) {
  if (call.data == Attribute(call.original, Class)) return;
  const string discount = call.data == "A" ? "1000" : call.data == "B" ? "500" : "0";
  call.SetAndShow(Discount, discount, PlainMoney(discount));
}

void TermsStored(CaseCall& call) {
  if (call.data == "COD") call.SetAndShow(Limit, "0", Money("0"));
  ShowCredit(call);
}

void LimitEntered(CaseCall& call) {
  if (call.Value(Terms) == "COD") call.Return();  // who pays cash has no credit
}

void LimitAccepted(CaseCall& call) {
  if (Number(call.data) <= kHighestLimit) return;
  call.Tell("Credit limit", "A limit above $100,000.00 needs the board.");
  call.Error();
}

void ZipStored(CaseCall& call) {
  if (call.data.empty() || IsDigits(call.data, 5)) return;
  call.Tell("Zip code", call.data + " is no zip code: it has five digits.");
  call.Error();
}

void EmailAccepted(CaseCall& call) {
  if (call.data.empty() || call.data.find('@') != string::npos) return;
  call.Show(Email, call.Value(Email));
  call.Return();
}

// Several values in one box: shown with semicolons, stored with value marks.
void ContactsShown(CaseCall& call) {
  string shown;
  for (const auto& name : Split(call.data, kVm)) shown += (shown.empty() ? "" : "; ") + name;
  call.data = shown;
}

string ContactValues(std::string_view shown) {
  string entry(shown);
  std::replace(entry.begin(), entry.end(), kVm, ';');
  std::vector<string> names;
  for (const auto& name : Split(entry, ';')) {
    if (auto trimmed = Trim(name); !trimmed.empty()) names.push_back(std::move(trimmed));
  }
  return Join(names, kVm);
}

void ContactsAccepted(CaseCall& call) {
  call.Replace(ContactValues(call.data));
}

void BeforeWrite(CaseCall& call) {
  // Fields that did not have the focus are stored as they stand on the screen, without ai_.
  call.Set(Contacts, ContactValues(call.Value(Contacts)));
  if (call.Value(Terms) != "COD" || Attribute(call.original, Terms) == "COD" ||
      Number(call.Value(Balance)) == 0)
    return;
  call.Tell("Terms", "While there is a balance, the terms can't become COD.");
  call.Return();
}

void AfterWrite(CaseCall& call) {
  call.Show(Note, call.Value(Key) + " has been stored");
}

void BeforeDelete(CaseCall& call) {
  if (call.user != "sales") return;
  call.Tell("Customers", "Your user may not delete customers.");
  call.Error();
}

void AfterDelete(CaseCall& call) {
  const auto key = call.Value(Key);
  auto& store = call.Data();
  if (store.Read("CUSTOMERS", key)) return;  // the delete has been refused
  std::vector<string> prices;
  store.ForEach("PRICES", [&](const string& price, const string&) {
    if (price.starts_with(key)) prices.push_back(price);
    return true;
  });
  for (const auto& price : prices) store.Delete("PRICES", price);
  call.Show(Note, key + " has been deleted");
}

void Left(CaseCall& call) {
  call.Show(Note, "");
}

}  // namespace customers

// --- Items -------------------------------------------------------------------------------------

namespace items {
using namespace item_field;

void KeyAccepted(CaseCall& call) {
  CompleteKey(call, "ITEMS", 'I', 3);
}

void KeyStored(CaseCall& call) {
  call.Show(Note, call.Data().Read("ITEMS", call.data) ? "On file" : "Not on file");
}

void ShowMargin(CaseCall& call) {
  const auto cost = Number(call.Value(Cost));
  const auto price = Number(call.Value(Price));
  call.Show(Margin, cost == 0 ? "" : std::to_string((price - cost) * 100 / cost) + " %");
}

void ShowVendor(CaseCall& call) {
  const auto vendor = call.Data().Read("VENDORS", call.Value(Vendor));
  call.Show(VendorName, vendor ? Attribute(*vendor, 1) : "");
}

void Found(CaseCall& call) {
  if (call.InUse("ITEMS", call.Value(Key))) return;
  ShowMargin(call);
  ShowVendor(call);
}

void Missing(CaseCall& call) {
  const auto key = call.Value(Key);
  if (!call.InUse("ITEMS", key) && !IsKey(key, 'I', 3)) call.Error();
}

void AisleStored(CaseCall& call) {
  if (call.data.empty() || (call.data >= "A" && call.data <= "Z")) return;
  call.Tell("Aisle", "Aisles have letters.");
  call.Error();
}

void PriceAccepted(CaseCall& call) {
  if (Number(call.data) >= Number(call.Value(Cost))) return;
  call.Tell("Price", "The price is below the cost of " + Money(call.Value(Cost)) + ".");
  call.Error();
}

// Parts of one value that several fields share overwrite each other when the client writes, so the
// host puts the value together.
void AfterWrite(CaseCall& call) {
  const auto key = call.Value(Key);
  auto record = call.Data().Read("ITEMS", key);
  if (!record || call.host.RecordLocks().HeldByOther(call.port, "ITEMS", key)) return;
  const auto joined = [&](int first, std::string_view between, int second) {
    const auto one = call.Value(first), two = call.Value(second);
    return one.empty() && two.empty() ? string() : one + string(between) + two;
  };
  SetAttribute(*record, item::Bin, joined(Aisle, "-", Shelf));
  SetAttribute(*record, item::Pack, joined(Inner, "x", Packs));
  call.Data().Write("ITEMS", key, *record);
  call.Show(Note, key + " has been stored");
}

void BeforeDelete(CaseCall& call) {
  if (OpenOrdersOf(call.Data(), order::Items, call.Value(Key)) == 0) return;
  call.Tell("Items", "The item stands on open orders.");
  call.Error();
}

void AfterDelete(CaseCall& call) {
  call.Show(Note, "");
}

// The record is by now what it was when it was read.
void Left(CaseCall& call) {
  call.Show(Note, "");
  if (call.Value(Name).empty() || Number(call.Value(Price)) != 0) return;
  call.Tell("Price", "An item without a price can't be left: enter one and save.");
  call.Error();
}

}  // namespace items

// --- Prices of customers -----------------------------------------------------------------------

namespace prices {
using namespace price_field;

// The screen forgets the other part of the key when it accepts one, so the rules remember both.
void KeyStored(CaseCall& call) {
  call.memory[call.field == Customer ? "customer" : "item"] = call.data;
  call.Set(Customer, call.memory["customer"]);
  call.Set(Item, call.memory["item"]);
}

void ShowListPrice(CaseCall& call) {
  const auto item = call.Data().Read("ITEMS", call.Value(Item));
  call.Show(ListPrice, item ? Money(Attribute(*item, item::Price)) : "");
}

void Found(CaseCall& call) {
  if (!call.InUse("PRICES", call.Value(Customer) + call.Value(Item))) ShowListPrice(call);
}

void Missing(CaseCall& call) {
  if (call.Value(Customer).empty() || call.Value(Item).empty()) {
    call.Tell("Prices", "A price needs a customer and an item.");
    return call.Error();
  }
  if (call.InUse("PRICES", call.Value(Customer) + call.Value(Item))) return;
  ShowListPrice(call);
  const auto until = std::to_string(call.Today() + kPriceDays);
  call.SetAndShow(Until, until, ShowShortDate(Number(until)));
}

}  // namespace prices

constexpr CaseRule kRules[] = {
    {"CUSTOMER.RULES", "ai_CUST.NO", customers::KeyAccepted},
    {"CUSTOMER.RULES", "as_CUST.NO", customers::KeyStored},
    {"CUSTOMER.RULES", "AfterRead", customers::Found},
    {"CUSTOMER.RULES", "NewItem", customers::Missing},
    {"CUSTOMER.RULES", "as_CUST.CLASS", customers::ClassStored},
    {"CUSTOMER.RULES", "as_CUST.TERMS", customers::TermsStored},
    {"CUSTOMER.RULES", "bi_CUST.LIMIT", customers::LimitEntered},
    {"CUSTOMER.RULES", "ai_CUST.LIMIT", customers::LimitAccepted},
    {"CUSTOMER.RULES", "as_CUST.LIMIT", customers::ShowCredit},
    {"CUSTOMER.RULES", "as_CUST.ZIP", customers::ZipStored},
    {"CUSTOMER.RULES", "ai_CUST.EMAIL", customers::EmailAccepted},
    {"CUSTOMER.RULES", "bo_CUST.CONTACTS", customers::ContactsShown},
    {"CUSTOMER.RULES", "ai_CUST.CONTACTS", customers::ContactsAccepted},
    {"CUSTOMER.RULES", "BeforeWrite", customers::BeforeWrite},
    {"CUSTOMER.RULES", "AfterWrite", customers::AfterWrite},
    {"CUSTOMER.RULES", "BeforeDelete", customers::BeforeDelete},
    {"CUSTOMER.RULES", "AfterDelete", customers::AfterDelete},
    {"CUSTOMER.RULES", "ExitWoSave", customers::Left},
    {"ITEM.RULES", "ai_ITEM.NO", items::KeyAccepted},
    {"ITEM.RULES", "as_ITEM.NO", items::KeyStored},
    {"ITEM.RULES", "AfterRead", items::Found},
    {"ITEM.RULES", "NewItem", items::Missing},
    {"ITEM.RULES", "as_ITEM.AISLE", items::AisleStored},
    {"ITEM.RULES", "as_ITEM.COST", items::ShowMargin},
    {"ITEM.RULES", "ai_ITEM.PRICE", items::PriceAccepted},
    {"ITEM.RULES", "as_ITEM.PRICE", items::ShowMargin},
    {"ITEM.RULES", "as_ITEM.VENDOR", items::ShowVendor},
    {"ITEM.RULES", "AfterWrite", items::AfterWrite},
    {"ITEM.RULES", "BeforeDelete", items::BeforeDelete},
    {"ITEM.RULES", "AfterDelete", items::AfterDelete},
    {"ITEM.RULES", "ExitWoSave", items::Left},
    {"PRICE.RULES", "as_PRICE.CUST", prices::KeyStored},
    {"PRICE.RULES", "as_PRICE.ITEM", prices::KeyStored},
    {"PRICE.RULES", "AfterRead", prices::Found},
    {"PRICE.RULES", "NewItem", prices::Missing},
};

}  // namespace

void RunCaseRules(std::string_view program, CaseCall& call) {
  for (const auto rules : {std::span<const CaseRule>(kRules), OrderRules()}) {
    for (const auto& rule : rules) {
      if (rule.program == program && rule.hook == call.hook) return rule.run(call);
    }
  }
}

}  // namespace quorvel::demohost
