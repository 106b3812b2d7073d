#include "app/sim/Injections.h"

#include <functional>
#include <vector>

#include "demohost/Frames.h"

namespace quorvel::sim {
namespace {

using demohost::Frame;

constexpr const char* kHelp = "Heading\xFE\xFE\xFE\xFE\xFE\xFE\xFE\xFE\xFE\xFEline one\xFDline two";
constexpr const char* kMenuText =
    "Rude Menu\xFETab\xFE"
    "First\xFDTab\xFESecond\xFDTab";
constexpr const char* kMenuIds =
    "\xFE"
    "AR.CUSTOMER\xFEUT.WHO";

struct Row {
  int weight;
  std::function<std::string(const std::string& number)> frame;
};

const std::vector<Row>& Rows() {
  using Text = const std::string&;
  static const std::vector<Row> rows{
      {8,
       [](Text n) {
         return Frame({"~MSGBOX~", "Rude", "box " + n});
       }},
      {3,
       [](Text n) {
         return Frame({"~LISTBOX~", "Rude " + n, "0,0,0,0", "A first", "B next"});
       }},
      {3,
       [](Text n) {
         return Frame({"~LISTBOXF~", "Rude " + n, "100,,0,0", "Ashford", "Kelham"});
       }},
      {3,
       [](Text n) {
         return Frame({"~GETPASSWORD~", "Rude " + n});
       }},
      {3,
       [](Text) {
         return Frame({"~FIELDHELP~", "CUST.NO", "AR.CUSTOMER", kHelp});
       }},
      {2, [](Text) { return Frame({"~CAPTURE-ON~"}); }},
      {3, [](Text) { return Frame({"~CAPTURE-OFF~"}); }},
      {1, [](Text) { return Frame({"~STARTPRINT~"}); }},
      {1, [](Text) { return Frame({"~STOPPRINT~"}); }},
      {2,
       [](Text) {
         return Frame({"~STARTMENU~", "RUDE", kMenuText, kMenuIds, "rude"});
       }},
      {1,
       [](Text) {
         return Frame({"~SHOWIMAGE~", "picture.bmp", "600", "800", "", ""});
       }},
      {1,
       [](Text) {
         return Frame({"~DOSEXE~", "calc.exe", "1"});
       }},
      {2,
       [](Text n) {
         return Frame({"~GENOUT~", "4", "rude " + n});
       }},
      {1,
       [](Text) {
         return Frame({"~GENOUT~", "14", "COD"});
       }},
      {2,
       [](Text n) {
         return Frame({"~ERRORMSG~", "rude error " + n});
       }},
      {1,
       [](Text n) {
         return Frame({"~WRITERROR~", "rude write " + n});
       }},
      {1,
       [](Text n) {
         return Frame({"~DELETERROR~", "rude delete " + n});
       }},
      {1,
       [](Text n) {
         return Frame({"~OPENERROR~", "rude open " + n});
       }},
      {2, [](Text) { return Frame({"OK"}); }},
      {2,
       [](Text) {
         return Frame({"~CASELOGIC~", "word", "record", "original", "data"});
       }},
      {1, [](Text) { return Frame({"~MAINT.MODE~"}); }},
      {1, [](Text) { return Frame({"~ENTRY.MODE~"}); }},
      {1, [](Text) { return Frame({"~ENTRYSCREEN~"}); }},
  };
  return rows;
}

// Some blocks begin with a line for the printer of the terminal.
std::string Printed(Random& dice) {
  return dice.Chance(10) ? "\x1B[5iprinted\r\n\x1B[4i" : "";
}

}  // namespace

std::string UnaskedFrame(Random& dice, int number) {
  int all = 0;
  for (const Row& row : Rows()) all += row.weight;
  int left = static_cast<int>(dice.Below(static_cast<std::size_t>(all)));
  for (const Row& row : Rows()) {
    left -= row.weight;
    if (left < 0) return Printed(dice) + row.frame(std::to_string(number));
  }
  return {};
}

}  // namespace quorvel::sim
