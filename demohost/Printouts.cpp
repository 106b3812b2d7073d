// Reports that the workstation captures, labels that it prints, what it shows and starts.
#include <algorithm>
#include <utility>
#include <vector>

#include "demohost/Application.h"
#include "demohost/Frames.h"
#include "demohost/Marks.h"
#include "demohost/Pager.h"
#include "demohost/Printout.h"
#include "demohost/Record.h"
#include "demohost/Reports.h"
#include "demohost/Values.h"

namespace quorvel::demohost {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr char kFormFeed = '\f';
constexpr int kPageLines = 60;
constexpr int kStockLines = 10'000;
constexpr int kLedgerLines = 1'000'000;
// What a line printer takes as the order to print bold; captured text is better without it.
constexpr std::string_view kBoldOn = "\x1B[1m";

// PARM's record WORKSTATION, to be fitted to the machine: the command of the export, the desktop
// command. "@" stands for the file's name.
enum { ExportCommand = 1, DesktopCommand };

using Next = std::function<bool(std::string&)>;

Next Lines(std::vector<std::string> lines) {
  return [lines = std::move(lines), at = std::size_t{0}](std::string& text) mutable {
    if (at < lines.size()) text.append(lines[at++]).append(kLineEnd);
    return at < lines.size();
  };
}

// Numbered lines, worked out one at a time.
Next Numbered(int count, std::function<std::string(int)> line) {
  return [count, line = std::move(line), at = 0](std::string& text) mutable {
    text.append(line(++at)).append(kLineEnd);
    return at < count;
  };
}

std::vector<std::string> ListingLines(Console& console, std::string_view report,
                                      std::string_view title = {}) {
  auto listing = Run(*FindReport(report), console);
  std::vector<std::string> lines{title.empty() ? listing.title : std::string(title),
                                 listing.headings, ""};
  lines.insert(lines.end(), listing.body.begin(), listing.body.end());
  return lines;
}

Printout Captured(Next next, const std::vector<std::string>& fields = {}) {
  std::vector<std::string> opening{"~CAPTURE-ON~"};
  opening.insert(opening.end(), fields.begin(), fields.end());
  return {Frame(opening), Frame({"~CAPTURE-OFF~"}), std::move(next)};
}

std::string Parameter(Console& console, int attribute) {
  return Attribute(console.Host().Data().Read("PARM", "WORKSTATION").value_or(""), attribute);
}

Printout CustomerList(Console& console) {
  return Captured(Lines(ListingLines(console, "AR*CUSTLIST")));
}

std::string Page(int line, std::string_view title) {
  if (line % kPageLines != 1) return {};
  return (line == 1 ? std::string() : std::string(1, kFormFeed)) + std::string(title) + "   page " +
         std::to_string(line / kPageLines + 1) + std::string(kLineEnd) + std::string(kLineEnd);
}

Printout StockCount(Console& console) {
  std::vector<std::string> items;
  console.Host().Data().ForEach("ITEMS", [&](const std::string& key, const std::string& record) {
    items.push_back(Left(key, 8) + Left(Attribute(record, item::Name), 32) +
                    Left(Attribute(record, item::Unit), 6));
    return true;
  });
  if (items.empty()) items.emplace_back("No items");
  return Captured(Numbered(kStockLines, [items = std::move(items)](int line) {
    const auto& item = items[static_cast<std::size_t>(line) % items.size()];
    return Page(line, "Stock count sheets") + Right(std::to_string(line), 6) + "  " + item +
           "Counted: ________";
  }));
}

Printout Ledger(Console& console) {
  const auto today = DayNumber(console.Host().Now());
  return Captured(Numbered(kLedgerLines, [today](int line) {
    const auto amount = Show(Form::Money, std::to_string((line * 7919LL) % 1'000'000));
    return Right(std::to_string(line), 8) + "  " +
           Left(Show(Form::Date, std::to_string(today - line % 365)), 12) + "  C10" +
           std::to_string(10 + line % 15) + "  " + (line % 3 == 0 ? "Payment " : "Invoice ") +
           Right(amount, 14);
  }));
}

Printout Stripped(Console& console) {
  auto lines = ListingLines(console, "AR*BALANCES");
  for (auto& line : lines) line = std::string(kBoldOn) + line;
  return Captured(Lines(std::move(lines)), {"", std::string(kBoldOn)});
}

Printout Exported(Console& console) {
  return Captured(Lines(ListingLines(console, "IC*PRICES")), {Parameter(console, ExportCommand)});
}

// The reminder goes to the customer who owes most.
Printout Faxed(Console& console) {
  long long most = -1;
  std::string debtor;
  console.Host().Data().ForEach("CUSTOMERS", [&](const std::string&, const std::string& record) {
    const auto balance = Number(Attribute(record, customer::Balance));
    if (balance > most) debtor = record;
    most = std::max(most, balance);
    return true;
  });
  const auto of = [&](int attribute) { return Clean(Attribute(debtor, attribute)); };
  const auto values = Join(
      {Clean(Attribute(debtor, customer::Contacts, 1)), of(customer::Name), of(customer::Phone),
       of(customer::Phone), of(customer::Email), "Accounts", "Meridian Trading Company", "555-0900",
       "555-0901", "accounts@meridian.example", "Your account"},
      kAm);
  const auto date = ShowDate(console.Host().Now());
  return Captured(Lines({date, "", of(customer::Name), of(customer::Street),
                         of(customer::City) + " " + of(customer::Zip), "",
                         "Our books show a balance of $" +
                             Show(Form::Money, std::to_string(std::max(most, 0LL))) + ".",
                         "Please let us have your payment.", "", "Accounts"}),
                  {"", "", values});
}

Printout Joined(Console& console) {
  auto printout = Captured(Lines(ListingLines(console, "IC*VENDORS")));
  printout.joined = true;
  return printout;
}

Printout Labels(Console& console) {
  std::vector<std::string> lines;
  console.Host().Data().ForEach("CUSTOMERS", [&](const std::string&, const std::string& record) {
    for (const int attribute : {customer::Name, customer::Street, customer::City})
      lines.push_back(Clean(Attribute(record, attribute)));
    lines.emplace_back();
    return lines.size() < 40;
  });
  return {Frame({"~STARTPRINT~"}), Frame({"~STOPPRINT~"}), Lines(std::move(lines))};
}

class PrintoutProgram final : public Program {
 public:
  explicit PrintoutProgram(Printout (*make)(Console&)) : make_(make) {}
  void OnStart(Console& console) override {
    console.Deliver(make_(console));
    console.Finish();
  }
  void OnLine(Console& console, const std::string&) override { console.Finish(); }

