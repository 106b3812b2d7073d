#include "demohost/Seed.h"

#include <array>
#include <string>

#include "demohost/Lists.h"
#include "demohost/Marks.h"
#include "demohost/Menus.h"
#include "demohost/Record.h"
#include "demohost/Screens.h"
#include "demohost/Values.h"

namespace quorvel::demohost {
namespace {

struct Customer {
  const char *key, *name, *street, *city, *zip, *phone, *terms, *limit, *balance, *rep, *contacts;
};

// Amounts in cents. Contacts are separated by "|".
constexpr Customer kCustomers[] = {
    {"C1001", "Alder & Finch Hardware", "12 Mill Lane", "Ashford", "40112", "555-0101", "NET30",
     "1500000", "482350", "R1", "Paula Finch|Sam Alder"},
    {"C1002", "Blue Heron Marine", "4 Quay Street", "Saltmouth", "40218", "555-0102", "NET30",
     "2500000", "1199900", "R2", "Dee Marsh"},
    {"C1003", "Carter Brothers Building", "88 Station Road", "Ashford", "40115", "555-0103",
     "NET60", "5000000", "5214475", "R1", "Ron Carter|Jill Carter"},
    {"C1004", "Dunmore School District", "1 College Green", "Dunmore", "40771", "555-0104", "NET60",
     "3000000", "0", "R3", "Accounts Office"},
    {"C1005", "Eastgate Garden Centre", "230 Ring Road", "Eastgate", "40330", "555-0105", "NET30",
     "800000", "215600", "R3", "Mona Reyes"},
    {"C1006", "Fairview Hotel", "9 Cliff Parade", "Saltmouth", "40220", "555-0106", "COD", "200000",
     "18950", "R2", "Desk|Housekeeping"},
    {"C1007", "Grove Street Repairs", "71 Grove Street", "Ashford", "40119", "555-0107", "COD",
     "100000", "0", "R1", "Lou Petty"},
    {"C1008", "Harbour Light Foods", "16 Dock Road", "Saltmouth", "40223", "555-0108", "NET30",
     "1200000", "1244310", "R2", "Ines Boyle"},
    {"C1009", "Iron Bridge Tools", "3 Forge Yard", "Kelham", "40561", "555-0109", "NET30",
     "2000000", "764025", "R4", "Walt Kemp|Bea Kemp"},
    {"C1010", "Juniper Interiors", "55 High Street", "Eastgate", "40331", "555-0110", "NET30",
     "900000", "98700", "R3", "Jo Tran"},
    {"C1011", "Kelham Council Works", "Town Hall", "Kelham", "40560", "555-0111", "NET60",
     "4000000", "2310080", "R4", "Works Office"},
    {"C1012", "Larch Farm Supplies", "Larch Farm", "Dunmore", "40775", "555-0112", "NET30",
     "1000000", "401125", "R3", "Ed Larch"},
    {"C1013", "Morrow Plumbing", "18 Water Lane", "Ashford", "40113", "555-0113", "NET30", "600000",
     "655290", "R1", "Tess Morrow"},
    {"C1014", "North Road Garage", "301 North Road", "Kelham", "40566", "555-0114", "COD", "150000",
     "0", "R4", "Phil Oakes"},
    {"C1015", "Orchard Primary Care", "7 Orchard Way", "Eastgate", "40335", "555-0115", "NET30",
     "500000", "77415", "R3", "Reception"},
    {"C1016", "Pike & Sons Timber", "Canal Wharf", "Dunmore", "40772", "555-0116", "NET60",
     "3500000", "1876600", "R3", "Hugh Pike"},
    {"C1017", "Quarry Lane Stone", "2 Quarry Lane", "Kelham", "40569", "555-0117", "NET30",
     "1800000", "320000", "R4", "Gwen Stott"},
    {"C1018", "Rowan Electric", "64 Park Road", "Ashford", "40117", "555-0118", "NET30", "1400000",
     "902745", "R1", "Al Rowan|Kit Shaw"},
    {"C1019", "Saltmouth Yacht Club", "The Marina", "Saltmouth", "40229", "555-0119", "NET30",
     "700000", "143350", "R2", "Secretary"},
    {"C1020", "Thornton Theatre", "5 Market Place", "Eastgate", "40332", "555-0120", "COD",
     "250000", "0", "R3", "Stage Door"},
    {"C1021", "Union Street Bakery", "40 Union Street", "Ashford", "40111", "555-0121", "COD",
     "120000", "20480", "R1", "Maya Dunn"},
    {"C1022", "Vale Engineering", "Unit 8, Vale Park", "Kelham", "40563", "555-0122", "NET60",
     "6000000", "3987215", "R4", "Purchasing|Stores"},
    {"C1023", "Willow Bank Nursery", "Willow Bank", "Dunmore", "40778", "555-0123", "NET30",
     "400000", "61275", "R3", "Anna Voss"},
    {"C1024", "Yardley Fencing", "11 Old Road", "Eastgate", "40339", "555-0124", "NET30", "1100000",
     "508860", "R3", "Carl Yardley"},
};

struct Item {
  const char *key, *name, *group, *unit, *onHand, *level, *cost, *price, *bin, *vendor;
};

constexpr Item kItems[] = {
    {"I101", "Claw hammer 16 oz", "TOOLS", "EA", "84", "30", "890", "1595", "A-01", "V1"},
    {"I102", "Ball peen hammer 24 oz", "TOOLS", "EA", "22", "25", "1050", "1850", "A-01", "V1"},
    {"I103", "Screwdriver set, 8 piece", "TOOLS", "SET", "61", "20", "1120", "2195", "A-02", "V1"},
    {"I104", "Adjustable wrench 10 in", "TOOLS", "EA", "47", "20", "1275", "2350", "A-02", "V1"},
    {"I105", "Hand saw 20 in", "TOOLS", "EA", "18", "24", "980", "1795", "A-03", "V1"},
    {"I106", "Tape measure 25 ft", "TOOLS", "EA", "140", "50", "450", "995", "A-03", "V1"},
    {"I107", "Spirit level 48 in", "TOOLS", "EA", "33", "15", "1890", "3495", "A-04", "V1"},
    {"I108", "Cordless drill 18 V", "POWER", "EA", "26", "12", "6450", "10995", "B-01", "V2"},
    {"I109", "Circular saw 7 in", "POWER", "EA", "14", "10", "7125", "12495", "B-01", "V2"},
    {"I110", "Orbital sander", "POWER", "EA", "9", "10", "3980", "6995", "B-02", "V2"},
    {"I111", "Angle grinder 4 in", "POWER", "EA", "21", "10", "3450", "5995", "B-02", "V2"},
    {"I112", "Drill bit set, 21 piece", "POWER", "SET", "55", "20", "1540", "2995", "B-03", "V2"},
    {"I113", "Wood screws 8 x 2 in", "FIXINGS", "BOX", "310", "100", "310", "695", "C-01", "V3"},
    {"I114", "Wood screws 6 x 1 in", "FIXINGS", "BOX", "275", "100", "260", "595", "C-01", "V3"},
    {"I115", "Machine bolts M8 x 40", "FIXINGS", "BOX", "96", "100", "545", "1095", "C-02", "V3"},
    {"I116", "Wall plugs, red", "FIXINGS", "BAG", "420", "150", "95", "250", "C-02", "V3"},
    {"I117", "Common nails 3 in", "FIXINGS", "LB", "180", "80", "140", "325", "C-03", "V3"},
    {"I118", "Hinges, brass 3 in", "FIXINGS", "PR", "64", "40", "385", "795", "C-03", "V3"},
    {"I119", "Copper pipe 15 mm, 3 m", "PLUMBING", "EA", "72", "60", "1120", "1895", "D-01", "V4"},
    {"I120", "Elbow joint 15 mm", "PLUMBING", "EA", "390", "200", "62", "145", "D-01", "V4"},
    {"I121", "Gate valve 22 mm", "PLUMBING", "EA", "38", "40", "740", "1395", "D-02", "V4"},
    {"I122", "Kitchen mixer tap", "PLUMBING", "EA", "17", "8", "4350", "7995", "D-02", "V4"},
    {"I123", "Twin cable 2.5 mm, 50 m", "ELECTRIC", "ROLL", "29", "20", "3275", "5495", "E-01",
     "V5"},
    {"I124", "Double socket, white", "ELECTRIC", "EA", "155", "60", "320", "695", "E-01", "V5"},
    {"I125", "LED lamp 9 W", "ELECTRIC", "EA", "640", "200", "145", "395", "E-02", "V5"},
    {"I126", "Consumer unit 10 way", "ELECTRIC", "EA", "7", "10", "5890", "9495", "E-02", "V5"},
    {"I127", "Interior emulsion, white 10 l", "PAINT", "TIN", "48", "30", "2150", "3895", "F-01",
     "V6"},
    {"I128", "Gloss, black 1 l", "PAINT", "TIN", "66", "30", "780", "1495", "F-01", "V6"},
    {"I129", "Wood stain, oak 2.5 l", "PAINT", "TIN", "23", "25", "1420", "2595", "F-02", "V6"},
    {"I130", "Paint brush 2 in", "PAINT", "EA", "205", "80", "180", "450", "F-02", "V6"},
};

struct Row {
  const char* key;
  const char* attributes;  // separated by "|"
};

constexpr Row kVendors[] = {
    {"V1", "Hartwell Tools|Kelham|555-0201|NET30"},
    {"V2", "Voltane Power|Ashford|555-0202|NET30"},
    {"V3", "Crown Fixings|Eastgate|555-0203|NET60"},
    {"V4", "Brook Pipe & Valve|Dunmore|555-0204|NET30"},
    {"V5", "Lumen Electric|Saltmouth|555-0205|NET60"},
    {"V6", "Tallow Paint Works|Kelham|555-0206|NET30"},
};

constexpr Row kReps[] = {
    {"R1", "Nora Beck|Ashford|555-0301"},
    {"R2", "Omar Dale|Saltmouth|555-0302"},
    {"R3", "Pia Lind|Eastgate|555-0303"},
    {"R4", "Quentin Shaw|Kelham|555-0304"},
};

constexpr Row kHelp[] = {
    {"MAIN.MENU",
     "Main Menu|Choose a tab, then an option; Enter or a double click runs it.|"
     "Two letters in the field Open go straight to a menu: AR, IC, SO, RP, UT."},
    {"AR.CUST.INQ",
     "Customer Inquiry|Shows address, terms, credit and contacts of a customer.|"
     "Enter a customer number such as C1001. A point ends the inquiry."},
    {"SO.ENTER",
     "Enter an Order|Takes the customer, then items and quantities.|"
     "An empty item number ends the order and stores it."},
    {"CUST.NO",
     "Customer number|C and four digits, such as C1001. The letter may be left out.|"
     "NEW takes the next free number. E leaves the screen.||"
     "The locator finds customers by a word of their name, their city or their terms."},
    {"CUST.LIMIT",
     "Credit limit|What the customer may owe us. Limits above $100,000.00 need the board.|"
     "Customers with the terms COD have none."},
    {"CUST.CONTACTS",
     "Contacts|The people to ask for, the most important first, separated by semicolons."},
    {"ITEM.GROUP",
     "Item group|Decides where the item stands in price lists and on the shelves.|"
     "The list shows all groups."},
    {"PRICE.ITEM",
     "Item number|Together with the customer this is the key of the price.|"
     "Enter goes to the customer, where Enter accepts both."},
    {"LINE.ITEM",
     "Item number|The price comes from the agreement with the customer while it is valid,|"
     "or else from the item. Without an item number the line is taken out."},
    {"UT.CLOSE", "Close the Month|Moves the accounts to the next month. Needs your password."},
};

// What codes mean, by kind, code and language.
constexpr Row kCodes[] = {
    {"GROUP*TOOLS*EN", "Hand tools"},     {"GROUP*POWER*EN", "Power tools"},
    {"GROUP*FIXINGS*EN", "Fixings"},      {"GROUP*PLUMBING*EN", "Plumbing"},
    {"GROUP*ELECTRIC*EN", "Electrical"},  {"GROUP*PAINT*EN", "Paint"},
    {"TERMS*COD*EN", "Cash on delivery"}, {"TERMS*NET30*EN", "30 days net"},
    {"TERMS*NET60*EN", "60 days net"},
};

// What combo boxes offer.
constexpr Row kChoices[] = {
    {"TERMS", "COD|NET30|NET60"},
    {"DISCOUNTS", "0|250|500|750|1000"},
    {"UNITS", "EA|SET|BOX|BAG|LB|PR|ROLL|TIN"},
};

struct Agreement {
  const char* key;
  const char* price;
  int days;  // that it still holds
  const char* remark;
};

constexpr Agreement kAgreements[] = {
    {"C1001I101", "1450", 60, "Paula Finch, letter of 3 March"},
    {"C1003I127", "3500", 30, "Ron Carter, for the Mill Lane site"},
    {"C1022I108", "9995", -10, "Purchasing, has run out"},
};

constexpr const char* kFiles[] = {"CODES",   "CUSTOMERS", "DICTIONARY", "HELP", "ITEMS",
                                  "LOCATOR", "MENUS",     "ORDERS",     "PARM", "PRICES",
                                  "REPS",    "SCREEN",    "VENDORS"};

constexpr int kOrderCount = 80;

template <std::size_t N>
void SeedRows(Store& store, const char* file, const Row (&rows)[N]) {
  for (const auto& row : rows) store.Write(file, row.key, Join(Split(row.attributes, '|'), kAm));
}

std::string FirstWord(std::string_view name) {
  std::string word;
  for (const char c : name.substr(0, name.find(' ')))
    word += c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  return word;
}

// The dates, classes and discounts are spread over the customers by their place in the table.
void SeedCustomers(Store& store, long long today) {
  static constexpr const char* kClasses[] = {"C", "B", "A"};
  static constexpr const char* kDiscounts[] = {"0", "500", "1000"};
  long long n = 0;
  for (const auto& c : kCustomers) {
    const auto kind = static_cast<std::size_t>(n % 3);
    store.Write(
        "CUSTOMERS", c.key,
        Join({c.name, c.street, c.city, c.zip, c.phone, c.terms, c.limit, c.balance, c.rep,
              Join(Split(c.contacts, '|'), kVm), std::to_string(today - 400 - n * 97),
              std::to_string(today - 20 - n * 11), "", "00" + std::to_string(1200 + n * 10),
              "accounts@" + FirstWord(c.name) + ".example", kClasses[kind], kDiscounts[kind]},
             kAm));
    ++n;
  }
}

void SeedItems(Store& store, long long today) {
  long long n = 0;
  for (const auto& i : kItems) {
    store.Write("ITEMS", i.key,
                Join({i.name, i.group, i.unit, i.onHand, i.level, i.cost, i.price, i.bin, i.vendor,
                      std::to_string(today - 5 - n % 40), std::string(i.key) + "-" + i.unit,
                      n % 4 == 0 ? "12x6" : "10x1"},
                     kAm));
    ++n;
  }
}

void SeedAgreements(Store& store, long long today) {
  for (const auto& a : kAgreements)
    store.Write("PRICES", a.key, Join({a.price, std::to_string(today + a.days), a.remark}, kAm));
}

// What screens show in place of a looked-up text that is not there.
void SeedParameters(Store& store) {
  for (const auto& row : kChoices)
    store.Write("PARM", row.key, Join(Split(row.attributes, '|'), kVm));
  store.Write("PARM", "WORKSTATION", Join({"notepad.exe @", "calc.exe"}, kAm));
  std::string prompts = "Texts of the screens";
  SetAttribute(prompts, 6, Join({"", "", "(not on file)"}, kVm));
  store.Write("PARM", "PROMPTS", prompts);
}

// Orders spread over customers, items and days by strides that share no factor with the table
// sizes, so that each table entry comes up. The youngest third is open, one in sixteen cancelled.
void SeedOrders(Store& store, long long today) {
  for (int n = 0; n < kOrderCount; ++n) {
    const auto order = static_cast<std::size_t>(n);
    const auto& from = kCustomers[(order * 7) % std::size(kCustomers)];
    std::vector<std::string> items, quantities, prices;
    for (std::size_t line = 0; line < 1 + order % 4; ++line) {
      const auto& item = kItems[(order * 11 + line * 7) % std::size(kItems)];
      items.emplace_back(item.key);
      quantities.push_back(std::to_string(1 + (order * 5 + line * 3) % 12));
      prices.emplace_back(item.price);
    }
    const char* status = n % 16 == 9 ? "CANCELLED" : n >= kOrderCount * 2 / 3 ? "OPEN" : "SHIPPED";
    store.Write("ORDERS", std::to_string(5001 + n),
                Join({from.key, std::to_string(today - kOrderCount + 1 + n), Join(items, kVm),
                      Join(quantities, kVm), Join(prices, kVm), status, from.rep,
                      "PO-" + std::to_string(7300 + n * 3)},
                     kAm));
    auto buyer = store.Read("CUSTOMERS", from.key).value_or("");
    SetAttribute(buyer, customer::LastOrder, std::to_string(today - kOrderCount + 1 + n));
    store.Write("CUSTOMERS", from.key, buyer);
  }
}

// Help records have their heading in attribute 1 and their lines as values of attribute 11.
void SeedHelp(Store& store) {
  for (const auto& field : FieldEntries()) {
    std::string record = field.heading;
    SetAttribute(record, 11, field.tip);
    store.Write("HELP", field.name, record);
  }
  for (const auto& row : kHelp) {
    auto lines = Split(row.attributes, '|');
    std::string record = lines.front();
    lines.erase(lines.begin());
    SetAttribute(record, 11, Join(lines, kVm));
    store.Write("HELP", row.key, record);
  }
}

}  // namespace

void Seed(Store& store, long long today) {
  for (const char* file : kFiles) store.CreateFile(file);
  SeedCustomers(store, today);
  SeedItems(store, today);
  SeedAgreements(store, today);
  SeedRows(store, "CODES", kCodes);
  SeedParameters(store);
  SeedScreens(store);
  SeedLocators(store);
  SeedRows(store, "VENDORS", kVendors);
  SeedRows(store, "REPS", kReps);
  SeedOrders(store, today);
  SeedHelp(store);
  SeedMenus(store);
  store.Write("PARM", "COMPANY",
              Join({"Meridian Trading Company", "1", std::to_string(today)}, kAm));
  store.Write("PARM", "NEXT.ORDER", std::to_string(5001 + kOrderCount));
  // Passwords of a sample for loopback: they stand in the file as they are.
  store.SetPassword("demo", "demo");
  store.SetPassword("sales", "sales");
}

}  // namespace quorvel::demohost
