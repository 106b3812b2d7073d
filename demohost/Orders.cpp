#include "demohost/Orders.h"

#include <list>
#include <string>
#include <vector>

#include "demohost/Application.h"
#include "demohost/Marks.h"
#include "demohost/Pager.h"
#include "demohost/Record.h"
#include "demohost/Values.h"
#include "demohost/Vt.h"

namespace quorvel::demohost {
namespace {

constexpr std::size_t kLineLimit = 50;  // lines that one order may have here
constexpr int kNumbersTried = 1'000;    // a moment's work; further on, the counter wants mending

std::string Total(Store& store, const std::string& record) {
  return Show(Form::Money, Stored(store, {Source::OrderTotal}, "", record));
}

class OrderEntry final : public Program {
 public:
  void OnStart(Console& console) override {
    StartQuestions(console, "Enter an Order");
    console.Print("Customer number: ");
  }

  void OnLine(Console& console, const std::string& line) override {
    if (customer_.empty()) return OnCustomer(console, line);
    if (item_.empty()) return OnItem(console, line);
    OnQuantity(console, line);
  }

 private:
  void OnCustomer(Console& console, const std::string& line) {
    if (Leaves(line)) return console.Finish();
    const auto key = Upper(Trim(line));
    const auto record = console.Host().Data().Read("CUSTOMERS", key);
    if (!record) {
      console.PrintLine(key + " is not on file.");
      return console.Print("Customer number: ");
    }
    customer_ = key;
    rep_ = Attribute(*record, customer::Rep);
    console.PrintLine(vt::In(vt::kBold, Clean(Attribute(*record, customer::Name))));
    AskItem(console);
  }

  void AskItem(Console& console) {
    item_.clear();
    console.Print("Item number (an empty line stores the order): ");
  }

  void OnItem(Console& console, const std::string& line) {
    if (Trim(line) == ".") {
      console.PrintLine("Nothing has been stored.");
      return console.Finish();
    }
    if (Leaves(line) || items_.size() == kLineLimit) return StoreOrder(console);
    const auto key = Upper(Trim(line));
    const auto record = console.Host().Data().Read("ITEMS", key);
    if (!record) {
      console.PrintLine(key + " is not on file.");
      return AskItem(console);
    }
    item_ = key;
    price_ = Attribute(*record, item::Price);
    console.PrintLine(vt::In(vt::kBold, Clean(Attribute(*record, item::Name))) + "  " +
                      Show(Form::Money, price_));
    console.Print("Quantity: ");
  }

  void OnQuantity(Console& console, const std::string& line) {
    const auto quantity = Enter(Form::Whole, Trim(line));
    if (!quantity || Number(*quantity) == 0) {
      console.PrintLine("A whole number above 0, please.");
      return console.Print("Quantity: ");
    }
    items_.push_back(item_);
    quantities_.push_back(*quantity);
    prices_.push_back(price_);
    AskItem(console);
  }

  void StoreOrder(Console& console) {
    if (items_.empty()) {
      console.PrintLine("Nothing has been stored.");
      return console.Finish();
    }
    auto& store = console.Host().Data();
    Transaction all(store);
    const auto key = TakeOrderNumber(store);
    const auto today = std::to_string(DayNumber(console.Host().Now()));
    const auto record = Join({customer_, today, Join(items_, kVm), Join(quantities_, kVm),
                              Join(prices_, kVm), "OPEN", rep_, ""},
                             kAm);
    store.Write("ORDERS", key, record);
    all.Commit();
    console.PrintLine("Order " + key + " has been stored, total " + Total(store, record) + ".");
    console.Finish();
  }

  std::string customer_, rep_, item_, price_;
  std::vector<std::string> items_, quantities_, prices_;
};

/// Asks for an open order, shows what it comes to and does its work on a "Y".
class OrderStep : public Program {
 public:
  explicit OrderStep(const char* title) : title_(title) {}

  void OnStart(Console& console) override {
    StartQuestions(console, title_);
    AskOrder(console);
  }

  void OnLine(Console& console, const std::string& line) override {
    if (key_.empty()) return OnOrder(console, line);
    if (Upper(Trim(line)) == "Y") {
      const auto told = Work(console, key_);
      console.PrintLine(told);
    }
    AskOrder(console);
  }

 protected:
  /// Does it; gives what the user is told.
  virtual std::string Work(Console& console, const std::string& key) = 0;

 private:
  void AskOrder(Console& console) {
    key_.clear();
    lock_.Free();
    console.PrintLine();
    console.Print("Order number: ");
  }

