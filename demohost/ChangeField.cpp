#include "demohost/ChangeField.h"

#include <algorithm>
#include <string>

#include "demohost/Application.h"
#include "demohost/Record.h"
#include "demohost/Values.h"
#include "demohost/Vt.h"

namespace quorvel::demohost {
namespace {

enum class Way { Replace, Add, Subtract };

struct Change {
  const char* id;
  const char* title;
  const char* file;
  const char* keyQuestion;
  const char* field;
  const char* valueQuestion;
  int attribute;
  Form form;
  Way way;
};

constexpr Change kChanges[] = {
    {"AR.PHONE", "Change Telephone Number", "CUSTOMERS", "Customer number: ", "Telephone",
     "New number: ", customer::Phone, Form::Text, Way::Replace},
    {"AR.LIMIT", "Change Credit Limit", "CUSTOMERS", "Customer number: ", "Credit limit",
     "New limit: ", customer::Limit, Form::Money, Way::Replace},
    {"AR.TERMS", "Change Payment Terms", "CUSTOMERS", "Customer number: ", "Terms",
     "New terms: ", customer::Terms, Form::Text, Way::Replace},
    {"AR.CASH", "Post Cash Received", "CUSTOMERS", "Customer number: ", "Balance",
     "Amount received: ", customer::Balance, Form::Money, Way::Subtract},
    {"IC.PRICE", "Change Selling Price", "ITEMS", "Item number: ", "Price",
     "New price: ", item::Price, Form::Money, Way::Replace},
    {"IC.BIN", "Change Bin Location", "ITEMS", "Item number: ", "Bin", "New bin: ", item::Bin,
     Form::Text, Way::Replace},
    {"IC.RECEIVE", "Receive Stock", "ITEMS", "Item number: ", "On hand",
     "Quantity received: ", item::OnHand, Form::Whole, Way::Add},
    {"IC.COUNT", "Enter a Stock Count", "ITEMS", "Item number: ", "On hand",
     "Quantity counted: ", item::OnHand, Form::Whole, Way::Replace},
    {"IC.LEVEL", "Change Reorder Level", "ITEMS", "Item number: ", "Reorder level",
     "New level: ", item::Level, Form::Whole, Way::Replace},
    {"SO.PONUMBER", "Change Customer Order Number", "ORDERS", "Order number: ", "Their number",
     "New number: ", order::PoNumber, Form::Text, Way::Replace},
};

constexpr std::size_t kLongestText = 40;

class ChangeField final : public Program {
 public:
  explicit ChangeField(const Change& change) : change_(change) {}

  void OnStart(Console& console) override {
    StartQuestions(console, change_.title);
    AskKey(console);
  }

  void OnLine(Console& console, const std::string& line) override {
    if (key_.empty()) {
      OnKey(console, line);
    } else {
      OnValue(console, line);
    }
  }

 private:
  void AskKey(Console& console) {
    key_.clear();
    lock_.Free();
    console.PrintLine();
    console.Print(change_.keyQuestion);
  }

  void OnKey(Console& console, const std::string& line) {
    if (Leaves(line)) return console.Finish();
    const auto key = Upper(Trim(line));
    const auto record = console.Host().Data().Read(change_.file, key);
    if (!record) {
      console.PrintLine(key + " is not on file.");
      return AskKey(console);
    }
    auto& locks = console.Host().RecordLocks();
    if (!lock_.Take(locks, console.Port(), change_.file, key)) {
      console.PrintLine(key + " is in use by " +
                        console.Host().NameOf(locks.Holder(change_.file, key).value_or(0)) + ".");
      return AskKey(console);
    }
    key_ = key;
    console.PrintLine(vt::In(vt::kBold, Clean(Attribute(*record, 1))));
    ShowValue(console, *record);
    console.Print(change_.valueQuestion);
  }

  void OnValue(Console& console, const std::string& line) {
    if (Leaves(line)) return AskKey(console);
    const auto entered = Enter(change_.form, Trim(line));
    if (!entered || entered->size() > kLongestText) {
      console.PrintLine("That is no value for this field.");
      return console.Print(change_.valueQuestion);
    }
    // Read again: a request of this same session may have written in between.
    auto record = console.Host().Data().Read(change_.file, key_).value_or("");
    const auto old = Number(Attribute(record, change_.attribute));
    auto value = *entered;
    if (change_.way == Way::Add) value = std::to_string(Plus(old, Number(value)));
    if (change_.way == Way::Subtract) value = std::to_string(Plus(old, -Number(value)));
    SetAttribute(record, change_.attribute, value);
    console.Host().Data().Write(change_.file, key_, record);
    ShowValue(console, record);
    console.PrintLine("Stored.");
    AskKey(console);
  }

  void ShowValue(Console& console, const std::string& record) {
    const auto shown = Show(change_.form, Attribute(record, change_.attribute));
    console.PrintLine(std::string(change_.field) + ": " + vt::In(vt::kBold, Clean(shown)));
  }

  const Change& change_;
  std::string key_;
  RecordLock lock_;
};

}  // namespace

std::unique_ptr<Program> MakeChange(std::string_view id) {
  const auto* change = std::find_if(std::begin(kChanges), std::end(kChanges),
                                    [id](const Change& c) { return c.id == id; });
  if (change == std::end(kChanges)) return nullptr;
  return std::make_unique<ChangeField>(*change);
}

}  // namespace quorvel::demohost
