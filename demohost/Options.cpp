// The programs of the menus by their ids.
#include <optional>
#include <string>

#include "demohost/ChangeField.h"
#include "demohost/Inquiry.h"
#include "demohost/Orders.h"
#include "demohost/Pager.h"
#include "demohost/Printout.h"
#include "demohost/Program.h"
#include "demohost/Reports.h"
#include "demohost/Utilities.h"

namespace quorvel::demohost {
namespace {

constexpr bool kTerminal = true;
constexpr bool kWindows = false;

const Option kOptions[] = {
    {"AR.CITY", kTerminal, MakeCityListing},
    {"SO.LIST", kTerminal, MakeOrderListing},
    {"SO.ENTER", kTerminal, MakeOrderEntry},
    {"SO.SHIP", kTerminal, MakeShipping},
    {"SO.CANCEL", kTerminal, MakeCancelling},
    {"UT.TCL", kTerminal, MakeCommandPrompt},
    {"UT.WHO", kTerminal, [] { return MakeListing(ListUsers); }},
    {"UT.LOCKS", kTerminal, [] { return MakeListing(ListLocks); }},
    {"UT*FILES", kTerminal, [] { return MakeListing(ListFiles); }},
    {"UT.BROADCAST", kTerminal, MakeBroadcast},
    {"UT.CARD", kTerminal, MakeTestCard},
    {"UT.MSGBOX", kWindows, MakeBoxDemonstration},
    {"UT.CLOSE", kWindows, MakeMonthClose},
    {"UT.PASSWORD", kWindows, MakePasswordChange},
};

}  // namespace

std::optional<Option> FindOption(std::string_view id) {
  for (const auto& option : kOptions) {
    if (option.id == id) return option;
  }
  if (const auto* report = FindReport(id)) {
    return Option{std::string(id), kTerminal, [report] {
                    return MakeListing([report](Console& c) { return Run(*report, c); });
                  }};
  }
  if (auto option = FindWorkstationOption(id)) return option;
  // Inquiries and changes have tables of their own.
  const std::string name(id);
  if (MakeInquiry(id)) return Option{name, kTerminal, [name] { return MakeInquiry(name); }};
  if (MakeChange(id)) return Option{name, kTerminal, [name] { return MakeChange(name); }};
  return std::nullopt;
}

}  // namespace quorvel::demohost