  void OnOrder(Console& console, const std::string& line) {
    if (Leaves(line)) return console.Finish();
    const auto key = Upper(Trim(line));
    const auto record = console.Host().Data().Read("ORDERS", key);
    const auto status = record ? Attribute(*record, order::Status) : std::string();
    if (!record || status != "OPEN") {
      console.PrintLine(record ? "Order " + key + " is " + Clean(status) + "."
                               : key + " is not on file.");
      return AskOrder(console);
    }
    if (!lock_.Take(console.Host().RecordLocks(), console.Port(), "ORDERS", key)) {
      console.PrintLine("Order " + key + " is in use.");
      return AskOrder(console);
    }
    key_ = key;
    auto& store = console.Host().Data();
    const auto name = Stored(store, {Source::CustomerName, order::Customer}, key, *record);
    console.PrintLine(vt::In(vt::kBold, Clean(name)) + "  total " + Total(store, *record));
    console.Print(std::string(title_) + " - sure (Y/N)? ");
  }

  const char* title_;
  std::string key_;
  RecordLock lock_;
};

class Shipping final : public OrderStep {
 public:
  Shipping() : OrderStep("Ship an Order") {}

 protected:
  std::string Work(Console& console, const std::string& key) override {
    auto& store = console.Host().Data();
    auto record = store.Read("ORDERS", key).value_or("");
    const auto buyer = Attribute(record, order::Customer);
    const auto items = Split(Attribute(record, order::Items), kVm);
    const auto quantities = Split(Attribute(record, order::Quantities), kVm);
    std::list<RecordLock> locks;
    if (!locks.emplace_back().Take(console.Host().RecordLocks(), console.Port(), "CUSTOMERS",
                                   buyer))
      return "Customer " + Clean(buyer) + " is in use.";
    for (const auto& key_of : items) {
      if (!locks.emplace_back().Take(console.Host().RecordLocks(), console.Port(), "ITEMS", key_of))
        return "Item " + Clean(key_of) + " is in use.";
    }
    Transaction all(store);
    for (std::size_t i = 0; i < items.size() && i < quantities.size(); ++i)
      Change(store, "ITEMS", items[i], item::OnHand, -Number(quantities[i]));
    Change(store, "CUSTOMERS", buyer, customer::Balance,
           Number(Stored(store, {Source::OrderTotal}, key, record)));
    SetAttribute(record, order::Status, "SHIPPED");
    store.Write("ORDERS", key, record);
    all.Commit();
    return "Order " + key + " has been shipped.";
  }

 private:
  static void Change(Store& store, const char* file, const std::string& key, int attribute,
                     long long by) {
    auto record = store.Read(file, key);
    if (!record) return;  // gone since the order was entered
    const auto sum = Plus(Number(Attribute(*record, attribute)), by);
    SetAttribute(*record, attribute, std::to_string(sum));
    store.Write(file, key, *record);
  }
};

class Cancelling final : public OrderStep {
 public:
  Cancelling() : OrderStep("Cancel an Order") {}

 protected:
  std::string Work(Console& console, const std::string& key) override {
    auto& store = console.Host().Data();
    auto record = store.Read("ORDERS", key).value_or("");
    SetAttribute(record, order::Status, "CANCELLED");
    store.Write("ORDERS", key, record);
    return "Order " + key + " has been cancelled.";
  }
};

std::string_view AttributeOf(const std::string& status) {
  if (status == "OPEN") return vt::kBold;
  if (status == "CANCELLED") return vt::kUnderline;
  return vt::kNormal;
}

Listing ListOrders(Console& console) {
  auto& store = console.Host().Data();
  std::vector<std::string> body;
  store.ForEach("ORDERS", [&](const std::string& key, const std::string& record) {
    const auto status = Attribute(record, order::Status);
    const auto date = Show(Form::Date, Attribute(record, order::Date));
    const auto name = Stored(store, {Source::CustomerName, order::Customer}, key, record);
    body.push_back(Left(key, 7) + Left(date, 13) + Left(name, 28) +
                   vt::In(AttributeOf(status), Left(status, 11)) + Right(Total(store, record), 14));
    return true;
  });
  return {"Orders: bold open, underlined cancelled",
          Left("Order", 7) + Left("Date", 13) + Left("Customer", 28) + Left("Status", 11) +
              Right("Total", 14),
          std::move(body)};
}

}  // namespace

std::string TakeOrderNumber(Store& store) {
  auto number = Number(store.Read("PARM", "NEXT.ORDER").value_or(""));
  // The counter is a record like any other, which anybody may have written over.
  if (number < 1) number = 1;
  const auto last = number + kNumbersTried;
  while (number < last && store.Read("ORDERS", std::to_string(number))) ++number;
  if (number == last) throw StoreError("no free order number from NEXT.ORDER in PARM on");
  store.Write("PARM", "NEXT.ORDER", std::to_string(number + 1));
  return std::to_string(number);
}

std::unique_ptr<Program> MakeOrderListing() {
  return MakeListing(ListOrders);
}
std::unique_ptr<Program> MakeOrderEntry() {
  return std::make_unique<OrderEntry>();
}
std::unique_ptr<Program> MakeShipping() {
  return std::make_unique<Shipping>();
}
std::unique_ptr<Program> MakeCancelling() {
  return std::make_unique<Cancelling>();
}

}  // namespace quorvel::demohost
