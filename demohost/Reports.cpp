#include "demohost/Reports.h"

#include <algorithm>
#include <span>

#include "demohost/Application.h"
#include "demohost/Marks.h"
#include "demohost/Record.h"
#include "demohost/Values.h"

namespace quorvel::demohost {

struct Column {
  const char* heading;
  std::size_t width;  // of all columns with one blank between them: at most 79
  Value value;
  bool total = false;
};

enum class Only { All, OverLimit, BelowLevel, Open, Shipped };

struct Report {
  const char* id;
  const char* title;
  const char* file;
  std::span<const Column> columns;
  Only only = Only::All;
  int sortBy = 0;  // column number from 1; 0 in the order of the keys
};

namespace {

constexpr std::size_t kWidest = 79;  // of a stored value no more than a line of it is kept

constexpr Value kKey{Source::Key};
constexpr Value Text(int attribute) {
  return {Source::Stored, attribute, Form::Text};
}
constexpr Value Whole(int attribute) {
  return {Source::Stored, attribute, Form::Whole};
}
constexpr Value Money(int attribute) {
  return {Source::Stored, attribute, Form::Money};
}
constexpr Value kAvailable{Source::Available, 0, Form::Money};
constexpr Value kStockValue{Source::StockValue, 0, Form::Money};
constexpr Value kOrderTotal{Source::OrderTotal, 0, Form::Money};
constexpr Value kLineCount{Source::LineCount, 0, Form::Whole};
constexpr Value kOrderDate{Source::Stored, order::Date, Form::Date};
constexpr Value kOrderCustomer{Source::CustomerName, order::Customer};
constexpr Value kOrderRep{Source::RepName, order::Rep};

constexpr Column kCustomerList[] = {{"Number", 7, kKey},
                                    {"Name", 26, Text(customer::Name)},
                                    {"City", 12, Text(customer::City)},
                                    {"Telephone", 10, Text(customer::Phone)},
                                    {"Terms", 6, Text(customer::Terms)},
                                    {"Rep", 4, Text(customer::Rep)}};
constexpr Column kBalances[] = {{"Number", 7, kKey},
                                {"Name", 26, Text(customer::Name)},
                                {"Limit", 13, Money(customer::Limit)},
                                {"Balance", 13, Money(customer::Balance), true},
                                {"Available", 13, kAvailable}};
constexpr Column kContacts[] = {{"Number", 7, kKey},
                                {"Name", 26, Text(customer::Name)},
                                {"Telephone", 10, Text(customer::Phone)},
                                {"Contacts", 32, Text(customer::Contacts)}};
constexpr Column kItemList[] = {{"Item", 6, kKey},
                                {"Description", 30, Text(item::Name)},
                                {"Group", 9, Text(item::Group)},
                                {"Unit", 5, Text(item::Unit)},
                                {"On hand", 9, Whole(item::OnHand)},
                                {"Bin", 6, Text(item::Bin)}};
constexpr Column kPrices[] = {{"Item", 6, kKey},
                              {"Description", 30, Text(item::Name)},
                              {"Unit", 5, Text(item::Unit)},
                              {"Price", 12, Money(item::Price)}};
constexpr Column kStock[] = {{"Item", 6, kKey},
                             {"Description", 30, Text(item::Name)},
                             {"On hand", 9, Whole(item::OnHand)},
                             {"Cost", 11, Money(item::Cost)},
                             {"Value", 14, kStockValue, true}};
constexpr Column kReorder[] = {{"Item", 6, kKey},
                               {"Description", 30, Text(item::Name)},
                               {"On hand", 9, Whole(item::OnHand)},
                               {"Level", 9, Whole(item::Level)},
                               {"Vendor", 20, {Source::VendorName, item::Vendor}}};
constexpr Column kBins[] = {{"Bin", 6, Text(item::Bin)},
                            {"Item", 6, kKey},
                            {"Description", 30, Text(item::Name)},
                            {"On hand", 9, Whole(item::OnHand)}};
constexpr Column kOrders[] = {{"Order", 6, kKey},
                              {"Date", 11, kOrderDate},
                              {"Customer", 24, kOrderCustomer},
                              {"Status", 9, Text(order::Status)},
                              {"Lines", 5, kLineCount},
                              {"Total", 13, kOrderTotal, true}};
constexpr Column kByCustomer[] = {{"Customer", 24, kOrderCustomer},
                                  {"Order", 6, kKey},
                                  {"Date", 11, kOrderDate},
                                  {"Status", 9, Text(order::Status)},
                                  {"Total", 13, kOrderTotal, true}};
constexpr Column kByRep[] = {{"Sales rep", 16, kOrderRep},
                             {"Order", 6, kKey},
                             {"Customer", 24, kOrderCustomer},
                             {"Status", 9, Text(order::Status)},
                             {"Total", 13, kOrderTotal, true}};
constexpr Column kVendors[] = {{"Vendor", 6, kKey},
                               {"Name", 24, Text(1)},
                               {"City", 12, Text(2)},
                               {"Telephone", 10, Text(3)},
                               {"Terms", 6, Text(4)}};

const Report kReports[] = {
    {"AR*CUSTLIST", "Customer List", "CUSTOMERS", kCustomerList},
    {"AR*BALANCES", "Customer Balances", "CUSTOMERS", kBalances},
    {"AR*OVERLIMIT", "Customers over Credit Limit", "CUSTOMERS", kBalances, Only::OverLimit},
    {"AR*CONTACTS", "Customer Contacts", "CUSTOMERS", kContacts, Only::All, 2},
    {"IC*ITEMLIST", "Item List", "ITEMS", kItemList},
    {"IC*PRICES", "Price List", "ITEMS", kPrices, Only::All, 2},
    {"IC*STOCK", "Stock Valuation", "ITEMS", kStock},
    {"IC*REORDER", "Items to Reorder", "ITEMS", kReorder, Only::BelowLevel},
    {"IC*BINS", "Stock by Bin", "ITEMS", kBins, Only::All, 1},
    {"IC*VENDORS", "Vendor List", "VENDORS", kVendors},
    {"SO*ORDERS", "Order Register", "ORDERS", kOrders},
    {"SO*OPEN", "Open Orders", "ORDERS", kOrders, Only::Open},
    {"SO*SHIPPED", "Shipped Orders", "ORDERS", kOrders, Only::Shipped},
    {"SO*BYCUST", "Orders by Customer", "ORDERS", kByCustomer, Only::All, 1},
    {"SO*BYREP", "Orders by Sales Rep", "ORDERS", kByRep, Only::All, 1},
};

bool Chosen(Only only, std::string_view record) {
  const auto number = [&](int attribute) { return Number(Attribute(record, attribute)); };
  switch (only) {
    case Only::All:
      return true;
    case Only::OverLimit:
      return number(customer::Balance) > number(customer::Limit);
    case Only::BelowLevel:
      return number(item::OnHand) < number(item::Level);
    case Only::Open:
      return Attribute(record, order::Status) == "OPEN";
    case Only::Shipped:
      return Attribute(record, order::Status) == "SHIPPED";
  }
  return false;
}

std::string Cell(const Column& column, std::string_view text) {
  return column.value.form == Form::Whole || column.value.form == Form::Money
             ? Right(text, column.width)
             : Left(text, column.width);
}

}  // namespace

const Report* FindReport(std::string_view id) {
  const auto* report = std::find_if(std::begin(kReports), std::end(kReports),
                                    [id](const Report& r) { return r.id == id; });
  return report == std::end(kReports) ? nullptr : report;
}

const Report* ListOf(std::string_view file) {
  const auto* report = std::find_if(std::begin(kReports), std::end(kReports),
                                    [file](const Report& r) { return r.file == file; });
  return report == std::end(kReports) ? nullptr : report;
}

Listing Run(const Report& report, Console& console) {
  auto& store = console.Host().Data();
  std::vector<std::vector<std::string>> rows;  // stored forms
  store.ForEach(report.file, [&](const std::string& key, const std::string& record) {
    if (!Chosen(report.only, record)) return true;
    auto& row = rows.emplace_back();
    for (const auto& column : report.columns)
      row.push_back(Stored(store, column.value, key, record).substr(0, kWidest));
    return true;
  });
  if (report.sortBy > 0) {
    const auto by = static_cast<std::size_t>(report.sortBy - 1);
    std::stable_sort(rows.begin(), rows.end(),
                     [by](const auto& a, const auto& b) { return a[by] < b[by]; });
  }

  std::string headings, totals;
  std::vector<std::string> body(rows.size());
  bool totalled = false;
  for (std::size_t c = 0; c < report.columns.size(); ++c) {
    const auto& column = report.columns[c];
    long long total = 0;
    for (std::size_t r = 0; r < rows.size(); ++r) {
      body[r] += Cell(column, Show(column.value.form, rows[r][c])) + " ";
      total = Plus(total, Number(rows[r][c]));
    }
    headings += Cell(column, column.heading) + " ";
    totals += Cell(column, column.total ? Show(Form::Money, std::to_string(total)) : "") + " ";
    totalled = totalled || column.total;
  }
  if (totalled && !rows.empty()) body.push_back(std::move(totals));
  body.push_back(std::to_string(rows.size()) + " records listed.");
  const auto date = ShowDate(console.Host().Now());
  return {std::string(report.title) + "   " + date, std::move(headings), std::move(body)};
}

Listing ListFile(std::string_view file, Console& console) {
  if (const auto* report = ListOf(file)) return Run(*report, console);
  std::vector<std::string> body;
  console.Host().Data().ForEach(file, [&](const std::string& key, const std::string& record) {
    body.push_back(Left(key, 24) + " " + Left(Attribute(record, 1), 54));
    return true;
  });
  body.push_back(std::to_string(body.size()) + " records listed.");
  return {"File " + Clean(file), Left("Key", 24) + " " + Left("Attribute 1", 54), std::move(body)};
}

}  // namespace quorvel::demohost
