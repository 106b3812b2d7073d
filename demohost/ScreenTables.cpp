// The screens of the trading company, as tables. Fields stand in the order of the Tab key.
#include <cstddef>

#include "demohost/Screens.h"
#include "demohost/Values.h"

namespace quorvel::demohost {
namespace {

// Rows and columns of 80 by 24 cells: prompts and fields of the left and of the right half.
constexpr int kLeft = 0, kLeftField = 18, kRight = 44, kRightField = 60;

// clang-format off

Screen Customers() {
  namespace f = customer_field;
  namespace a = customer;
  return {
      .id = "AR.CUSTOMER",
      .file = "CUSTOMERS",
      .program = "CUSTOMER.RULES",
      .files = "REPS CODES ORDERS PRICES",
      .order = "2 4 5 6 7 8 9 10 12 13 14 15 16 17 20 21",
      .texts = {{1, 1, "Customers", false}, {2, 1, "==========", false}, {3, kLeft, "Customer"},
                {5, kLeft, "Name"}, {6, kLeft, "Street"}, {7, kLeft, "City"}, {8, kLeft, "Zip"},
                {9, kLeft, "Telephone"}, {10, kLeft, "E-mail"}, {11, kLeft, "Sales rep"},
                {12, kLeft, "Account"}, {15, kLeft, "Contacts"}, {5, kRight, "Class"},
                {6, kRight, "Terms"}, {7, kRight, "Discount %"}, {8, kRight, "Limit"},
                {9, kRight, "Balance"}, {10, kRight, "Credit"}, {11, kRight, "Since"},
                {12, kRight, "Reviewed"}, {13, kRight, "Last order"}},
      .fields = {
    {.number = f::Key, .name = "CUST.NO", .row = 3, .column = kLeftField, .width = 6,
     .required = true, .display = f::Note, .hooks = "NYY"},
    {.number = f::Note, .name = "CUST.NOTE", .row = 3, .column = 27, .width = 40, .kind = '5'},
    {.number = f::Name, .name = "CUST.NAME", .row = 5, .column = kLeftField, .width = 27,
     .attribute = a::Name, .required = true},
    {.number = f::Street, .name = "CUST.STREET", .row = 6, .column = kLeftField, .width = 27,
     .attribute = a::Street},
    {.number = f::City, .name = "CUST.CITY", .row = 7, .column = kLeftField, .width = 20,
     .attribute = a::City},
    {.number = f::Zip, .name = "CUST.ZIP", .row = 8, .column = kLeftField, .width = 5,
     .attribute = a::Zip, .hooks = "NNY"},
    {.number = f::Phone, .name = "CUST.PHONE", .row = 9, .column = kLeftField, .width = 15,
     .attribute = a::Phone},
    {.number = f::Email, .name = "CUST.EMAIL", .row = 10, .column = kLeftField, .width = 99,
     .shown = 27, .attribute = a::Email, .hooks = "NY"},
    {.number = f::Rep, .name = "CUST.REP", .row = 11, .column = kLeftField, .width = 4,
     .attribute = a::Rep, .required = true, .display = f::RepName},
    {.number = f::RepName, .name = "CUST.REPNAME", .row = 11, .column = 24, .width = 20,
     .kind = '4'},
    {.number = f::Account, .name = "CUST.ACCOUNT", .row = 12, .column = kLeftField, .width = 6,
     .attribute = a::Account},
    {.number = f::Contacts, .name = "CUST.CONTACTS", .row = 15, .column = kLeftField, .width = 99,
     .shown = 50, .attribute = a::Contacts, .value = "*", .hooks = "NYNY"},
    {.number = f::Class, .name = "CUST.CLASS", .row = 5, .column = kRightField, .width = 3,
     .attribute = a::Class, .hooks = "NNY"},
    {.number = f::Terms, .name = "CUST.TERMS", .row = 6, .column = kRightField, .width = 7,
     .attribute = a::Terms, .required = true, .preset = "NET30", .hooks = "NNY"},
    {.number = f::Discount, .name = "CUST.DISCOUNT", .row = 7, .column = kRightField, .width = 7,
     .attribute = a::Discount},
    {.number = f::Limit, .name = "CUST.LIMIT", .row = 8, .column = kRightField, .width = 12,
     .type = '2', .attribute = a::Limit, .preset = "100000", .hooks = "YYY"},
    {.number = f::Balance, .name = "CUST.BALANCE", .row = 9, .column = kRightField, .width = 12,
     .type = '2', .attribute = a::Balance, .kind = '4', .balance = true},
    {.number = f::Credit, .name = "CUST.CREDIT", .row = 10, .column = kRightField, .width = 12,
     .kind = '4'},
    {.number = f::Since, .name = "CUST.SINCE", .row = 11, .column = kRightField, .width = 10,
     .type = '3', .attribute = a::Since, .kind = '2'},
    {.number = f::Reviewed, .name = "CUST.REVIEWED", .row = 12, .column = kRightField, .width = 12,
     .type = '3', .attribute = a::Reviewed, .kind = '3'},
    {.number = f::LastOrder, .name = "CUST.LASTORDER", .row = 13, .column = kRightField,
     .width = 10, .type = '3', .attribute = a::LastOrder, .kind = '4'},
    // Filled by the rules; no attribute of the file, but it needs a number to be a balance.
    {.number = f::OpenOrders, .name = "CUST.OPENORDERS", .row = 99, .column = 99, .width = 4,
     .attribute = 900, .kind = '5', .balance = true},
      }};
}

Screen Items() {
  namespace f = item_field;
  namespace a = item;
  return {.id = "IC.ITEM",
          .file = "ITEMS",
          .program = "ITEM.RULES",
          .files = "VENDORS CODES PRICES",
          .order = "2 4 5 6 8 9 10 11 12 13 14 16 17 18 19",
          .texts = {{1, 1, "Items", false}, {2, 1, "----------", false}, {3, kLeft, "Item"},
                {5, kLeft, "Description"}, {6, kLeft, "Group"}, {7, kLeft, "Unit"},
                {8, kLeft, "Catalogue"}, {9, kLeft, "Aisle"}, {10, kLeft, "Shelf"},
                {11, kLeft, "In a pack"}, {12, kLeft, "In a case"}, {5, kRight, "Cost"},
                {6, kRight, "Price"}, {7, kRight, "Margin %"}, {8, kRight, "On hand"},
                {9, kRight, "Reorder"}, {10, kRight, "Counted"}, {14, kLeft, "Vendor"},
                {15, kLeft, "Terms"}},
          .fields = {
    {.number = f::Key, .name = "ITEM.NO", .row = 3, .column = kLeftField, .width = 6,
     .required = true, .display = f::Note, .hooks = "NYY"},
    {.number = f::Note, .name = "ITEM.NOTE", .row = 3, .column = 27, .width = 40, .kind = '5'},
    {.number = f::Name, .name = "ITEM.NAME", .row = 5, .column = kLeftField, .width = 99,
     .shown = 27, .attribute = a::Name, .required = true},
    {.number = f::Group, .name = "ITEM.GROUP", .row = 6, .column = kLeftField, .width = 9,
     .attribute = a::Group, .required = true, .display = f::GroupName},
    {.number = f::Unit, .name = "ITEM.UNIT", .row = 7, .column = kLeftField, .width = 5,
     .attribute = a::Unit, .required = true, .preset = "EA"},
    {.number = f::GroupName, .name = "ITEM.GROUPNAME", .row = 6, .column = 29, .width = 15,
     .kind = '4'},
    {.number = f::Catalogue, .name = "ITEM.CATALOGUE", .row = 8, .column = kLeftField, .width = 10,
     .attribute = a::Catalogue},
              // Aisle and shelf are columns 1 and 3 to 4 of one value, "A-01".
    {.number = f::Aisle, .name = "ITEM.AISLE", .row = 9, .column = kLeftField, .width = 1,
     .attribute = a::Bin, .value = "1", .start = "1", .hooks = "NNY"},
    {.number = f::Shelf, .name = "ITEM.SHELF", .row = 10, .column = kLeftField, .width = 2,
     .attribute = a::Bin, .value = "1", .start = "3"},
              // Pieces in a pack and packs in a case, "12x6".
    {.number = f::Inner, .name = "ITEM.INNER", .row = 11, .column = kLeftField, .width = 4,
     .type = '2', .attribute = a::Pack, .value = "1", .start = "1", .delimiter = "x"},
    {.number = f::Packs, .name = "ITEM.PACKS", .row = 12, .column = kLeftField, .width = 4,
     .type = '2', .attribute = a::Pack, .value = "1", .start = "2", .delimiter = "x"},
    {.number = f::Cost, .name = "ITEM.COST", .row = 5, .column = kRightField, .width = 10,
     .type = '2', .attribute = a::Cost, .hooks = "NNY"},
    {.number = f::Price, .name = "ITEM.PRICE", .row = 6, .column = kRightField, .width = 10,
     .type = '2', .attribute = a::Price, .required = true, .hooks = "NYY"},
    {.number = f::Margin, .name = "ITEM.MARGIN", .row = 7, .column = kRightField, .width = 10,
     .kind = '4'},
    {.number = f::OnHand, .name = "ITEM.ONHAND", .row = 8, .column = kRightField, .width = 10,
     .type = '2', .attribute = a::OnHand, .kind = '2', .balance = true, .preset = "0"},
    {.number = f::Level, .name = "ITEM.LEVEL", .row = 9, .column = kRightField, .width = 10,
     .type = '2', .attribute = a::Level, .preset = "10"},
    {.number = f::Counted, .name = "ITEM.COUNTED", .row = 10, .column = kRightField, .width = 10,
     .type = '3', .attribute = a::Counted, .kind = '3'},
    {.number = f::Vendor, .name = "ITEM.VENDOR", .row = 14, .column = kLeftField, .width = 4,
     .attribute = a::Vendor, .required = true, .display = f::VendorTerms, .hooks = "NNY"},
    {.number = f::VendorName, .name = "ITEM.VENDORNAME", .row = 14, .column = 24, .width = 28,
     .kind = '4'},
              // Looked up by the vendor, and looks up its own meaning.
    {.number = f::VendorTerms, .name = "ITEM.VENDORTERMS", .row = 15, .column = kLeftField,
     .width = 7, .kind = '4', .display = f::TermsText},
    {.number = f::TermsText, .name = "ITEM.TERMSTEXT", .row = 15, .column = 27, .width = 25,
     .kind = '4'},
          }};
}

// The key is the customer's number and the item's, one behind the other. The order of the fields
// begins with the item, so that Enter on it leads to the customer, where Enter accepts the key.
Screen Prices() {
  namespace f = price_field;
  namespace a = price;
  return {.id = "AR.PRICE",
          .file = "PRICES",
          .program = "PRICE.RULES",
          .files = "CUSTOMERS ITEMS",
          .order = "4 2 6 8 9",
          .texts = {{1, 1, "Customers' Prices", false}, {3, kLeft, "Customer"}, {4, kLeft, "Item"},
                {6, kLeft, "Price"}, {7, kLeft, "List price"}, {8, kLeft, "Until"},
                {9, kLeft, "Agreed with"}},
          .fields = {
    {.number = f::Customer, .name = "PRICE.CUST", .row = 3, .column = kLeftField, .width = 6,
     .required = true, .display = f::CustomerName, .hooks = "NNY"},
    {.number = f::CustomerName, .name = "PRICE.CUSTNAME", .row = 3, .column = 27, .width = 28,
     .kind = '5'},
    {.number = f::Item, .name = "PRICE.ITEM", .row = 4, .column = kLeftField, .width = 6,
     .required = true, .display = f::ItemName, .hooks = "NNY"},
    {.number = f::ItemName, .name = "PRICE.ITEMNAME", .row = 4, .column = 27, .width = 28,
     .kind = '5'},
    {.number = f::Price, .name = "PRICE.PRICE", .row = 6, .column = kLeftField, .width = 10,
     .type = '2', .attribute = a::Amount, .required = true},
    {.number = f::ListPrice, .name = "PRICE.LISTPRICE", .row = 7, .column = kLeftField, .width = 10,
     .kind = '4'},
    {.number = f::Until, .name = "PRICE.UNTIL", .row = 8, .column = kLeftField, .width = 10,
     .type = '3', .attribute = a::Until},
    {.number = f::Remark, .name = "PRICE.REMARK", .row = 9, .column = kLeftField, .width = 40,
     .attribute = a::Remark},
          }};
}

void AddOrderLines(Screen& screen) {
  namespace f = order_field;
  static constexpr const char* kValues[f::kLines] = {"1", "2", "3", "4", "5"};
  for (int line = 0; line < f::kLines; ++line) {
    const int first = f::FirstLine + line * f::LineFields;
    const int row = 11 + line;
    const char* value = kValues[static_cast<std::size_t>(line)];
    const std::vector<ScreenField> fields{
    {.number = first + f::LineItem, .name = "LINE.ITEM", .row = row, .column = 4, .width = 6,
     .attribute = order::Items, .value = value, .display = first + f::LineText, .hooks = "NNY"},
    {.number = first + f::LineText, .name = "LINE.TEXT", .row = row, .column = 12, .width = 26,
     .kind = '4'},
    {.number = first + f::LineQuantity, .name = "LINE.QUANTITY", .row = row, .column = 39,
     .width = 6,
     .type = '2', .attribute = order::Quantities, .value = value, .hooks = "NYY"},
    {.number = first + f::LinePrice, .name = "LINE.PRICE", .row = row, .column = 47, .width = 10,
     .type = '2', .attribute = order::Prices, .value = value, .hooks = "NNY"},
    {.number = first + f::LineAmount, .name = "LINE.AMOUNT", .row = row, .column = kRightField,
     .width = 11, .kind = '4'},
    };
    screen.fields.insert(screen.fields.end(), fields.begin(), fields.end());
  }
}

Screen Orders() {
  namespace f = order_field;
  namespace a = order;
  Screen screen{
      .id = "SO.ORDER",
      .file = "ORDERS",
      .program = "ORDER.RULES",
      .files = "CUSTOMERS ITEMS REPS PRICES",
      .order = "2 4 5 6 8 9 10 12 14 15 17 19 20 22 24 25 27 29 30 32 34 35 38",
      .texts = {{1, 1, "Sales Orders", false}, {3, kLeft, "Order"}, {5, kLeft, "Customer"},
                {6, kLeft, "Their number"}, {7, kLeft, "Sales rep"}, {5, kRight + 4, "Date"},
                {6, kRight + 4, "Ship by"}, {7, kRight + 4, "Status"}, {9, 4, "Item", false},
                {9, 12, "Description", false}, {9, 39, "Quantity", false}, {9, 49, "Price", false},
                {9, 60, "Amount", false}, {17, 48, "Order total", false}, {19, kLeft, "Remark"}},
      .fields = {
    {.number = f::Key, .name = "ORDER.NO", .row = 3, .column = kLeftField, .width = 6,
     .required = true, .display = f::Note, .hooks = "NYY"},
    {.number = f::Note, .name = "ORDER.NOTE", .row = 3, .column = 27, .width = 40, .kind = '5'},
    {.number = f::Customer, .name = "ORDER.CUST", .row = 5, .column = kLeftField, .width = 6,
     .attribute = a::Customer, .kind = '2', .required = true, .display = f::CustomerName,
     .hooks = "NNY"},
    {.number = f::TheirNumber, .name = "ORDER.THEIRS", .row = 6, .column = kLeftField, .width = 15,
     .attribute = a::PoNumber},
    {.number = f::Rep, .name = "ORDER.REP", .row = 7, .column = kLeftField, .width = 4,
     .attribute = a::Rep, .display = f::RepName},
    {.number = f::CustomerName, .name = "ORDER.CUSTNAME", .row = 5, .column = 26,
     .width = 99, .shown = 23,
     .kind = '4'},
    {.number = f::Date, .name = "ORDER.DATE", .row = 5, .column = kRightField + 1, .width = 10,
     .type = '3', .attribute = a::Date, .kind = '2'},
    {.number = f::ShipBy, .name = "ORDER.SHIPBY", .row = 6, .column = kRightField + 1, .width = 10,
     .attribute = a::ShipBy},
    {.number = f::Status, .name = "ORDER.STATUS", .row = 7, .column = kRightField + 1, .width = 9,
     .attribute = a::Status, .kind = '3', .hooks = "NY"},
    {.number = f::RepName, .name = "ORDER.REPNAME", .row = 7, .column = 24, .width = 20,
     .kind = '4'},
      }};
  AddOrderLines(screen);
  screen.fields.insert(screen.fields.end(), {
    {.number = f::Total, .name = "ORDER.TOTAL", .row = 17, .column = kRightField, .width = 11,
     .kind = '4'},
    {.number = f::Remark, .name = "ORDER.REMARK", .row = 19, .column = kLeftField, .width = 99,
     .shown = 45, .attribute = a::Remark},
  });
  return screen;
}

// clang-format on

}  // namespace

const std::vector<Screen>& Screens() {
  static const std::vector<Screen> screens{Customers(), Items(), Prices(), Orders()};
  return screens;
}

}  // namespace quorvel::demohost