 private:
  Printout (*make_)(Console&);
};

// One message to the workstation, which is not answered.
class FrameProgram final : public Program {
 public:
  explicit FrameProgram(std::string (*make)(Console&)) : make_(make) {}
  void OnStart(Console& console) override {
    console.Deliver({make_(console), "", nullptr});
    console.Finish();
  }
  void OnLine(Console& console, const std::string&) override { console.Finish(); }

 private:
  std::string (*make_)(Console&);
};

std::string Picture(Console& console) {
  return Frame({"~SHOWIMAGE~", console.Host().PictureFile(), "600", "800", "", ""});
}

std::string Desktop(Console& console) {
  return Frame({"~DOSEXE~", Parameter(console, DesktopCommand), "1"});
}

struct Row {
  std::string_view id;
  Printout (*make)(Console&);
};

constexpr Row kPrintouts[] = {
    {"RP*CUSTOMERS", CustomerList}, {"RP*STOCKCOUNT", StockCount}, {"RP*LEDGER", Ledger},
    {"RP*BALANCES", Stripped},      {"RP*PRICES", Exported},       {"RP*REMINDER", Faxed},
    {"RP*VENDORS", Joined},         {"RP.LABELS", Labels},
};

}  // namespace

std::optional<Option> FindWorkstationOption(std::string_view id) {
  constexpr bool kWindows = false;
  for (const auto& row : kPrintouts) {
    if (row.id != id) continue;
    return Option{std::string(id), kWindows,
                  [make = row.make] { return std::make_unique<PrintoutProgram>(make); }};
  }
  if (id == "UT.PICTURE")
    return Option{std::string(id), kWindows,
                  [] { return std::make_unique<FrameProgram>(Picture); }};
  if (id == "UT.DESKTOP")
    return Option{std::string(id), kWindows,
                  [] { return std::make_unique<FrameProgram>(Desktop); }};
  return std::nullopt;
}

}  // namespace quorvel::demohost
