#include "demohost/Inquiry.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "demohost/Application.h"
#include "demohost/Marks.h"
#include "demohost/Record.h"
#include "demohost/Values.h"
#include "demohost/Vt.h"

namespace quorvel::demohost {
namespace {

struct Place {
  int row, column;
  const char* label;
  std::size_t width;
  Value value;
};

// A column of the lower part, which shows the values of multivalued attributes in rows.
struct Detail {
  const char* heading;
  int column;
  std::size_t width;
  int attribute;
  Form form;
};

struct InquiryForm {
  const char* id;
  const char* title;
  const char* file;
  const char* question;
  bool byName;  // what is no key is looked for in attribute 1
  std::span<const Place> places;
  std::span<const Detail> details;
};

// The form fills a screen of 24 rows by 80 columns; larger ones leave the rest free.
constexpr int kHeight = 21;
constexpr int kWidth = 80;
constexpr int kRule = 10;
constexpr int kQuestionRow = 22;
constexpr int kMessageRow = 23;
constexpr int kDetailRows = kHeight - kRule - 3;
constexpr int kLabelWidth = 14;

constexpr Value Text(int attribute) {
  return {Source::Stored, attribute, Form::Text};
}
constexpr Value Money(int attribute) {
  return {Source::Stored, attribute, Form::Money};
}
constexpr Value Whole(int attribute) {
  return {Source::Stored, attribute, Form::Whole};
}
constexpr Value kKey{Source::Key};

constexpr Place kCustomer[] = {
    {3, 4, "Customer", 10, kKey},
    {4, 4, "Name", 26, Text(customer::Name)},
    {5, 4, "Street", 26, Text(customer::Street)},
    {6, 4, "City", 26, Text(customer::City)},
    {7, 4, "Zip", 10, Text(customer::Zip)},
    {8, 4, "Telephone", 16, Text(customer::Phone)},
    {3, 46, "Terms", 8, Text(customer::Terms)},
    {4, 46, "Credit limit", 16, Money(customer::Limit)},
    {5, 46, "Balance", 16, Money(customer::Balance)},
    {6, 46, "Available", 16, {Source::Available, 0, Form::Money}},
    {8, 46, "Sales rep", 16, {Source::RepName, customer::Rep}},
};
constexpr Detail kCustomerDetails[] = {{"Contacts", 4, 40, customer::Contacts, Form::Text}};

constexpr Place kItem[] = {
    {3, 4, "Item", 10, kKey},
    {4, 4, "Description", 26, Text(item::Name)},
    {5, 4, "Group", 10, Text(item::Group)},
    {6, 4, "Unit", 6, Text(item::Unit)},
    {7, 4, "Bin", 8, Text(item::Bin)},
    {8, 4, "Vendor", 26, {Source::VendorName, item::Vendor}},
    {3, 46, "On hand", 12, Whole(item::OnHand)},
    {4, 46, "Reorder level", 12, Whole(item::Level)},
    {6, 46, "Cost", 14, Money(item::Cost)},
    {7, 46, "Price", 14, Money(item::Price)},
    {8, 46, "Stock value", 16, {Source::StockValue, 0, Form::Money}},
};

constexpr Place kOrder[] = {
    {3, 4, "Order", 10, kKey},
    {4, 4, "Date", 12, {Source::Stored, order::Date, Form::Date}},
    {5, 4, "Customer", 10, Text(order::Customer)},
    {6, 4, "Name", 26, {Source::CustomerName, order::Customer}},
    {3, 46, "Status", 12, Text(order::Status)},
    {4, 46, "Their number", 16, Text(order::PoNumber)},
    {5, 46, "Sales rep", 16, {Source::RepName, order::Rep}},
    {6, 46, "Order total", 16, {Source::OrderTotal, 0, Form::Money}},
};
constexpr Detail kOrderDetails[] = {{"Item", 4, 10, order::Items, Form::Text},
                                    {"Quantity", 18, 10, order::Quantities, Form::Whole},
                                    {"Price", 32, 14, order::Prices, Form::Money}};

constexpr Place kVendor[] = {
    {3, 4, "Vendor", 10, kKey},        {4, 4, "Name", 26, Text(1)},   {5, 4, "City", 26, Text(2)},
    {3, 46, "Telephone", 16, Text(3)}, {4, 46, "Terms", 16, Text(4)},
};

constexpr Place kRep[] = {
    {3, 4, "Sales rep", 10, kKey},
    {4, 4, "Name", 26, Text(1)},
    {5, 4, "Office", 26, Text(2)},
    {6, 4, "Telephone", 16, Text(3)},
};

const InquiryForm kForms[] = {
    {"AR.CUST.INQ", "Customer Inquiry", "CUSTOMERS", "Customer number or part of the name: ", true,
     kCustomer, kCustomerDetails},
    {"IC.ITEM.INQ",
     "Item Inquiry",
     "ITEMS",
     "Item number or part of the description: ",
     true,
     kItem,
     {}},
    {"SO.ORDER.INQ", "Order Inquiry", "ORDERS", "Order number: ", false, kOrder, kOrderDetails},
    {"IC.VENDOR.INQ",
     "Vendor Inquiry",
     "VENDORS",
     "Vendor number or part of the name: ",
     true,
     kVendor,
     {}},
    {"AR.REP.INQ",
     "Sales Rep Inquiry",
     "REPS",
     "Sales rep number or part of the name: ",
     true,
     kRep,
     {}},
};

std::string Cell(const Detail& detail, std::string_view text) {
  return detail.form == Form::Text ? Left(text, detail.width) : Right(text, detail.width);
}

using Found = std::optional<std::pair<std::string, std::string>>;

Found Find(Store& store, const InquiryForm& form, const std::string& entry) {
  if (auto record = store.Read(form.file, entry)) return std::pair{entry, *record};
  if (!form.byName) return std::nullopt;
  Found found;
  store.ForEach(form.file, [&](const std::string& key, const std::string& record) {
    if (Upper(Attribute(record, 1)).find(entry) != std::string::npos) found = {key, record};
    return !found;
  });
  return found;
}

class Inquiry final : public Program {
 public:
  explicit Inquiry(const InquiryForm& form) : form_(form) {}

