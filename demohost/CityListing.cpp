// A terminal program that lets the user pick from a list and goes on with the answer.
#include "demohost/Application.h"
#include "demohost/Lists.h"
#include "demohost/Pager.h"
#include "demohost/Program.h"
#include "demohost/Record.h"
#include "demohost/Values.h"

namespace quorvel::demohost {
namespace {

class CityListing final : public Program {
 public:
  void OnStart(Console& console) override {
    console.ShowList({"Customers of a City", Cities(console.Host().Data()), true});
  }

  void OnLine(Console& console, const std::string& line) override {
    if (!pager_.Done()) {
      pager_.OnLine(console, line);
      if (pager_.Done()) console.Finish();
      return;
    }
    if (line.empty()) return console.Finish();
    std::vector<std::string> body;
    console.Host().Data().ForEach(
        "CUSTOMERS", [&](const std::string& key, const std::string& record) {
          if (Trim(Attribute(record, customer::City)) == line)
            body.push_back(Left(key, 10) + Left(Attribute(record, customer::Name), 30) +
                           Left(Attribute(record, customer::Phone), 16));
          return true;
        });
    pager_.Start(console, "Customers of " + Clean(line),
                 Left("Number", 10) + Left("Name", 30) + Left("Telephone", 16), std::move(body));
  }

 private:
  Pager pager_;
};

}  // namespace

std::unique_ptr<Program> MakeCityListing() {
  return std::make_unique<CityListing>();
}

}  // namespace quorvel::demohost
