// The data-entry screens of the host: where their fields stand and what they hold.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "demohost/Store.h"

namespace quorvel::demohost {

// Field numbers of the screens: attribute n of a record on screen is the value of field n. Fields
// without an attribute in the file stand at 7 and above, since a client clears only those there.
namespace customer_field {
enum {
  Key = 2,
  Note,
  Name,
  Street,
  City,
  Zip,
  Phone,
  Email,
  Rep,
  RepName,
  Account,
  Contacts,
  Class,
  Terms,
  Discount,
  Limit,
  Balance,
  Credit,
  Since,
  Reviewed,
  LastOrder,
  OpenOrders
};
}
namespace item_field {
enum {
  Key = 2,
  Note,
  Name,
  Group,
  Unit,
  GroupName,
  Catalogue,
  Aisle,
  Shelf,
  Inner,
  Packs,
  Cost,
  Price,
  Margin,
  OnHand,
  Level,
  Counted,
  Vendor,
  VendorName,
  VendorTerms,
  TermsText
};
}
namespace price_field {
enum { Customer = 2, CustomerName, Item, ItemName, Price, ListPrice, Until, Remark };
}
namespace order_field {
enum {
  Key = 2,
  Note,
  Customer,
  TheirNumber,
  Rep,
  CustomerName,
  Date,
  ShipBy,
  Status,
  RepName,
  FirstLine
};
// Each line of an order is five fields.
enum { LineItem, LineText, LineQuantity, LinePrice, LineAmount, LineFields };
constexpr int kLines = 5;
constexpr int Total = FirstLine + kLines * LineFields;
constexpr int Remark = Total + 1;
}  // namespace order_field

/// One field of a screen. Columns, rows and widths are character cells.
struct ScreenField {
  int number = 0;
  const char* name = "";  // its record in DICTIONARY, its help text, the tail of its hooks' names
  int row = 0, column = 0;
  int width = 0;  // 99: any length, shown `shown` wide
  int shown = 0;
  char type = '1';             // 1 text, 2 number, 3 date
  int attribute = 0;           // in the file; 0: in none (a key, or worked out)
  const char* value = "";      // of the attribute: a number, or "*" for all
  const char* start = "";      // a part of the value: its first column, or its number
  const char* delimiter = "";  // what separates numbered parts
  char kind = '1';  // 1 ordinary, 2 new records only, 3 old ones only, 4 shown, 5 not on the screen
  bool balance = false;  // while it is not zero, the record can't be deleted
  bool required = false;
  int display = 0;          // field that shows what is looked up, or stands beside a key
  const char* preset = "";  // in stored form
  const char* hooks = "";   // "Y" at 1: bi_, 2: ai_, 3: as_, 4: bo_
};

/// A line of text on a screen. Text that belongs to a field gets a number in front.
struct ScreenText {
  int row, column;
  const char* text;
  bool numbered = true;
};

struct Screen {
  const char* id;       // "AR.CUSTOMER": program file BPAR, records AR!CUSTOMER and AR*CUSTOMER
  const char* file;     // that it maintains
  const char* program;  // of its business rules
  const char* files;    // that it uses, separated by blanks
  const char* order;    // in which Enter goes through the fields, separated by blanks
  std::vector<ScreenText> texts;
  std::vector<ScreenField> fields;
};

/// What is known of a field on any screen; see DictionaryRecord for the attributes.
struct FieldEntry {
  const char* name;
  const char* heading;
  const char* tip;
  const char* conversion = "";
  const char* list = "";
  const char* justify = "";
  const char* locator = "";
  const char* prefix = "";  // of the keys in the file looked up
  const char* suffix = "";
  const char* file = "";       // looked up
  const char* attribute = "";  // of it that is shown
  const char* items = "";      // separated by blanks; or a reference
};

const std::vector<Screen>& Screens();
const std::vector<FieldEntry>& FieldEntries();

/// Writes screens and dictionary into the files DICTIONARY, SCREEN and DICT BPxx.
void SeedScreens(Store& store);

/// True if the id names an option that is a data-entry screen.
bool IsScreen(Store& store, std::string_view id);

/// The parameter record of a screen, made complete: what a field's definition leaves empty comes
/// from the field's record in DICTIONARY, and a reference "@file/key/attribute" becomes the values
/// that stand there.
std::string ResolveParameters(Store& store, std::string_view raw);

}  // namespace quorvel::demohost