  void OnStart(Console& console) override {
    console.Print(std::string(vt::kClear) + vt::Box(1, 1, kHeight, kWidth, form_.title));
    console.Print(vt::Rule(kRule, 1, kWidth));
    for (const auto& place : form_.places)
      console.Print(vt::At(place.row, place.column) + place.label);
    for (const auto& detail : form_.details)
      console.Print(vt::At(kRule + 1, detail.column) +
                    vt::In(vt::kUnderline, Cell(detail, detail.heading)));
    Ask(console, "An empty line or a point goes back to the menu.");
  }

  void OnLine(Console& console, const std::string& line) override {
    if (Leaves(line)) {
      console.Print(vt::kClear);
      return console.Finish();
    }
    const auto entry = Upper(Trim(line));
    const auto found = Find(console.Host().Data(), form_, entry);
    if (found) Fill(console, found->first, found->second);
    Ask(console, found ? "" : entry + " is not on file.");
  }

 private:
  void Fill(Console& console, const std::string& key, const std::string& record) {
    for (const auto& place : form_.places) {
      const auto stored = Stored(console.Host().Data(), place.value, key, record);
      console.Print(vt::At(place.row, place.column + kLabelWidth) +
                    vt::In(vt::kBold, Left(Show(place.value.form, stored), place.width)));
    }
    for (const auto& detail : form_.details) {
      const auto values = Split(Attribute(record, detail.attribute), kVm);
      for (int row = 0; row < kDetailRows; ++row) {
        const auto index = static_cast<std::size_t>(row);
        const auto text = index < values.size() ? Show(detail.form, values[index]) : std::string();
        console.Print(vt::At(kRule + 2 + row, detail.column) + Cell(detail, text));
      }
    }
  }

  // The message row first, so that the cursor is left behind the question.
  void Ask(Console& console, const std::string& message) {
    console.Print(vt::At(kMessageRow, 1) + std::string(vt::kClearLine));
    if (!message.empty()) console.Print(vt::In(vt::kReverse, message));
    console.Print(vt::At(kQuestionRow, 1) + std::string(vt::kClearLine) + form_.question);
  }

  const InquiryForm& form_;
};

}  // namespace

std::unique_ptr<Program> MakeInquiry(std::string_view id) {
  const auto* form = std::find_if(std::begin(kForms), std::end(kForms),
                                  [id](const InquiryForm& f) { return f.id == id; });
  if (form == std::end(kForms)) return nullptr;
  return std::make_unique<Inquiry>(*form);
}

}  // namespace quorvel::demohost
