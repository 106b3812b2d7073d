#include "demohost/Menus.h"

#include <algorithm>
#include <vector>

#include "demohost/Frames.h"
#include "demohost/Marks.h"
#include "demohost/Record.h"

namespace quorvel::demohost {
namespace {

constexpr std::size_t kTabLimit = 10;
constexpr std::size_t kOptionLimit = 100;

struct Line {
  const char* menu;
  const char* tab;
  const char* text;
  const char* id;  // third character "*": a report; ending in "MENU": a menu; else a program
};

struct Title {
  const char* menu;
  const char* title;
};

constexpr Title kTitles[] = {
    {kMainMenu, "Main Menu"},
    {"AR.MENU", "Customers and Receivables"},
    {"AR.CREDIT.MENU", "Credit Control"},
    {"IC.MENU", "Items and Stock"},
    {"IC.COUNT.MENU", "Stock Control"},
    {"SO.MENU", "Sales Orders"},
    {"RP.MENU", "All Reports"},
    {"RP.WS.MENU", "Reports for the Workstation"},
    {"UT.MENU", "Utilities"},
};

// Tabs come in the order of their first option.
constexpr Line kLines[] = {
    {kMainMenu, "Customers", "Customers and Receivables Menu", "AR.MENU"},
    {kMainMenu, "Customers", "Customer Inquiry", "AR.CUST.INQ"},
    {kMainMenu, "Customers", "Customers", "AR.CUSTOMER"},
    {kMainMenu, "Customers", "Customers' Prices", "AR.PRICE"},
    {kMainMenu, "Customers", "Customers of a City", "AR.CITY"},
    {kMainMenu, "Customers", "Sales Rep Inquiry", "AR.REP.INQ"},
    {kMainMenu, "Customers", "Change Telephone Number", "AR.PHONE"},
    {kMainMenu, "Customers", "Change Credit Limit", "AR.LIMIT"},
    {kMainMenu, "Customers", "Post Cash Received", "AR.CASH"},
    {kMainMenu, "Customers", "Customer List", "AR*CUSTLIST"},
    {kMainMenu, "Customers", "Customer Balances", "AR*BALANCES"},
    {kMainMenu, "Items", "Items and Stock Menu", "IC.MENU"},
    {kMainMenu, "Items", "Item Inquiry", "IC.ITEM.INQ"},
    {kMainMenu, "Items", "Items", "IC.ITEM"},
    {kMainMenu, "Items", "Vendor Inquiry", "IC.VENDOR.INQ"},
    {kMainMenu, "Items", "Receive Stock", "IC.RECEIVE"},
    {kMainMenu, "Items", "Change Selling Price", "IC.PRICE"},
    {kMainMenu, "Items", "Change Bin Location", "IC.BIN"},
    {kMainMenu, "Items", "Item List", "IC*ITEMLIST"},
    {kMainMenu, "Items", "Price List", "IC*PRICES"},
    {kMainMenu, "Orders", "Sales Orders Menu", "SO.MENU"},
    {kMainMenu, "Orders", "Order Inquiry", "SO.ORDER.INQ"},
    {kMainMenu, "Orders", "Sales Orders", "SO.ORDER"},
    {kMainMenu, "Orders", "Order Listing on the Screen", "SO.LIST"},
    {kMainMenu, "Orders", "Enter an Order", "SO.ENTER"},
    {kMainMenu, "Orders", "Ship an Order", "SO.SHIP"},
    {kMainMenu, "Orders", "Cancel an Order", "SO.CANCEL"},
    {kMainMenu, "Orders", "Open Orders", "SO*OPEN"},
    {kMainMenu, "Orders", "Order Register", "SO*ORDERS"},
    {kMainMenu, "Reports", "All Reports Menu", "RP.MENU"},
    {kMainMenu, "Reports", "Reports for the Workstation Menu", "RP.WS.MENU"},
    {kMainMenu, "Reports", "Customers over Credit Limit", "AR*OVERLIMIT"},
    {kMainMenu, "Reports", "Customer Contacts", "AR*CONTACTS"},
    {kMainMenu, "Reports", "Stock Valuation", "IC*STOCK"},
    {kMainMenu, "Reports", "Items to Reorder", "IC*REORDER"},
    {kMainMenu, "Reports", "Shipped Orders", "SO*SHIPPED"},
    {kMainMenu, "Reports", "Orders by Customer", "SO*BYCUST"},
    {kMainMenu, "Reports", "Orders by Sales Rep", "SO*BYREP"},
    {kMainMenu, "Utilities", "Utilities Menu", "UT.MENU"},
    {kMainMenu, "Utilities", "Command Prompt", "UT.TCL"},
    {kMainMenu, "Utilities", "Who Is Logged On", "UT.WHO"},
    {kMainMenu, "Utilities", "Send a Message to All Users", "UT.BROADCAST"},
    {kMainMenu, "Utilities", "Message Box Demonstration", "UT.MSGBOX"},
    {kMainMenu, "Utilities", "Terminal Test Card", "UT.CARD"},
    {kMainMenu, "Utilities", "Close the Month", "UT.CLOSE"},
    {kMainMenu, "Utilities", "Change My Password", "UT.PASSWORD"},
    {kMainMenu, "Utilities", "File Statistics", "UT*FILES"},

    {"AR.MENU", "Inquiry", "Customer Inquiry", "AR.CUST.INQ"},
    {"AR.MENU", "Inquiry", "Sales Rep Inquiry", "AR.REP.INQ"},
    {"AR.MENU", "Inquiry", "Customers of a City", "AR.CITY"},
    {"AR.MENU", "Maintenance", "Customers", "AR.CUSTOMER"},
    {"AR.MENU", "Maintenance", "Customers' Prices", "AR.PRICE"},
    {"AR.MENU", "Maintenance", "Credit Control Menu", "AR.CREDIT.MENU"},
    {"AR.MENU", "Maintenance", "Change Telephone Number", "AR.PHONE"},
    {"AR.MENU", "Maintenance", "Post Cash Received", "AR.CASH"},
    {"AR.MENU", "Reports", "Customer List", "AR*CUSTLIST"},
    {"AR.MENU", "Reports", "Customer Balances", "AR*BALANCES"},
    {"AR.MENU", "Reports", "Customer Contacts", "AR*CONTACTS"},

    {"AR.CREDIT.MENU", "Credit", "Change Credit Limit", "AR.LIMIT"},
    {"AR.CREDIT.MENU", "Credit", "Change Payment Terms", "AR.TERMS"},
    {"AR.CREDIT.MENU", "Credit", "Customers over Credit Limit", "AR*OVERLIMIT"},

    {"IC.MENU", "Inquiry", "Item Inquiry", "IC.ITEM.INQ"},
    {"IC.MENU", "Inquiry", "Vendor Inquiry", "IC.VENDOR.INQ"},
    {"IC.MENU", "Maintenance", "Items", "IC.ITEM"},
    {"IC.MENU", "Maintenance", "Stock Control Menu", "IC.COUNT.MENU"},
    {"IC.MENU", "Maintenance", "Change Selling Price", "IC.PRICE"},
    {"IC.MENU", "Reports", "Item List", "IC*ITEMLIST"},
    {"IC.MENU", "Reports", "Price List", "IC*PRICES"},
    {"IC.MENU", "Reports", "Vendor List", "IC*VENDORS"},

    {"IC.COUNT.MENU", "Stock", "Receive Stock", "IC.RECEIVE"},
    {"IC.COUNT.MENU", "Stock", "Enter a Stock Count", "IC.COUNT"},
    {"IC.COUNT.MENU", "Stock", "Change Reorder Level", "IC.LEVEL"},
    {"IC.COUNT.MENU", "Stock", "Change Bin Location", "IC.BIN"},
    {"IC.COUNT.MENU", "Reports", "Stock by Bin", "IC*BINS"},
    {"IC.COUNT.MENU", "Reports", "Stock Valuation", "IC*STOCK"},
    {"IC.COUNT.MENU", "Reports", "Items to Reorder", "IC*REORDER"},

    {"SO.MENU", "Orders", "Order Inquiry", "SO.ORDER.INQ"},
    {"SO.MENU", "Orders", "Sales Orders", "SO.ORDER"},
    {"SO.MENU", "Orders", "Enter an Order", "SO.ENTER"},
    {"SO.MENU", "Orders", "Ship an Order", "SO.SHIP"},
    {"SO.MENU", "Orders", "Cancel an Order", "SO.CANCEL"},
    {"SO.MENU", "Orders", "Change Customer Order Number", "SO.PONUMBER"},
    {"SO.MENU", "Reports", "Order Listing on the Screen", "SO.LIST"},
    {"SO.MENU", "Reports", "Open Orders", "SO*OPEN"},
    {"SO.MENU", "Reports", "Order Register", "SO*ORDERS"},

    {"RP.MENU", "Customers", "Customer List", "AR*CUSTLIST"},
    {"RP.MENU", "Customers", "Customer Balances", "AR*BALANCES"},
    {"RP.MENU", "Customers", "Customers over Credit Limit", "AR*OVERLIMIT"},
    {"RP.MENU", "Customers", "Customer Contacts", "AR*CONTACTS"},
    {"RP.MENU", "Items", "Item List", "IC*ITEMLIST"},
    {"RP.MENU", "Items", "Price List", "IC*PRICES"},
    {"RP.MENU", "Items", "Stock Valuation", "IC*STOCK"},
    {"RP.MENU", "Items", "Stock by Bin", "IC*BINS"},
    {"RP.MENU", "Items", "Items to Reorder", "IC*REORDER"},
    {"RP.MENU", "Items", "Vendor List", "IC*VENDORS"},
    {"RP.MENU", "Orders", "Order Register", "SO*ORDERS"},
    {"RP.MENU", "Orders", "Open Orders", "SO*OPEN"},
    {"RP.MENU", "Orders", "Shipped Orders", "SO*SHIPPED"},
    {"RP.MENU", "Orders", "Orders by Customer", "SO*BYCUST"},
    {"RP.MENU", "Orders", "Orders by Sales Rep", "SO*BYREP"},

    {"RP.WS.MENU", "Captured", "Customer List", "RP*CUSTOMERS"},
    {"RP.WS.MENU", "Captured", "Stock Count Sheets, 10,000 Lines", "RP*STOCKCOUNT"},
    {"RP.WS.MENU", "Captured", "Ledger, 1,000,000 Lines", "RP*LEDGER"},
    {"RP.WS.MENU", "Captured", "Balances, Printer Codes Stripped", "RP*BALANCES"},
    {"RP.WS.MENU", "Captured", "Price List, to a Program", "RP*PRICES"},
    {"RP.WS.MENU", "Captured", "Reminder, by Fax", "RP*REMINDER"},
    {"RP.WS.MENU", "Captured", "Vendors, Ended in the Last Block", "RP*VENDORS"},
    {"RP.WS.MENU", "Workstation", "Customer Labels on Its Printer", "RP.LABELS"},
    {"RP.WS.MENU", "Workstation", "Show a Picture", "UT.PICTURE"},
    {"RP.WS.MENU", "Workstation", "Start a Program", "UT.DESKTOP"},

    {"UT.MENU", "System", "Who Is Logged On", "UT.WHO"},
    {"UT.MENU", "System", "Record Locks", "UT.LOCKS"},
    {"UT.MENU", "System", "File Statistics", "UT*FILES"},
    {"UT.MENU", "System", "Close the Month", "UT.CLOSE"},
    {"UT.MENU", "Session", "Command Prompt", "UT.TCL"},
    {"UT.MENU", "Session", "Change My Password", "UT.PASSWORD"},
    {"UT.MENU", "Session", "Send a Message to All Users", "UT.BROADCAST"},
    {"UT.MENU", "Session", "Message Box Demonstration", "UT.MSGBOX"},
    {"UT.MENU", "Session", "Terminal Test Card", "UT.CARD"},
};

std::string SampleRecord(const Title& menu) {
  std::vector<std::string> tabs, texts, tabOf, ids;
  for (const auto& line : kLines) {
    if (std::string_view(line.menu) != menu.menu) continue;
    if (std::find(tabs.begin(), tabs.end(), line.tab) == tabs.end()) tabs.emplace_back(line.tab);
    texts.emplace_back(line.text);
    tabOf.emplace_back(line.tab);
    ids.emplace_back(line.id);
  }
  return Join({menu.title, Join(tabs, kVm), Join(texts, kVm), Join(tabOf, kVm), Join(ids, kVm)},
              kAm);
}

}  // namespace

void SeedMenus(Store& store) {
  for (const auto& title : kTitles) store.Write("MENUS", title.menu, SampleRecord(title));
}

std::optional<std::string> MenuRecord(Store& store, std::string_view id) {
  if (!id.ends_with("MENU")) return std::nullopt;
  if (auto record = store.Read("MENUS", id); record && !record->empty()) return record;
  for (const auto& title : kTitles) {
    if (id == title.menu) return SampleRecord(title);
  }
  return std::nullopt;
}

std::string MenuFrame(std::string_view id, std::string_view record, std::string_view who) {
  auto tabs = Split(Attribute(record, 2), kVm);
  const auto texts = Split(Attribute(record, 3), kVm);
  auto tabOf = Split(Attribute(record, 4), kVm);
  auto ids = Split(Attribute(record, 5), kVm);
  if (tabs.size() > kTabLimit) tabs.resize(kTabLimit);
  const auto count = std::min(texts.size(), kOptionLimit);
  tabOf.resize(count);
  ids.resize(count);

  std::string menuText = Attribute(record, 1) + kAm + Join(tabs, kVm);
  std::string commands;  // attribute 1 is empty: the client passes it over
  for (std::size_t i = 0; i < count; ++i) {
    menuText += kAm + texts[i] + kVm + tabOf[i];
    commands += kAm + ids[i];
  }
  return Frame({"~STARTMENU~", id, menuText, commands, who});
}

}  // namespace quorvel::demohost
